// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A composite beside the node, linked to what the node is linked to, paints the drawing.
#include "jobs/shown/LitFrames.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelImageIO/IIO_Samples.h"
#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/graph/XUGroup.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/rendering/RD_RenderJob.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"

#include <algorithm>
#include <cmath>

namespace {

using Samples = std::uint16_t;

std::pair<int, int> previewSize(const std::pair<int, int>& size)
{
    if (size.first <= LitFrames::kMaxWidth)
        return size;
    const double height = static_cast<double>(size.second) * LitFrames::kMaxWidth / size.first;
    return {LitFrames::kMaxWidth, std::max(1, static_cast<int>(std::lround(height)))};
}

// Whether the input is an object that is seen: neither a cut-out nor switched off.
bool isSeen(const MO_Port& input)
{
    constexpr int kMostModules = 1000;
    const MO_Port* source = input.realSrcPort();
    for (int i = 0; source && i < kMostModules; ++i) {
        if (const auto* object = dynamic_cast<const ObjectDefinition*>(source->module()))
            return object->objectNumber()->localValue() != 0 && object->objectEnabled()->localValue();
        const MO_Port* const next = source->module() ? source->module()->inPort(0) : nullptr;
        source = next ? next->realSrcPort() : nullptr;
    }
    return true;
}

// The drawing keeps the smaller of its own and the node's coverage: what was cut out of the node is cut out of it.
void takeCoverage(IIO_Picture& drawing, const IIO_Picture& node)
{
    for (int y = drawing.dataWindow().y1; y < drawing.dataWindow().y2; ++y) {
        const auto target = drawing.row<Samples>(y);
        const auto source = node.row<Samples>(y);
        for (std::size_t i = 3; i < target.size(); i += 4)
            target[i] = std::min(target[i], source[i]);
    }
}

void makeGrey(IIO_Picture& picture)
{
    constexpr Samples kGrey = 45000;
    for (int y = picture.dataWindow().y1; y < picture.dataWindow().y2; ++y) {
        const auto row = picture.row<Samples>(y);
        for (std::size_t i = 0; i < row.size(); i += 4)
            row[i] = row[i + 1] = row[i + 2] = kGrey;
    }
}

std::vector<std::uint8_t> bytesOf(const IIO_Picture& picture)
{
    const auto count = static_cast<std::size_t>(picture.channelCount());
    const bool grey = count < 3;
    const bool covered = count == 2 || count == 4;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(std::size_t{4} * static_cast<std::size_t>(picture.width()) *
                  static_cast<std::size_t>(picture.height()));
    for (int y = picture.dataWindow().y1; y < picture.dataWindow().y2; ++y) {
        const auto row = picture.row<Samples>(y);
        for (std::size_t i = 0; i < row.size(); i += count) {
            for (std::size_t c = 0; c < 3; ++c)
                bytes.push_back(IIO_toSample8(row[i + (grey ? 0 : c)]));
            bytes.push_back(covered ? IIO_toSample8(row[i + count - 1]) : std::uint8_t{255});
        }
    }
    return bytes;
}

UT_Result<std::vector<std::uint8_t>> lit(const CEL_PixmapArea& normals, const IIO_Picture& drawing,
                                         const Math::Box2di& window)
{
    UT_Result<NM_Surface> surface = NM_Surface::create({window.width(), window.height()});
    if (!surface)
        return surface.error();
    if (const auto set = surface->setDrawing(drawing); !set)
        return set.error();
    if (const auto set = surface->setNormals(normals, window); !set)
        return set.error();
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(window.area()) * 4);
    NM_light(*surface, NM_LightingSettings{}, bytes);
    return bytes;
}

} // namespace

LitFrames::LitFrames(MO_Module& module, const PictureSource& source, RenderedKind shown,
                     const RD_RenderParameters& final)
    : _module(module), _source(source.kind), _shown(shown), _parameters(final)
{
    _parameters.resolution = previewSize(final.resolution);
    if (shown == RenderedKind::NORMALS && source.nodes.size() == 1)
        addColours(*source.nodes.front());
}

LitFrames::~LitFrames()
{
    if (_colours)
        _colours->group()->take(*_colours);
}

void LitFrames::addColours(MO_Module& node)
{
    if (!node.group())
        return;
    auto& composite = node.group()->emplace<MO_CompositeModule>();
    composite.setCompositeOrder(MO_CompositeType::PORT_ORDER);
    _colours = &composite;
    unsigned port = 0;
    for (unsigned i = 0; i < node.nInPorts(); ++i) {
        MO_Port* const source = node.inPort(i)->srcPort();
        if (!source || !isSeen(*node.inPort(i)))
            continue;
        if (MO_Module* const behind = source->module();
            behind && MO_Scene::connect(*behind, composite, port, source->index()))
            ++port;
    }
}

UT_Result<std::vector<std::uint8_t>> LitFrames::render(int frame) const
{
    const Math::Box2di window = RD_RenderJob(_parameters).canvas();
    const auto cel = RD_SoftRenderer::render(_module, frame, _parameters);
    if (!cel)
        return cel.error();
    const CEL_PixmapArea& pixmap = *(*cel)->pixmap();
    if (_shown != RenderedKind::NORMALS) {
        const auto channel = _source == RenderedKind::NORMALS ? NM_ElevationChannel::BLUE : NM_ElevationChannel::RED;
        const auto picture = _shown == RenderedKind::ELEVATION
                                 ? NM_elevationOf(pixmap, channel, window, window, IIO_SampleType::UINT16)
                                 : NM_drawingPicture(pixmap, window, IIO_SampleType::UINT16);
        return picture ? UT_Result<std::vector<std::uint8_t>>(bytesOf(*picture)) : picture.error();
    }
    UT_Result<IIO_Picture> node = NM_toPicture(pixmap, window, {.layout = NM_Layout::NODE});
    if (!node)
        return node.error();
    if (!_colours) {
        makeGrey(*node);
        return lit(pixmap, *node, window);
    }
    const auto colours = RD_SoftRenderer::render(*_colours, frame, _parameters);
    if (!colours)
        return colours.error();
    UT_Result<IIO_Picture> drawing = NM_drawingPicture(*(*colours)->pixmap(), window, IIO_SampleType::UINT16);
    if (!drawing)
        return drawing.error();
    takeCoverage(*drawing, *node);
    return lit(pixmap, *drawing, window);
}
