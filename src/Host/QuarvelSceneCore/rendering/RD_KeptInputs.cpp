// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// There are about as many inputs as objects in a drawing, for two or three sizes of the picture, so they are searched
// one by one.
#include "QuarvelSceneCore/rendering/RD_KeptInputs.h"

#include "QuarvelCelCore/CEL_WithFormat.h"

#include <algorithm>

namespace {

std::int64_t bytesOf(const CEL_PixmapArea& pixels)
{
    return pixels.allocatedRect().area() * CEL_bytesPerPixel(pixels.format());
}

bool isSamePlace(const CELVEC_RenderArgs& one, const CELVEC_RenderArgs& other)
{
    return one.drawingToPixel == other.drawingToPixel && one.size == other.size && one.canvas == other.canvas;
}

} // namespace

void RD_KeptInputs::clear()
{
    _inputs.clear();
    _bytes = 0;
}

bool RD_KeptInputs::isUsable(const Input& input, const CELVEC_RenderArgs& args)
{
    if (!isSamePlace(input.args, args))
        return false;
    if (input.args.wanted == args.wanted)
        return true;
    const Math::Box2di painted = input.pixels->pixmap()->allocatedRect();
    return !painted.isEmpty() && input.args.wanted.contains(painted.getEnlarged(1)) &&
           args.wanted.contains(painted.getEnlarged(1));
}

CA_CelRef RD_KeptInputs::pixelsOf(const CA_CelRef& cel, int place, int format)
{
    if (!cel || cel->pixmap() || !cel->renderArgs())
        return cel;
    const CELVEC_RenderArgs& args = *cel->renderArgs();
    const auto known = std::ranges::find_if(_inputs, [&](const Input& input) {
        return input.place == place && input.format == format && isUsable(input, args);
    });
    if (known != _inputs.end()) {
        ++_found;
        known->lastUse = _render;
        return known->pixels;
    }
    ++_painted;
    CA_CelRef pixels = cel->convertTo(format);
    if (const auto pixmap = pixels->pixmap()) {
        // The drawing may change before the next render asks for them.
        pixmap->makePixels();
        keep({place, format, args, pixels, bytesOf(*pixmap), _render});
    }
    return pixels;
}

// The same input in another rectangle is of no use any more.
void RD_KeptInputs::keep(Input input)
{
    const auto isOlder = [&](const Input& other) {
        return other.place == input.place && other.format == input.format && isSamePlace(other.args, input.args);
    };
    const auto older = std::ranges::find_if(_inputs, isOlder);
    if (older != _inputs.end()) {
        _bytes -= older->bytes;
        _inputs.erase(older);
    }
    makeRoom(input.bytes);
    if (_bytes + input.bytes > _most)
        return;
    _bytes += input.bytes;
    _inputs.push_back(std::move(input));
}

// What this render used stays: if it were dropped for the inputs after it, the next render would find none of them.
void RD_KeptInputs::makeRoom(std::int64_t needed)
{
    while (_bytes + needed > _most) {
        const auto oldest = std::ranges::min_element(_inputs, {}, &Input::lastUse);
        if (oldest == _inputs.end() || oldest->lastUse == _render)
            return;
        _bytes -= oldest->bytes;
        _inputs.erase(oldest);
    }
}
