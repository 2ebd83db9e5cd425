// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Conversion between the two colour formats, row by row.
#include "QuarvelCelCore/CEL_PixmapConversion.h"

#include "QuarvelCelCore/CEL_WithFormat.h"

#include <utility>

namespace {

template<typename To, typename From>
typename CEL_PixelTraits<To>::Channel convertChannel(typename CEL_PixelTraits<From>::Channel value)
{
    constexpr double kScale =
        static_cast<double>(CEL_PixelTraits<To>::kFull) / static_cast<double>(CEL_PixelTraits<From>::kFull);
    return CEL_PixelTraits<To>::toChannel(static_cast<double>(value) * kScale);
}

template<typename To, typename From>
UT_SharedPtr<CEL_PixmapArea> convert(const CEL_PixmapOf<From>& from)
{
    auto to = UT_makeShared<CEL_PixmapOf<To>>(from.size(), from.canvasRect());
    to->realloc(from.allocatedRect(), false);
    for (int y = from.allocatedRect().y1; y < from.allocatedRect().y2; ++y) {
        const auto source = from.row(y);
        const auto target = to->row(y);
        for (std::size_t i = 0; i < source.size(); ++i)
            target[i] = {convertChannel<To, From>(source[i].r), convertChannel<To, From>(source[i].g),
                         convertChannel<To, From>(source[i].b), convertChannel<To, From>(source[i].a)};
    }
    return to;
}

} // namespace

UT_SharedPtr<CEL_PixmapArea> CEL_convertPixmap(const UT_SharedPtr<CEL_PixmapArea>& pixmap, int format)
{
    if (!pixmap || pixmap->format() == format)
        return pixmap;
    UT_SharedPtr<CEL_PixmapArea> converted;
    CEL_withFormat(std::as_const(*pixmap), [&](const auto& from) {
        using From = CEL_PixelOf<decltype(from)>;
        if (format == CEL_FORMAT_RGBA16)
            converted = convert<CEL_PixelRGBA16, From>(from);
        else if (format == CEL_FORMAT_RGBAFLOAT)
            converted = convert<CEL_PixelRGBAFloat, From>(from);
    });
    return converted;
}
