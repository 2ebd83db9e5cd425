// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the tests of rendering requests share: small drawings, their place in a picture, and printing of pixels.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelCelCore/CEL_Cel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

template<typename Channel>
void PrintTo(const CEL_PixelRGBA<Channel>& pixel, std::ostream* stream)
{
    *stream << '(' << pixel.r << ", " << pixel.g << ", " << pixel.b << ", " << pixel.a << ')';
}

namespace CelTesting {

inline const CM_ColorId_t kListed(0xA1);
inline const CM_ColorId_t kUnlisted(0xB2);

/// A palette of the two colours, both opaque red.
inline CM_SharedPtr<CM_Palette> palette()
{
    const auto colours = UT_makeShared<CM_Palette>(UT_String("Palette"));
    for (const CM_ColorId_t& id : {kListed, kUnlisted}) {
        const auto colour = UT_makeShared<CM_Color>(UT_String("Red"), CM_Color::NORMAL_COLOR, id);
        colour->SetNominalColor({255, 0, 0, 255});
        colours->addColor(colour);
    }
    return colours;
}

/// A rectangle of one colour, in pixels.
inline CELVEC_Shape rectangle(const CM_ColorId_t& colour, double x1, double y1, double x2, double y2)
{
    CELVEC_Shape shape;
    shape.path.addRect(x1, y1, x2 - x1, y2 - y1);
    shape.color = colour;
    return shape;
}

/// A picture of one row: the listed colour on the pixels 0 and 1, the other one on pixel 2, nothing on pixel 3.
inline UT_SharedPtr<CELVEC_Kvd> rowDrawing()
{
    auto drawing = UT_makeShared<CELVEC_Kvd>(palette());
    drawing->addShape(GR_Art::COLOUR, rectangle(kListed, 0, 0, 2, 1));
    drawing->addShape(GR_Art::COLOUR, rectangle(kUnlisted, 2, 0, 3, 1));
    return drawing;
}

/// A picture of a few pixels in one row, in which a drawing's unit is a pixel.
inline CELVEC_RenderArgs rowArgs(int width = 4)
{
    return {QTransform(), {width, 1}, Math::Box2di(0, 0, width, 1), Math::Box2di(0, 0, width, 1)};
}

/// The pixel of a cel that was converted to the pixel's format; zero where it is missing.
template<typename Pixel>
Pixel pixelAt(const CA_CelRef& cel, int x, int y = 0)
{
    const auto pixmap = cel->pixmap().template dynamicCast<CEL_PixmapOf<Pixel>>();
    if (!pixmap) {
        ADD_FAILURE() << "the cel is not in this format";
        return {};
    }
    const Pixel* const pixel = pixmap->find(x, y);
    return pixel ? *pixel : Pixel{};
}

/// A cel around a drawing, ready for conversion.
inline CA_CelRef celOf(const UT_SharedPtr<CELVEC_Kvd>& drawing, const CELVEC_RenderArgs& args)
{
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(drawing);
    cel->setRenderArgs(args);
    return cel;
}

} // namespace CelTesting
