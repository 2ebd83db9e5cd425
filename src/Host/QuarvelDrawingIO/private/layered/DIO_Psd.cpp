// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A header, the records of the layers, and the picture of all layers together, which stands for a file without any.
#include "QuarvelDrawingIO/private/layered/DIO_Psd.h"

#include "QuarvelDrawingIO/private/layered/DIO_PsdRecords.h"

#include <QFileInfo>

#include <algorithm>

namespace {

using Bytes = std::span<const std::uint8_t>;
using Reader = DIO_PsdReader;
using Record = DIO_PsdRecord;

QString blendName(const QByteArray& key)
{
    static const std::pair<const char*, const char*> names[] = {
        {"mul ", "multiply"},    {"scrn", "screen"},       {"over", "overlay"},     {"dark", "darken"},
        {"lite", "lighten"},     {"div ", "colour dodge"}, {"idiv", "colour burn"}, {"hLit", "hard light"},
        {"sLit", "soft light"},  {"diff", "difference"},   {"smud", "exclusion"},   {"hue ", "hue"},
        {"sat ", "saturation"},  {"colr", "colour"},       {"lum ", "luminosity"},  {"lddg", "linear dodge"},
        {"lbrn", "linear burn"}, {"diss", "dissolve"}};
    for (const auto& [known, name] : names)
        if (key == known)
            return QString::fromLatin1(name);
    return QString::fromLatin1(key).simplified();
}

// ImageMagick writes the key of the usual mode backwards.
bool isUsual(const QByteArray& blend)
{
    return blend == "norm" || blend == "mron" || blend == "pass";
}

class PsdFile
{
public:
    UT_Result<DIO_BitmapLayers> read(Bytes bytes, const QString& path)
    {
        Reader file(bytes);
        if (UT_Result<void> header = readHeader(file); !header)
            return header.error();
        file.skip(file.u32()); // colours of indexed pictures
        file.skip(file.u32()); // resources: thumbnails, guides and so on
        Reader all = file.block(DIO_psdLength(file, _form));
        if (file.hasFailed())
            return DIO_damaged();
        UT_Result<std::vector<Record>> records = DIO_psdRecords(all, _form);
        if (!records)
            return records.error();
        _records = std::move(*records);
        if (UT_Result<void> made = hasPixels() ? makeLayers() : readWhole(file, path); !made)
            return made.error();
        if (hasPixels() && !holdsWhole(file))
            _made.warnings.append(
                QStringLiteral("the file is cut off behind its layers, which are all there; save it again "
                               "from the program that made it"));
        DIO_warnOfBlendModes(_modes, _made.warnings);
        if (!_clipped.isEmpty())
            _made.warnings.append(QStringLiteral("layers that others clip are shown whole: %1")
                                      .arg(_clipped.mid(0, 8).join(QStringLiteral(", "))));
        return std::move(_made);
    }

private:
    // Some programs write an empty layer into files that have none.
    bool hasPixels() const
    {
        return std::ranges::any_of(_records, [](const Record& record) { return !record.place.isEmpty(); });
    }

    UT_Result<void> readHeader(Reader& file)
    {
        constexpr int kGrey = 1;
        constexpr int kRgb = 3;
        const bool isKnown = DIO_psdKey(file) == "8BPS";
        const int version = file.u16();
        file.skip(6);
        _channels = file.u16();
        const std::uint32_t height = file.u32();
        const std::uint32_t width = file.u32();
        _form.depth = file.u16();
        const int mode = file.u16();
        if (!isKnown || (version != 1 && version != 2))
            return UT_Error{QStringLiteral("this is not a PSD file")};
        if (file.hasFailed())
            return DIO_damaged();
        if ((mode != kGrey && mode != kRgb) || (_form.depth != 8 && _form.depth != 16))
            return UT_Error{QStringLiteral("its colours are not those that can be read: RGB or grey of 8 or 16 bits; "
                                           "convert it and save it again")};
        _form.isLarge = version == 2;
        _form.isGrey = mode == kGrey;
        DIO_PixelBudget canvas;
        if (UT_Result<void> taken = canvas.take(width, height); !taken)
            return taken;
        _made.size = QSize(static_cast<int>(width), static_cast<int>(height));
        return {};
    }

    struct Around
    {
        QString names;
        DIO_BitmapGroup group;
        double opacity = 1.0;
        bool visible = true;
    };

    // From the top down, where a group's name comes before its layers.
    UT_Result<void> makeLayers()
    {
        std::vector<Around> open{Around()};
        int groups = 0;
        for (auto record = _records.rbegin(); record != _records.rend(); ++record) {
            const Around& around = open.back();
            if (record->section == DIO_PsdSection::END_OF_GROUP) {
                if (open.size() > 1)
                    open.pop_back();
                continue;
            }
            const bool visible = around.visible && record->visible;
            if (visible && !isUsual(record->blend))
                _modes << QStringLiteral("%1 (%2)").arg(blendName(record->blend),
                                                        DIO_layerName(around.names, record->name));
            if (record->section == DIO_PsdSection::OPEN_GROUP || record->section == DIO_PsdSection::CLOSED_GROUP) {
                open.push_back({DIO_layerName(around.names, record->name) + QLatin1Char('/'),
                                DIO_outermost(around.group, record->name, ++groups), around.opacity * record->opacity,
                                visible});
                continue;
            }
            if (!visible || record->place.isEmpty())
                continue;
            if (record->clipped)
                _clipped << DIO_layerName(around.names, record->name);
            if (UT_Result<void> made = makeLayer(*record, around); !made)
                return made;
        }
        std::ranges::reverse(_made.layers);
        return {};
    }

    UT_Result<void> makeLayer(Record& record, const Around& around)
    {
        if (UT_Result<void> taken = _budget.take(record.place.width(), record.place.height()); !taken)
            return taken;
        DIO_PsdPlanes planes;
        Reader pixels(record.pixels);
        for (const DIO_PsdChannel& channel : record.channels)
            if (UT_Result<void> read = readChannel(pixels.block(channel.size), channel.id, record, planes); !read)
                return read;
        if (planes.red.empty())
            return {};
        if (record.mask.isOn && !(record.mask.samples.empty() && !record.mask.place.isEmpty())) {
            if (planes.alpha.empty())
                planes.alpha.assign(planes.red.size(), 65535);
            DIO_applyPsdMask(planes.alpha, record.place, record.mask);
        }
        const QImage image = DIO_psdImage(planes, record.place.size(), _form);
        if (image.isNull())
            return UT_noMemory(QStringLiteral("its pictures"), QStringLiteral("make it smaller"));
        _made.layers.push_back({DIO_layerName(around.names, record.name),
                                around.group,
                                {{image, record.place.topLeft(), record.opacity * around.opacity}},
                                {0}});
        return {};
    }

    UT_Result<void> readChannel(Reader channel, int id, Record& record, DIO_PsdPlanes& planes)
    {
        constexpr int kMask = -2;
        DIO_PsdPlane* const target = id == 0                    ? &planes.red
                                     : id == 1 && !_form.isGrey ? &planes.green
                                     : id == 2 && !_form.isGrey ? &planes.blue
                                     : id == -1                 ? &planes.alpha
                                     : id == kMask              ? &record.mask.samples
                                                                : nullptr;
        const QSize size = id == kMask ? record.mask.place.size() : record.place.size();
        if (!target || size.isEmpty() || channel.left() < 2)
            return {};
        if (id == kMask)
            if (UT_Result<void> taken = _budget.take(size.width(), size.height()); !taken)
                return taken;
        const int packing = channel.u16();
        UT_Result<DIO_PsdPlane> plane = DIO_psdPlane(channel.rest(), packing, size, _form);
        if (!plane)
            return plane.error();
        *target = std::move(*plane);
        return {};
    }

    // Whether the picture of all layers is there. Who reads the layers does not need it, but every program writes it.
    bool holdsWhole(Reader file) const
    {
        const int packing = file.u16();
        const std::size_t rows = static_cast<std::size_t>(_channels) * static_cast<std::size_t>(_made.size.height());
        if (packing == 0)
            return file.left() >=
                   rows * static_cast<std::size_t>(_made.size.width()) * static_cast<std::size_t>(_form.depth / 8);
        const Bytes counts = packing == 1 ? file.bytes((_form.isLarge ? 4 : 2) * rows) : Bytes();
        return !file.hasFailed() && file.left() >= sumOf(counts);
    }

    // The picture of all layers, which stands at the end of the file: one packing, then the channels, one after the
    // other. Of packed rows the counts of all channels come first.
    UT_Result<void> readWhole(Reader& file, const QString& path)
    {
        const int packing = file.u16();
        const int wanted = _form.isGrey ? 1 : 3;
        const QSize& size = _made.size;
        if (file.hasFailed() || _channels < wanted || packing > 1)
            return DIO_damaged();
        const auto height = static_cast<std::size_t>(size.height());
        const std::size_t countBytes = _form.isLarge ? 4 : 2;
        const Bytes counts =
            packing == 1 ? file.bytes(countBytes * height * static_cast<std::size_t>(_channels)) : Bytes();
        const std::size_t plainBytes =
            static_cast<std::size_t>(size.width()) * height * static_cast<std::size_t>(_form.depth / 8);
        DIO_PsdPlanes planes;
        DIO_PsdPlane* const targets[] = {&planes.red, &planes.green, &planes.blue};
        for (int i = 0; i < wanted; ++i) {
            const Bytes own =
                packing == 1 && !file.hasFailed()
                    ? counts.subspan(countBytes * height * static_cast<std::size_t>(i), countBytes * height)
                    : Bytes();
            const Bytes packed = file.bytes(packing == 1 ? sumOf(own) : plainBytes);
            std::vector<std::uint8_t> channel(own.begin(), own.end());
            channel.insert(channel.end(), packed.begin(), packed.end());
            UT_Result<DIO_PsdPlane> plane = DIO_psdPlane(channel, packing, size, _form);
            if (!plane)
                return plane.error();
            *targets[i] = std::move(*plane);
        }
        const QImage image = DIO_psdImage(planes, size, _form);
        if (image.isNull())
            return UT_noMemory(QStringLiteral("its pictures"), QStringLiteral("make it smaller"));
        _made.layers.push_back({QFileInfo(path).completeBaseName(), {}, {{image, {}, 1.0}}, {0}});
        return {};
    }

    std::size_t sumOf(Bytes counts) const
    {
        Reader reader(counts);
        std::size_t sum = 0;
        while (reader.left() > 0)
            sum += _form.isLarge ? reader.u32() : reader.u16();
        return sum;
    }

    DIO_BitmapLayers _made;
    DIO_PsdForm _form;
    DIO_PixelBudget _budget;
    std::vector<Record> _records; ///< bottom up
    QStringList _modes;
    QStringList _clipped;
    int _channels = 0;
};

} // namespace

UT_Result<DIO_BitmapLayers> DIO_readPsd(const QString& path)
{
    const UT_Result<QByteArray> bytes = DIO_readBytes(path);
    if (!bytes)
        return bytes.error();
    return PsdFile().read(DIO_bytesOf(*bytes), path);
}
