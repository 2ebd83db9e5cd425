// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A row is composed port by port: what is the same for the whole row is looked up once, and the pixels of the three
// pictures are walked side by side.
#include "render/Composition.h"

#include "render/CompositionKernels.h"
#include "render/PixelTraits.h"

#include <tbb/parallel_for.h>
#include <tbb/partitioner.h>
#include <tbb/task_group.h>

// The columns of one row in which output, input and result all have pixels.
template<typename Pixel>
struct VallorinRenderHandler::BasicAccumFunctor<Pixel>::PortRow
{
    std::span<Pixel> output;
    std::span<const Pixel> input;
    std::span<const Pixel> result; // empty for a cut-out
};

namespace {

template<typename Pixel>
std::map<int, UT_SharedPtr<CEL_PixmapOf<Pixel>>> typed(const VallorinRenderHandler::PixmapMap& pixmaps)
{
    std::map<int, UT_SharedPtr<CEL_PixmapOf<Pixel>>> result;
    for (const auto& [key, pixmap] : pixmaps)
        result[key] = pixmap.template dynamicCast<CEL_PixmapOf<Pixel>>();
    return result;
}

template<typename Pixmap>
auto columns(Pixmap& pixmap, int y, const Math::Box2di& common)
{
    return pixmap.row(y).subspan(static_cast<std::size_t>(common.x1 - pixmap.allocatedRect().x1),
                                 static_cast<std::size_t>(common.width()));
}

} // namespace

template<typename Pixel>
VallorinRenderHandler::BasicAccumFunctor<Pixel>::BasicAccumFunctor(const VallorinRenderHandler& handler, Pixmap& output,
                                                                   const PixmapMap& inputs, const PixmapMap& results)
    : _handler(handler)
    , _x1(output.allocatedRect().x1)
    , _x2(output.allocatedRect().x2)
    , _output(output)
    , _stores(VolumeRowKernels::storesFor(output.allocatedRect().area() * static_cast<std::int64_t>(sizeof(Pixel)),
                                          VolumeRowKernels::Reader::LATER))
    , _inputs(typed<Pixel>(inputs))
    , _results(typed<Pixel>(results))
    , _portIds(&handler.portObjectIds)
    , _generateNormals(handler.generateNormals)
    , _depthInBlue(handler.depthInBlue)
{}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::operator()(const tbb::blocked_range<int>& rows) const
{
    for (int y = rows.begin(); y < rows.end(); ++y)
        composeRow(y);
    VolumeRowKernels::finishStores();
}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::composeRow(int y) const
{
    bool isEmpty = true;
    for (const auto& [port, input] : _inputs)
        if (input)
            isEmpty = !composePort(y, port, *input, isEmpty) && isEmpty;
    if (isEmpty)
        VolumeRowKernels::fillPixels(_output.row(y), Pixel{}, _stores);
}

template<typename Pixel>
Math::Box2di VallorinRenderHandler::BasicAccumFunctor<Pixel>::commonColumns(int y, const Pixmap& input,
                                                                            const Pixmap* result) const
{
    const Math::Box2di common = Math::Box2di(_x1, y, _x2, y + 1).getIntersection(input.allocatedRect());
    return result ? common.getIntersection(result->allocatedRect()) : common;
}

// While nothing is there, the row is not read, and not cleared before it is written: it may hold anything.
template<typename Pixel>
bool VallorinRenderHandler::BasicAccumFunctor<Pixel>::composePort(int y, int port, const Pixmap& input,
                                                                  bool isEmpty) const
{
    const int objectId = (*_portIds)[static_cast<std::size_t>(port)];
    const auto found = _results.find(objectId);
    const Pixmap* result = objectId > 0 && found != _results.end() ? found->second.get() : nullptr;
    if (objectId < 0 || (objectId > 0 && !result) || (objectId == 0 && isEmpty))
        return false;
    const Math::Box2di common = commonColumns(y, input, result);
    if (common.isEmpty())
        return false;
    PortRow row{columns(_output, y, common), columns(input, y, common), {}};
    if (objectId == 0) {
        cutOut(row);
        return true;
    }
    row.result = columns(*result, y, common);
    if (isEmpty)
        clearAround(y, common, !_generateNormals);
    const VolumeRowKernels::Blue blue{_depthInBlue, static_cast<std::int16_t>(objectId)};
    if (!_generateNormals)
        raise(row, objectId);
    else if (isEmpty)
        VolumeRowKernels::placeNormals(row.input, row.result.data(), blue, row.output.data(), _stores);
    else
        VolumeRowKernels::blendNormals(row.input, row.result.data(), blue, row.output.data());
    return true;
}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::clearAround(int y, const Math::Box2di& kept, bool keptToo) const
{
    const std::span<Pixel> row = _output.row(y);
    const auto first = static_cast<std::size_t>(keptToo ? _x2 - _x1 : kept.x1 - _x1);
    const auto end = static_cast<std::size_t>(kept.x2 - _x1);
    VolumeRowKernels::fillPixels(row.first(first), Pixel{}, _stores);
    VolumeRowKernels::fillPixels(row.subspan(std::max(first, end)), Pixel{}, _stores);
}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::cutOut(const PortRow& row) const
{
    using Traits = VolumeTraits<Pixel>;
    for (std::size_t i = 0; i < row.output.size(); ++i)
        if (row.input[i].a > 0)
            row.output[i] = {0, 0, 0, Traits::cutAlpha(row.output[i].a, Traits::coverageOf(row.input[i].a))};
}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::raise(const PortRow& row, int objectId) const
{
    const auto range = _handler.elevationRanges.find(objectId);
    if (range == _handler.elevationRanges.end())
        return;
    const auto [offset, scale] = range->second;
    for (std::size_t i = 0; i < row.output.size(); ++i) {
        if (!(row.input[i].a > 0))
            continue;
        const auto value = VolumeTraits<Pixel>::normalised(row.result[i].r, offset, scale);
        if (value > row.output[i].r)
            row.output[i] = {value, value, value, value};
    }
}

template class VallorinRenderHandler::BasicAccumFunctor<CEL_PixelRGBA16>;
template class VallorinRenderHandler::BasicAccumFunctor<CEL_PixelRGBAFloat>;

namespace {

template<typename Functor>
void runInParallel(const Functor& functor, const Math::Box2di& rect)
{
    constexpr int kGrain = 100;
    if (rect.y1 >= rect.y2)
        return;
    tbb::task_group_context context;
    tbb::parallel_for(tbb::blocked_range<int>(rect.y1, rect.y2, kGrain), functor, tbb::auto_partitioner(), context);
}

} // namespace

void composeOutput(const VallorinRenderHandler& handler, CEL_PixmapArea& output,
                   const VallorinRenderHandler::PixmapMap& inputs, const VallorinRenderHandler::PixmapMap& results)
{
    using AccumFunctor = VallorinRenderHandler::AccumFunctor;
    using AccumFunctorFloat = VallorinRenderHandler::AccumFunctorFloat;
    if (auto* const output16 = dynamic_cast<CEL_PixmapAreaRGBA16*>(&output))
        runInParallel(AccumFunctor(handler, *output16, inputs, results), output.allocatedRect());
    else if (auto* const outputFloat = dynamic_cast<CEL_PixmapAreaRGBAFloat*>(&output))
        runInParallel(AccumFunctorFloat(handler, *outputFloat, inputs, results), output.allocatedRect());
}
