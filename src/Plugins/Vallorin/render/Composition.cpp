// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A row is composed port by port. What is the same for the whole row is looked up once, and the pixels of the three
// pictures are read in step. The columns written so far form one span: columns outside it need not be cleared or read
// before an object is placed there. Where the output's memory is new, they are zeros already, and pages of them that
// are never written take no memory.
#include "render/Composition.h"

#include "QuarvelBaseCore/UT_PixelZeros.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "render/ColumnSpan.h"
#include "render/CompositionKernels.h"
#include "render/ParallelRows.h"
#include "render/PixelTraits.h"

#include <functional>

namespace {

// @param zeros the address from which on all that has not been written is zero; null: none is
template<typename Pixel>
bool areZeros(std::span<Pixel> unwritten, const void* zeros)
{
    return zeros && std::greater_equal<const void*>()(unwritten.data(), zeros);
}

// The address from which on a pixmap's new memory holds zeros; null where none of it does.
const void* zerosOf(CEL_PixmapArea& pixmap)
{
    const void* zeros = nullptr;
    CEL_withFormat(pixmap, [&](auto& typed) {
        using Pixel = CEL_PixelOf<decltype(typed)>;
        const Math::Box2di& rect = typed.allocatedRect();
        const auto bytes = static_cast<std::size_t>(rect.area()) * sizeof(Pixel);
        const auto* const start = reinterpret_cast<const std::byte*>(typed.row(rect.y1).data());
        const std::size_t from = UT_PixelMemory::zerosFrom(start, bytes);
        zeros = from < bytes ? start + from : nullptr;
    });
    return zeros;
}

} // namespace

// What one port adds to a row: columns of the output, counted from its left, with the input's pixels there.
template<typename Pixel>
struct VallorinRenderHandler::BasicAccumFunctor<Pixel>::PortRow
{
    int objectId;
    ColumnSpan columns;
    std::span<const Pixel> input;
    std::span<const Pixel> result; // empty for a cut-out
};

// A row of the output, of which some columns have been written; the others are uninitialised.
template<typename Pixel>
class VallorinRenderHandler::BasicAccumFunctor<Pixel>::WrittenColumns
{
public:
    WrittenColumns(std::span<Pixel> row, const ColumnSpan& columns, VolumeRowKernels::Stores stores, const void* zeros)
        : _row(row), _columns(columns), _stores(stores), _zeros(zeros)
    {}

    VolumeRowKernels::Stores stores() const { return _stores; }
    const ColumnSpan& columns() const { return _columns; }

    std::span<Pixel> pixels(const ColumnSpan& columns) const
    {
        return _row.subspan(static_cast<std::size_t>(columns.first), static_cast<std::size_t>(columns.width()));
    }

    // Adds columns that the caller is about to overwrite and that have not been written. Clears the gap between them
    // and the written ones.
    void place(const ColumnSpan& columns)
    {
        if (!_columns.isEmpty() && columns.first > _columns.end)
            clear({_columns.end, columns.first});
        if (!_columns.isEmpty() && columns.end < _columns.first)
            clear({columns.end, _columns.first});
        _columns = _columns.unitedWith(columns);
    }

    // Makes columns readable: clears those that have not been written.
    void open(const ColumnSpan& columns)
    {
        if (_columns.isEmpty())
            _columns = {columns.first, columns.first};
        const ColumnSpan all = _columns.unitedWith(columns);
        clear({all.first, _columns.first});
        clear({_columns.end, all.end});
        _columns = all;
    }

private:
    void clear(const ColumnSpan& columns) const
    {
        if (!columns.isEmpty() && !areZeros(pixels(columns), _zeros))
            VolumeRowKernels::fillPixels(pixels(columns), Pixel{}, _stores);
    }

    std::span<Pixel> _row;
    ColumnSpan _columns;
    VolumeRowKernels::Stores _stores;
    const void* _zeros;
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

// Clears the columns of a row that have not been written.
template<typename Pixel>
void clearAround(const ColumnSpan& written, const ColumnSpan& columns, std::span<Pixel> row,
                 VolumeRowKernels::Stores stores)
{
    const int first = written.isEmpty() ? columns.end : written.first;
    const int end = written.isEmpty() ? columns.end : written.end;
    const auto clear = [&](int from, int to) {
        VolumeRowKernels::fillPixels(
            row.subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(std::max(0, to - from))), Pixel{},
            stores);
    };
    clear(columns.first, first);
    clear(end, columns.end);
}

template<typename Pixel>
std::span<const Pixel> pixelsOf(const CEL_PixmapOf<Pixel>& pixmap, int y, int x1, int x2)
{
    return pixmap.row(y).subspan(static_cast<std::size_t>(x1 - pixmap.allocatedRect().x1),
                                 static_cast<std::size_t>(x2 - x1));
}

} // namespace

template<typename Pixel>
VallorinRenderHandler::BasicAccumFunctor<Pixel>::BasicAccumFunctor(const VallorinRenderHandler& handler, Pixmap& output,
                                                                   const PixmapMap& inputs, const PixmapMap& results,
                                                                   std::span<ColumnSpan> written, const void* zeros)
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
    , _written(written)
    , _zeros(zeros)
{}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::operator()(const tbb::blocked_range<int>& rows) const
{
    std::vector<PortRow> ports;
    ports.reserve(_inputs.size());
    for (int y = rows.begin(); y < rows.end(); ++y) {
        findPorts(y, ports);
        ColumnSpan& columns = _written[static_cast<std::size_t>(y - _output.allocatedRect().y1)];
        columns = composeRow(y, ports, columns);
    }
    VL_finishStores();
}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::findPorts(int y, std::vector<PortRow>& ports) const
{
    ports.clear();
    for (const auto& [port, input] : _inputs) {
        const int objectId = (*_portIds)[static_cast<std::size_t>(port)];
        const auto found = _results.find(objectId);
        const Pixmap* const result = objectId > 0 && found != _results.end() ? found->second.get() : nullptr;
        if (!input || objectId < 0 || (objectId > 0 && !result))
            continue;
        Math::Box2di common = Math::Box2di(_x1, y, _x2, y + 1).getIntersection(input->allocatedRect());
        if (result)
            common = common.getIntersection(result->allocatedRect());
        if (!common.isEmpty())
            ports.push_back({objectId,
                             {common.x1 - _x1, common.x2 - _x1},
                             pixelsOf<Pixel>(*input, y, common.x1, common.x2),
                             result ? pixelsOf<Pixel>(*result, y, common.x1, common.x2) : std::span<const Pixel>()});
    }
}

// A row is written past the cache only if no other of these ports reads it again.
//
// @return the columns that have been written, with the given ones
template<typename Pixel>
ColumnSpan VallorinRenderHandler::BasicAccumFunctor<Pixel>::composeRow(int y, const std::vector<PortRow>& ports,
                                                                       const ColumnSpan& columns) const
{
    ColumnSpan all;
    bool isReadAgain = false;
    for (const PortRow& port : ports) {
        isReadAgain = isReadAgain || all.overlaps(port.columns);
        all = all.unitedWith(port.columns);
    }
    WrittenColumns written(_output.row(y), columns, isReadAgain ? VolumeRowKernels::Stores::CACHED : _stores, _zeros);
    for (const PortRow& port : ports)
        compose(port, written);
    return written.columns();
}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::compose(const PortRow& port, WrittenColumns& written) const
{
    if (port.objectId == 0) {
        cutOut(port, written);
    } else if (_generateNormals) {
        composeNormals(port, written);
    } else {
        written.open(port.columns);
        raise(port, written.pixels(port.columns));
    }
}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::composeNormals(const PortRow& port, WrittenColumns& written) const
{
    const VolumeRowKernels::Blue blue{_depthInBlue, static_cast<std::int16_t>(port.objectId)};
    Pixel* const output = written.pixels(port.columns).data();
    if (written.columns().overlaps(port.columns)) {
        written.open(port.columns);
        VolumeRowKernels::blendNormals(port.input, port.result.data(), blue, output);
    } else {
        written.place(port.columns);
        VolumeRowKernels::placeNormals(port.input, port.result.data(), blue, output, written.stores());
    }
}

// Columns that have not been written are empty, so cutting them out changes nothing.
template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::cutOut(const PortRow& port, const WrittenColumns& written) const
{
    using Traits = VolumeTraits<Pixel>;
    const ColumnSpan columns = port.columns.intersectedWith(written.columns());
    if (columns.isEmpty())
        return;
    const std::span<Pixel> output = written.pixels(columns);
    const auto input = port.input.subspan(static_cast<std::size_t>(columns.first - port.columns.first));
    for (std::size_t i = 0; i < output.size(); ++i)
        if (input[i].a > 0)
            output[i] = {0, 0, 0, Traits::cutAlpha(output[i].a, Traits::coverageOf(input[i].a))};
}

template<typename Pixel>
void VallorinRenderHandler::BasicAccumFunctor<Pixel>::raise(const PortRow& port, std::span<Pixel> output) const
{
    const auto range = _handler.elevationRanges.find(port.objectId);
    if (range == _handler.elevationRanges.end())
        return;
    const auto [offset, scale] = range->second;
    for (std::size_t i = 0; i < output.size(); ++i) {
        if (!(port.input[i].a > 0))
            continue;
        const auto value = VolumeTraits<Pixel>::normalised(port.result[i].r, offset, scale);
        if (value > output[i].r)
            output[i] = {value, value, value, value};
    }
}

template class VallorinRenderHandler::BasicAccumFunctor<CEL_PixelRGBA16>;
template class VallorinRenderHandler::BasicAccumFunctor<CEL_PixelRGBAFloat>;

PortComposition::PortComposition(const VallorinRenderHandler& handler, CEL_PixmapArea& output, const Math::Box2di& room,
                                 const std::optional<Math::Box2di>& shown)
    : _handler(handler), _output(output), _room(room), _shown(shown)
{}

Math::Box2di PortComposition::shownPartOf(const Math::Box2di& rect) const
{
    return _shown ? rect.getIntersection(*_shown) : rect;
}

void PortComposition::include(const Math::Box2di& rect)
{
    if (rect.isEmpty())
        return;
    _rect.add(rect);
    const Math::Box2di before = _output.allocatedRect();
    Math::Box2di whole = before.isEmpty() ? _room : before;
    whole.add(rect);
    const Math::Box2di needed = shownPartOf(whole);
    if (needed == before || needed.isEmpty())
        return;
    _output.realloc(needed, false);
    // Pixels that were copied from other memory may be uninitialised.
    _zeros = before.isEmpty() ? zerosOf(_output) : nullptr;
    std::vector<ColumnSpan> written(static_cast<std::size_t>(needed.height()));
    for (std::size_t i = 0; i < _written.size(); ++i)
        if (!_written[i].isEmpty())
            written[i + static_cast<std::size_t>(before.y1 - needed.y1)] = _written[i].movedBy(before.x1 - needed.x1);
    _written = std::move(written);
}

void PortComposition::add(int port, const UT_SharedPtr<CEL_PixmapArea>& input,
                          const UT_SharedPtr<CEL_PixmapArea>& result)
{
    const int objectId = _handler.portObjectIds[static_cast<std::size_t>(port)];
    if (!input || (objectId > 0 && !result))
        return;
    // Before the threads of the loop below wait for each other.
    input->makePixels();
    VallorinRenderHandler::PixmapMap results;
    if (result)
        results[objectId] = result;
    CEL_withFormat(_output, [&](auto& typed) {
        using Functor = VallorinRenderHandler::BasicAccumFunctor<CEL_PixelOf<decltype(typed)>>;
        forRowsInParallel(typed.allocatedRect().getIntersection(input->allocatedRect()),
                          Functor(_handler, typed, {{port, input}}, results, _written, _zeros));
    });
}

void PortComposition::finish()
{
    _rect = shownPartOf(_rect);
    if (_rect.isEmpty()) {
        _output.realloc(_rect, false);
        return;
    }
    CEL_withFormat(_output, [&](auto& typed) {
        using Pixel = CEL_PixelOf<decltype(typed)>;
        const Math::Box2di whole = typed.allocatedRect();
        const auto stores = VolumeRowKernels::storesFor(whole.area() * static_cast<std::int64_t>(sizeof(Pixel)),
                                                        VolumeRowKernels::Reader::LATER);
        forRowsInParallel(_rect, [&](const tbb::blocked_range<int>& rows) {
            for (int y = rows.begin(); y < rows.end(); ++y)
                if (!areZeros(typed.row(y), _zeros))
                    clearAround<Pixel>(_written[static_cast<std::size_t>(y - whole.y1)],
                                       {_rect.x1 - whole.x1, _rect.x2 - whole.x1}, typed.row(y), stores);
            VL_finishStores();
        });
    });
    _output.realloc(_rect, false);
}
