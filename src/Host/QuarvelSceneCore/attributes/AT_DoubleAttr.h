// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_DoubleAttr: an attribute that is a number, animatable and optionally linkable.
#pragma once

#include "QuarvelSceneCore/attributes/AT_AnimatableAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttrMeta.h"

/// A number within the limits of its metadata.
class QUARVELSCENECORE_EXPORT AT_DoubleAttr : public AT_AnimatableAttr
{
public:
    /// @param unit what is shown after the number ("px"); may be empty
    AT_DoubleAttr(const AT_DoubleAttrMeta& meta, AT_Attr* parent, Linkable linkable, double defaultValue,
                  const QString& unit);
    ~AT_DoubleAttr() override;

    const AT_DoubleAttrMeta& doubleMeta() const { return _doubleMeta; }
    const QString& unit() const { return _unit; }

    double localValue() const { return localNumber(); }
    /// Sets the local value, clamped to the limits. NaN and infinite values are ignored.
    ///
    /// @return whether the local value changed; listeners are notified only then
    bool setLocalValue(double value);
    /// The value at a frame: the surrogate's, the curve's or the local one, clamped to the limits.
    double value(double frame) const { return number(frame); }
    /// The command that makes this the value at the frame: it sets the key there when the attribute is animated, and
    /// the local value otherwise. Consecutive commands for the same attribute and key merge.
    ///
    /// @return owned by the caller; null when nothing would change
    CO_Command* setValueCmd(double frame, double value);

    void accept(AT_AttrVisitor& visitor) override;
    /// The number and the unit.
    QString displayText(double frame) const override;
    /// Accepts a number within the limits, with or without the unit after it.
    bool parseText(const QString& text, bool apply) override;

protected:
    QString localValueXml() const override;
    bool parseLocalValueXml(const QString& text, QStringList* warnings) override;

private:
    const AT_DoubleAttrMeta& _doubleMeta;
    QString _unit;
};
