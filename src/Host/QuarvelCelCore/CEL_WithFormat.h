// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds a pixmap's format once, for algorithms that are written once for both colour formats.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <cstdint>
#include <type_traits>

/// The pixel of a colour pixmap's class: CEL_PixelOf<decltype(pixmap)>.
template<typename Pixmap>
using CEL_PixelOf = typename std::remove_cvref_t<Pixmap>::PixelType;

/// The pixmap as one of this pixel type; null when it has another format.
template<typename Pixel>
CEL_PixmapOf<Pixel>* CEL_asFormat(CEL_PixmapArea& pixmap)
{
    return dynamic_cast<CEL_PixmapOf<Pixel>*>(&pixmap);
}
template<typename Pixel>
const CEL_PixmapOf<Pixel>* CEL_asFormat(const CEL_PixmapArea& pixmap)
{
    return dynamic_cast<const CEL_PixmapOf<Pixel>*>(&pixmap);
}

/// The memory of a pixel of one of the two colour formats.
constexpr std::int64_t CEL_bytesPerPixel(CEL_Format format)
{
    return format == CEL_FORMAT_RGBAFLOAT ? sizeof(CEL_PixelRGBAFloat) : sizeof(CEL_PixelRGBA16);
}

/// Calls visit(typed) with a colour pixmap as its own class, CEL_PixmapAreaRGBA16 or CEL_PixmapAreaRGBAFloat; constness
/// is kept.
///
/// @return whether it is one of the two; visit is not called for any other
template<typename Area, typename Visit>
bool CEL_withFormat(Area& pixmap, const Visit& visit)
{
    if (auto* const pixmap16 = CEL_asFormat<CEL_PixelRGBA16>(pixmap)) {
        visit(*pixmap16);
        return true;
    }
    if (auto* const pixmapFloat = CEL_asFormat<CEL_PixelRGBAFloat>(pixmap)) {
        visit(*pixmapFloat);
        return true;
    }
    return false;
}
