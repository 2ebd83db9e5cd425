// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A layer's level says how many of the groups before it are still open.
#include "QuarvelDrawingIO/private/layered/DIO_AsepriteLayers.h"

#include <QStringList>

namespace {

using Reader = DIO_AsepriteReader;

QString blendName(int blend)
{
    static const char* const names[] = {"normal",     "multiply",     "screen",      "overlay",    "darken",
                                        "lighten",    "colour dodge", "colour burn", "hard light", "soft light",
                                        "difference", "exclusion",    "hue",         "saturation", "colour",
                                        "luminosity", "addition",     "subtract",    "divide"};
    const auto index = static_cast<std::size_t>(blend);
    return index < std::size(names) ? QString::fromLatin1(names[index]) : QString::number(blend);
}

DIO_AsepriteLayer readLayer(Reader& chunk, const DIO_AsepriteOpacities& opacities)
{
    enum Flag : unsigned
    {
        VISIBLE = 1,
        BACKGROUND = 8,
        REFERENCE = 64
    };
    DIO_AsepriteLayer layer;
    const unsigned flags = chunk.u16();
    layer.type = static_cast<DIO_AsepriteLayerType>(chunk.u16());
    layer.level = chunk.u16();
    chunk.skip(4);
    layer.blend = chunk.u16();
    const double opacity = chunk.u8() / 255.0;
    chunk.skip(3);
    layer.name = DIO_asepriteText(chunk);
    layer.tiles = layer.type == DIO_AsepriteLayerType::TILE_MAP ? chunk.u32() : 0;
    layer.visible = (flags & VISIBLE) != 0 && (flags & REFERENCE) == 0;
    layer.background = (flags & BACKGROUND) != 0;
    const bool isGroup = layer.type == DIO_AsepriteLayerType::GROUP;
    layer.opacity = (isGroup ? opacities.ofGroups : opacities.ofLayers) ? opacity : 1.0;
    return layer;
}

void placeInto(const DIO_AsepriteLayer& group, int number, DIO_AsepriteLayer& layer)
{
    layer.group = DIO_outermost(group.group, group.name, number);
    layer.name = DIO_layerName(group.name + QLatin1Char('/'), layer.name);
    layer.visible = layer.visible && group.visible;
    layer.opacity *= group.opacity;
}

void setEntry(std::vector<QRgb>& palette, std::size_t at, QRgb colour)
{
    if (palette.size() <= at)
        palette.resize(at + 1, 0);
    palette[at] = colour;
}

} // namespace

UT_Result<void> DIO_AsepriteLayers::add(DIO_AsepriteReader& chunk, const DIO_AsepriteOpacities& opacities)
{
    DIO_AsepriteLayer layer = readLayer(chunk, opacities);
    if (_layers.size() >= DIO_kMostLayers)
        return DIO_tooManyLayers();
    while (!_open.empty() && _layers[_open.back()].level >= layer.level)
        _open.pop_back();
    if (!_open.empty())
        placeInto(_layers[_open.back()], static_cast<int>(_open.back()) + 1, layer);
    if (layer.type == DIO_AsepriteLayerType::GROUP)
        _open.push_back(_layers.size());
    _layers.push_back(std::move(layer));
    return {};
}

QStringList DIO_AsepriteLayers::blendModes() const
{
    QStringList modes;
    for (const DIO_AsepriteLayer& layer : _layers)
        if (layer.visible && layer.blend != 0)
            modes << QStringLiteral("%1 (%2)").arg(blendName(layer.blend), layer.name);
    return modes;
}

QString DIO_asepriteText(DIO_AsepriteReader& reader)
{
    const auto bytes = reader.bytes(reader.u16());
    return QString::fromUtf8(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

UT_Result<void> DIO_readAsepritePalette(DIO_AsepriteReader& chunk, std::vector<QRgb>& palette)
{
    constexpr std::uint32_t kMost = 65536;
    const std::uint32_t count = chunk.u32();
    const std::uint32_t first = chunk.u32();
    const std::uint32_t last = chunk.u32();
    chunk.skip(8);
    if (count > kMost || first > last || last >= kMost)
        return DIO_damaged();
    for (std::uint32_t i = first; i <= last && !chunk.hasFailed(); ++i) {
        const bool hasName = (chunk.u16() & 1U) != 0;
        const auto colour = chunk.bytes(4);
        if (!colour.empty())
            setEntry(palette, i, qRgba(colour[0], colour[1], colour[2], colour[3]));
        if (hasName)
            (void)DIO_asepriteText(chunk);
    }
    return {};
}

// Packets: the number of entries to skip, then the number of entries that follow.
void DIO_readOldAsepritePalette(DIO_AsepriteReader& chunk, bool isSixBits, std::vector<QRgb>& palette)
{
    const auto wide = [&](std::uint8_t value) { return isSixBits ? value * 255 / 63 : value; };
    std::size_t at = 0;
    const int packets = chunk.u16();
    for (int packet = 0; packet < packets && !chunk.hasFailed(); ++packet) {
        at += chunk.u8();
        const int count = chunk.u8();
        for (int i = 0; i < (count == 0 ? 256 : count); ++i, ++at) {
            const auto colour = chunk.bytes(3);
            if (colour.empty())
                return;
            setEntry(palette, at, qRgb(wide(colour[0]), wide(colour[1]), wide(colour[2])));
        }
    }
}

std::vector<DIO_AsepriteTag> DIO_asepriteTags(DIO_AsepriteReader& chunk, int frames)
{
    std::vector<DIO_AsepriteTag> tags;
    const int count = chunk.u16();
    chunk.skip(8);
    for (int i = 0; i < count && !chunk.hasFailed(); ++i) {
        DIO_AsepriteTag tag;
        tag.from = chunk.u16();
        tag.to = chunk.u16();
        chunk.skip(1 + 2 + 6 + 3 + 1);
        tag.name = DIO_asepriteText(chunk);
        if (tag.from <= tag.to && tag.to < frames)
            tags.push_back(tag);
    }
    return tags;
}
