// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/JoinRules.h"

#include <algorithm>

namespace {

constexpr double kInked = 0.5; // share of the contact
constexpr double kNotched =
    0.7; // a contact shorter than this part of the narrower piece's width has notches at its ends
constexpr double kLongSeam = 0.32; // of the shorter outline
constexpr double kLine = 6.0;      // elongation
constexpr double kHalfCovered = 0.3;

bool isAbutting(const ShapeFacts& shape, const ShapeFacts& piece, const Meeting& meeting)
{
    return meeting.overlap < kAbutting * std::min(shape.area, piece.area);
}

// A line along the border of a fill in the fill's own paint: drawing programs add such lines to close gaps.
bool isOwnStroke(const ShapeFacts& shape, const ShapeFacts& piece, const Meeting& meeting)
{
    return shape.plain && shape.paint == piece.paint && shape.elongation() > kLine &&
           meeting.overlap > kHalfCovered * shape.area && meeting.contact > kHalfCovered * shape.outline;
}

} // namespace

QString joins(const ShapeFacts& shape, const ShapeFacts& piece, const Meeting& meeting)
{
    if (meeting.contact < 3)
        return {};
    if (isOwnStroke(shape, piece, meeting))
        return QStringLiteral("its own outline");
    if (meeting.inked > kInked * meeting.contact)
        return {};
    if (shape.plain && piece.plain && shape.paint == piece.paint) {
        const double narrower = 2.0 * std::min(shape.inscribed, piece.inscribed);
        return meeting.contact >= kNotched * narrower ? QStringLiteral("of one colour") : QString();
    }
    const bool longSeam = meeting.contact >= kLongSeam * std::min(shape.outline, piece.outline);
    if (!longSeam || !isAbutting(shape, piece, meeting))
        return {};
    return isSameHue(shape.colour, piece.colour) ? QStringLiteral("a shade beside it")
                                                 : QStringLiteral("a colour beside it");
}

QString joinsPart(const ShapeFacts& shape, const Part& part, const std::vector<ShapeFacts>& facts,
                  const Meeting& meeting)
{
    if (part.role != ObjectRole::BODY)
        return {};
    for (const int index : part.body) {
        const ShapeFacts& piece = facts[static_cast<std::size_t>(index)];
        const QRect near = piece.mask.box().adjusted(-2, -2, 2, 2);
        QString reason = near.intersects(shape.mask.box()) ? joins(shape, piece, meeting) : QString();
        if (!reason.isEmpty())
            return reason;
    }
    return {};
}
