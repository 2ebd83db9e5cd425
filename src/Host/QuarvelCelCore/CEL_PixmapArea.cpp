// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes of a pixmap's rectangle that are the same for every format, and the destructors of the formats' classes.
#include "QuarvelCelCore/CEL_PixmapArea.h"

CEL_Representation::~CEL_Representation() = default;

CEL_PixmapArea::~CEL_PixmapArea() = default;

void CEL_PixmapArea::reallocToFit(const CEL_PixmapArea& other)
{
    Math::Box2di rect = _allocated;
    rect.add(other._allocated);
    realloc(rect, true);
}

Math::Box2di CEL_PixmapArea::unitedInCanvas(const CEL_PixmapArea& other) const
{
    Math::Box2di rect = _allocated;
    rect.add(other._allocated);
    const Math::Box2di clipped = rect.getIntersection(_canvas);
    return clipped.isEmpty() ? Math::Box2di() : clipped;
}

void CEL_PixmapArea::reallocToFitAndClipToCanvas(const CEL_PixmapArea& other, bool clear)
{
    realloc(unitedInCanvas(other), clear);
}

void CEL_PixmapArea::clipToCanvas()
{
    const Math::Box2di clipped = _allocated.getIntersection(_canvas);
    realloc(clipped.isEmpty() ? Math::Box2di() : clipped, true);
}

CEL_PixmapAreaRGBA16::CEL_PixmapAreaRGBA16(const Math::Size2di& size, const Math::Box2di& canvas)
    : CEL_PixelStore(size, canvas)
{}

CEL_PixmapAreaRGBA16::~CEL_PixmapAreaRGBA16() = default;

UT_SharedPtr<CEL_PixmapArea> CEL_PixmapAreaRGBA16::clone() const
{
    return UT_SharedPtr<CEL_PixmapArea>(new CEL_PixmapAreaRGBA16(*this));
}

CEL_PixmapAreaRGBAFloat::CEL_PixmapAreaRGBAFloat(const Math::Size2di& size, const Math::Box2di& canvas)
    : CEL_PixelStore(size, canvas)
{}

CEL_PixmapAreaRGBAFloat::~CEL_PixmapAreaRGBAFloat() = default;

UT_SharedPtr<CEL_PixmapArea> CEL_PixmapAreaRGBAFloat::clone() const
{
    return UT_SharedPtr<CEL_PixmapArea>(new CEL_PixmapAreaRGBAFloat(*this));
}

CEL_PixmapAreaZ::CEL_PixmapAreaZ(const Math::Size2di& size, const Math::Box2di& canvas) : CEL_PixelStore(size, canvas)
{}

CEL_PixmapAreaZ::~CEL_PixmapAreaZ() = default;

UT_SharedPtr<CEL_PixmapArea> CEL_PixmapAreaZ::clone() const
{
    return UT_SharedPtr<CEL_PixmapArea>(new CEL_PixmapAreaZ(*this));
}
