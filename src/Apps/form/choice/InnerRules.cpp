// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The first rule that applies decides. The limits were fitted on drawings with known forms and on sets of emoji.
#include "form/choice/InnerRules.h"

#include "form/choice/Faces.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSmallest = 0.0004;       // of the picture
constexpr double kFollowing = 0.25;        // of the outline
constexpr double kFollowingOfBodies = 0.4; // of the outline, for compact shapes of another hue
constexpr double kOffTheRim = 0.05;        // of the outline
constexpr double kThin = 0.2;              // of the body's width
constexpr double kLongLine = 4.0;          // elongation of lines
constexpr double kRound = 0.8;             // roundness of balls
constexpr double kRoundShade = 0.7;        // roundness of shapes that stand out in another shade
constexpr double kEllipse = 0.62;          // roundness of shapes that may be eyes
constexpr double kHalfOfBase = 0.5;
constexpr double kShade = 5.0;         // difference in lightness that is visible as shading
constexpr double kAnotherShade = 33.0; // difference in lightness too large for shading on one body
constexpr double kDark = 42.0;         // the lightness of holes
constexpr double kInkDark = 15.0;      // the lightness of black ink
constexpr double kMuchDarker = 22.0;   // than the shape's ground
constexpr double kBead = 0.034;        // of the body's area: larger dark shapes are holes
constexpr double kPupil = 0.15;        // of a round body's area: larger dark shapes are pupils
constexpr double kLargestDial = 0.8;   // of the body's area
constexpr double kBright = 85.0;       // lightness of highlights
constexpr double kFullBox = 0.9;       // a rectangle's share of its box
// The colour of glass in the sky's light: its lightness, and the limits of its b and a.
constexpr double kPale = 60.0;
constexpr double kBlue = -7.0;
constexpr double kNotPurple = 3.0;

Verdict mark(const char* reason)
{
    return {Verdict::Kind::MARK, QString::fromLatin1(reason), ObjectRole::BODY, -1};
}

Verdict object(const char* reason, ObjectRole role = ObjectRole::BODY)
{
    return {Verdict::Kind::OBJECT, QString::fromLatin1(reason), role, -1};
}

bool isSmall(const InnerShape& inner)
{
    return inner.shape.area < kSmallest * inner.gridArea || inner.shape.width < 2.0;
}

bool isThin(const InnerShape& inner)
{
    return inner.shape.elongation() > kLongLine && inner.shape.width < std::max(3.0, kThin * inner.body.width);
}

bool isMuchDarker(const InnerShape& inner)
{
    return inner.shape.colour.lightness < kDark &&
           inner.ground.colour.lightness - inner.shape.colour.lightness > kMuchDarker;
}

bool isRectangle(const ShapeFacts& shape)
{
    const QRect box = shape.mask.box();
    return shape.area > kFullBox * box.width() * box.height();
}

// Whether the shape is the round white mouth of a round face: alone of its colour, below the middle. Eyes have
// siblings, teeth lie on a dark mouth. (Dark mouths are holes like others.)
bool isWhiteMouth(const InnerShape& inner)
{
    return inner.shape.colour.lightness > kBright && inner.shape.roundness > kRound && inner.siblings == 0 &&
           inner.ground.colour.lightness > kDark && isPlacedAsMouth(inner.shape, inner.body);
}

// Whether the shape is one of several panes of glass: pale blue, and not round.
bool isPane(const InnerShape& inner)
{
    const SeenColour& colour = inner.shape.colour;
    return inner.siblings > 0 && colour.lightness > kPale && colour.b < kBlue && colour.a < kNotPurple &&
           inner.shape.roundness < kRound && inner.shape.elongation() < kLongLine;
}

Verdict judgeConcentric(const InnerShape& inner)
{
    // Many drawings draw outlines as a black shape beneath the coloured one.
    if (inner.ground.colour.lightness < kInkDark)
        return mark("the colour inside its outline");
    const bool dial = inner.shape.colour.lightness > inner.ground.colour.lightness + kShade &&
                      inner.body.roundness > kRound && inner.share < kLargestDial;
    return dial ? object("a dial in its rim", ObjectRole::FLAT) : mark("a smaller copy of what it lies on");
}

Verdict judgeDark(const InnerShape& inner)
{
    if (inner.siblings > 1)
        return mark("one of several dark spots");
    if (inner.share > kPupil && inner.body.roundness > kRound)
        return mark("a pupil");
    return inner.share > kBead ? object("a dark hole", ObjectRole::OPENING) : object("a dark bead");
}

Verdict judgeShade(const InnerShape& inner)
{
    const ShapeFacts& shape = inner.shape;
    const bool darker = shape.colour.lightness < inner.ground.colour.lightness - kShade;
    const bool free = inner.follows < kOffTheRim && inner.share < kHalfOfBase;
    if (free && darker && isRectangle(shape) && inner.siblings > 0)
        return object("one of several panels", ObjectRole::OPENING);
    if (free && isPane(inner))
        return object("one of several windows", ObjectRole::OPENING);
    if (free && isMuchDarker(inner) && shape.roundness > kEllipse)
        return judgeDark(inner);
    if (free && shape.roundness > kRound && darker && inner.siblings > 1)
        return object("one of several dents", ObjectRole::OPENING);
    if (free && shape.roundness > kRoundShade && (darker || inner.share > kBead))
        return object("a round shape of another shade");
    return mark("a shade of what it lies on");
}

Verdict judgeOtherHue(const InnerShape& inner)
{
    const ShapeFacts& shape = inner.shape;
    const bool free = inner.follows < kOffTheRim && inner.share < kHalfOfBase;
    if (free && ((isRectangle(shape) && inner.siblings > 0) || isPane(inner)))
        return object("one of several windows", ObjectRole::OPENING);
    if (free && isWhiteMouth(inner))
        return object("a mouth", ObjectRole::OPENING);
    if (free && isMuchDarker(inner) && shape.roundness > kEllipse)
        return judgeDark(inner);
    const bool shine = shape.colour.lightness > kBright && shape.colour.lightness > inner.ground.colour.lightness;
    if (shine && inner.held == 0.0 && (shape.roundness < kEllipse || inner.siblings > 1))
        return mark("a bright mark");
    if (inner.onBoard && isRectangle(shape))
        return object("a plate on a board", ObjectRole::SLAB);
    if (shape.roundness > 0.4 && shape.elongation() < 8.0)
        return object("a compact shape of another hue");
    return mark("a long shape of another hue");
}

// An area of a line drawing inside a larger one: all have the paper's colour, so form and place decide.
Verdict judgeClosedArea(const InnerShape& inner)
{
    const ShapeFacts& shape = inner.shape;
    if (isSmall(inner))
        return mark("a small mark");
    if (inner.concentric)
        return mark("a smaller copy of what it lies on");
    if (inner.follows > kFollowing)
        return mark("a pattern: it follows the outline of what it lies on");
    if (isThin(inner))
        return mark("a thin mark");
    if (isRectangle(shape) && inner.siblings > 0)
        return object("one of several windows", ObjectRole::OPENING);
    return shape.roundness > 0.4 && shape.elongation() < 8.0 ? object("a compact area inside lines")
                                                             : mark("a long area inside lines");
}

} // namespace

Verdict judgeInner(const InnerShape& inner)
{
    const ShapeFacts& shape = inner.shape;
    if (shape.closedArea)
        return judgeClosedArea(inner);
    if (shape.opacity < kSolid)
        return mark("a shadow or a shine");
    if (isSmall(inner))
        return mark("a small mark");
    if (shape.plain && shape.paint == inner.ground.paint)
        return mark("of the same colour as what it lies on");
    if (inner.onBoard && inner.follows > kOffTheRim)
        return mark("printed on a board: it reaches the edge");
    if (inner.isFace)
        return object("a face: it has eyes");
    if (inner.held > 0.1 && isMuchDarker(inner) && inner.share > kBead)
        return object("a dark shape that holds others", ObjectRole::OPENING);
    if (inner.isOpenMouth && isMuchDarker(inner))
        return object("an open mouth", ObjectRole::OPENING);
    if (inner.concentric)
        return judgeConcentric(inner);
    const bool stands = !inner.onBoard && shape.roundness > kEllipse && !isSameHue(shape.colour, inner.ground.colour);
    if (inner.follows > (stands ? kFollowingOfBodies : kFollowing))
        return mark("a pattern: it follows the outline of what it lies on");
    if (inner.isBand)
        return mark("a band across a round body");
    if (isThin(inner))
        return mark("a thin mark");
    if (shape.plain && shape.paint == inner.body.paint && inner.outlined > 0.6)
        return object("a part drawn again in its colour");
    const double contrast = std::abs(shape.colour.lightness - inner.ground.colour.lightness);
    const bool shade = isSameHue(shape.colour, inner.ground.colour) && contrast < kAnotherShade;
    return shade ? judgeShade(inner) : judgeOtherHue(inner);
}
