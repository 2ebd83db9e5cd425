// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_AnimatableAttr: what numeric attributes have in common: limits, a local value, and a curve that replaces it when
// the attribute is animated.
//
//     <BlurScale val="1">
//       <curve>...</curve>
//     </BlurScale>
//
// At a frame the value is the surrogate's; without one the curve's; without that the local value; clamped to the
// limits.
#pragma once

#include "QuarvelSceneCore/attributes/AT_Curve.h"
#include "QuarvelSceneCore/attributes/AT_SimpleAttr.h"

/// A number that can change over time.
class QUARVELSCENECORE_EXPORT AT_AnimatableAttr : public AT_SimpleAttr
{
public:
    /// Whether a surrogate may drive the attribute.
    enum Linkable
    {
        NOT_LINKABLE = 0,
        LINKABLE = 1
    };

    /// Everything that the attribute stores itself.
    struct State
    {
        double local;   ///< the local value
        AT_Curve curve; ///< the animation; empty when there is none

        friend bool operator==(const State&, const State&) = default;
    };

    ~AT_AnimatableAttr() override;

    /// The limits, both included.
    double lower() const { return _lower; }
    double upper() const { return _upper; }

    bool isAnimated() const { return !_state.curve.isEmpty(); }
    const AT_Curve& curve() const { return _state.curve; }
    /// Gives the attribute a curve; an empty one ends the animation.
    ///
    /// @return whether anything changed
    bool setCurve(const AT_Curve& curve);

    const State& state() const { return _state; }
    /// The state in which the value at a frame is this number, clamped to the limits: with a key there when the
    /// attribute is animated, with another local value otherwise. For NaN and infinite numbers, the present state.
    State stateWith(double frame, double value) const;
    /// Sets the local value, which must be within the limits, and the curve as one change.
    ///
    /// @return whether anything changed
    bool setState(const State& state);

    bool isLinkable() const override;
    bool equals(const AT_Attr& other) const override;
    /// Copies local value and curve, not the surrogate.
    CO_Command* createCopyCmd(const AT_Attr& other) override;
    std::optional<double> scalarValue(double frame) const override;
    bool parseXml(const QDomElement& element, QStringList* warnings) override;
    void writeXmlSubnodes(PO_XmlWriter& writer) const override;

protected:
    AT_AnimatableAttr(const AT_AttrMeta& meta, AT_Attr* parent, Linkable linkable, double defaultValue, double lower,
                      double upper);

    double localNumber() const { return _state.local; }
    bool setLocalNumber(double value);
    double number(double frame) const;
    CO_Command* setNumberCmd(double frame, double value);
    double held(double value) const;

    Parsed parseXmlSubnode(const QDomElement& element, QStringList* warnings) override;

private:
    CO_Command* changeCmd(const State& after, const QString& subject);

    Linkable _linkable;
    double _lower;
    double _upper;
    State _state;
};
