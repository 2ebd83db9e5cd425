// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One number per pixel, in a rectangle that grows with what is painted.
#include "jobs/shown/ObjectPlane.h"

#include "QuarvelCelCore/CEL_WithFormat.h"

#include <algorithm>

void ObjectPlane::paint(const CEL_PixmapArea& shape, const QString& node, int number)
{
    if (number < 0 || shape.allocatedRect().isEmpty())
        return;
    const std::uint32_t index = number > 0 ? indexOf(node, number) : 0;
    CEL_withFormat(shape, [&](const auto& pixels) { take(pixels, index); });
}

void ObjectPlane::setRises(const QString& node, const std::map<int, double>& rises, double factor)
{
    for (PlaneObject& object : _objects)
        if (object.node == node) {
            const auto found = rises.find(object.number);
            object.rise = found == rises.end() ? 0.0 : found->second * factor;
        }
}

void ObjectPlane::indicesOfRow(int y, int x, std::span<std::uint32_t> indices) const
{
    writeRow(y, x, indices, [](std::uint32_t index) { return index; });
}

void ObjectPlane::numbersOfRow(int y, int x, std::span<float> numbers) const
{
    writeRow(y, x, numbers, [&](std::uint32_t index) { return static_cast<float>(_objects[index - 1].number); });
}

void ObjectPlane::risesOfRow(int y, int x, std::span<float> rises) const
{
    writeRow(y, x, rises, [&](std::uint32_t index) { return static_cast<float>(_objects[index - 1].rise); });
}

template<typename Pixel>
void ObjectPlane::take(const CEL_PixelStore<Pixel>& pixels, std::uint32_t index)
{
    const Math::Box2di& rect = pixels.allocatedRect();
    growTo(rect);
    for (int y = rect.y1; y < rect.y2; ++y) {
        const std::span<std::uint32_t> target = row(y).subspan(static_cast<std::size_t>(rect.x1 - _rect.x1));
        const auto source = pixels.row(y);
        for (std::size_t i = 0; i < source.size(); ++i) {
            const auto coverage = static_cast<double>(source[i].a);
            const bool isHalf = coverage * 2.0 >= static_cast<double>(CEL_PixelTraits<Pixel>::kFull);
            if (isHalf || (coverage > 0.0 && target[i] == 0))
                target[i] = index;
        }
    }
}

std::uint32_t ObjectPlane::indexOf(const QString& node, int number)
{
    auto found = std::ranges::find_if(
        _objects, [&](const PlaneObject& object) { return object.number == number && object.node == node; });
    if (found == _objects.end())
        found = _objects.insert(found, {node, number, 0.0});
    return static_cast<std::uint32_t>(found - _objects.begin()) + 1;
}

void ObjectPlane::growTo(const Math::Box2di& rect)
{
    Math::Box2di grown = _rect.isEmpty() ? rect : _rect;
    grown.add(rect);
    if (grown == _rect)
        return;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(grown.width()) *
                                      static_cast<std::size_t>(grown.height()));
    for (int y = _rect.y1; y < _rect.y2; ++y)
        std::ranges::copy(row(y), pixels.begin() + std::ptrdiff_t{y - grown.y1} * grown.width() + _rect.x1 - grown.x1);
    _rect = grown;
    _pixels = std::move(pixels);
}

std::span<std::uint32_t> ObjectPlane::row(int y)
{
    const auto width = static_cast<std::size_t>(_rect.width());
    return {_pixels.data() + static_cast<std::size_t>(y - _rect.y1) * width, width};
}

template<typename Value, typename ValueOf>
void ObjectPlane::writeRow(int y, int x, std::span<Value> values, const ValueOf& valueOf) const
{
    std::ranges::fill(values, Value{});
    if (_rect.isEmpty() || y < _rect.y1 || y >= _rect.y2)
        return;
    const int first = std::max(x, _rect.x1);
    const int end = std::min(x + static_cast<int>(values.size()), _rect.x2);
    const std::uint32_t* const pixels =
        _pixels.data() + static_cast<std::size_t>(y - _rect.y1) * static_cast<std::size_t>(_rect.width());
    for (int place = first; place < end; ++place)
        if (const std::uint32_t index = pixels[place - _rect.x1]; index > 0)
            values[static_cast<std::size_t>(place - x)] = valueOf(index);
}
