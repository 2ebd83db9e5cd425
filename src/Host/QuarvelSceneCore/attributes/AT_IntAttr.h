// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_IntAttr: an attribute that is an integer, animatable and optionally linkable. Between the keys of a curve its
// value is rounded to the nearest integer (halves away from zero).
#pragma once

#include "QuarvelSceneCore/attributes/AT_AnimatableAttr.h"

#include <limits>

/// An integer within limits.
class QUARVELSCENECORE_EXPORT AT_IntAttr : public AT_AnimatableAttr
{
public:
    AT_IntAttr(const AT_AttrMeta& meta, AT_Attr* parent, Linkable linkable, int defaultValue,
               int lower = std::numeric_limits<int>::min(), int upper = std::numeric_limits<int>::max());
    ~AT_IntAttr() override;

    int localValue() const { return toInt(localNumber()); }
    /// Sets the local value, clamped to the limits.
    ///
    /// @return whether the local value changed; listeners are notified only then
    bool setLocalValue(int value);
    /// The value at a frame: the surrogate's, the curve's or the local one, rounded, clamped to the limits.
    int value(double frame) const { return toInt(number(frame)); }
    /// The command that makes this the value at the frame: it sets the key there when the attribute is animated, and
    /// the local value otherwise. Consecutive commands for the same attribute and key merge.
    ///
    /// @return owned by the caller; null when nothing would change
    CO_Command* setValueCmd(double frame, int value);

    void accept(AT_AttrVisitor& visitor) override;
    QString displayText(double frame) const override;
    /// Accepts a decimal integer within the limits.
    bool parseText(const QString& text, bool apply) override;
    /// The rounded value.
    std::optional<double> scalarValue(double frame) const override;

protected:
    QString localValueXml() const override;
    bool parseLocalValueXml(const QString& text, QStringList* warnings) override;

private:
    static int toInt(double value);
};
