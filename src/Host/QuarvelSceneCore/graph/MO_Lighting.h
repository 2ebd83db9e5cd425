// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_Lighting: the lights of a scene, and what they have in common: the ambient light, which comes from everywhere, and
// how much surfaces gleam.
//
//     <lights>
//       <AmbientRed val="255"/>
//       ...
//       <light>...</light>
//     </lights>
//
// A scene whose lights are those of a new one has no such element, so what is older than lights stays as it is.
#pragma once

#include "QuarvelSceneCore/graph/MO_Light.h"

#include <memory>
#include <vector>

/// What the lights have in common, at one frame.
struct MO_LightingValues
{
    double ambientRed = 255.0; ///< encoded as sRGB, 0 to 255
    double ambientGreen = 255.0;
    double ambientBlue = 255.0;
    /// By which the linear amounts of the ambient colour are multiplied; 0 to 1. To begin with, what the first light of
    /// a new scene leaves of full light on a surface that faces the viewer: 1 - sin 45 degrees.
    double ambientIntensity = 0.29289321881345254;
    double highlight = 0.0; ///< the strength of highlights; 0 to 1

    friend bool operator==(const MO_LightingValues&, const MO_LightingValues&) = default;
};

/// Lights with what they have in common, as plain values.
struct MO_LightRig
{
    MO_LightingValues common = {};
    std::vector<MO_LightValues> lights{MO_LightValues{}};
};

/// The lights of a scene; there always is one at least. Tells its listeners after every change. See MO_Node.h for
/// threads.
class QUARVELSCENECORE_EXPORT MO_Lighting : public XUTeller, public PIO_XmlWritable, private XUListener
{
public:
    /// A scene has no more lights than these.
    static constexpr std::size_t kMaxLights = 16;

    using Lights = std::vector<std::shared_ptr<MO_Light>>;

    MO_Lighting();
    ~MO_Lighting() override;

    const Lights& lights() const { return _lights; }
    /// Puts other lights in place, those beyond kMaxLights left out.
    ///
    /// @return false, and nothing changes, when there is none
    bool setLights(const Lights& lights);
    /// What people call a light of this scene: its name, or "Light N", translated.
    QString titleOf(const MO_Light& light) const;

    /// The numbers that the lights have in common, which may be animated.
    enum Number
    {
        AMBIENT_RED,
        AMBIENT_GREEN,
        AMBIENT_BLUE,
        AMBIENT_INTENSITY,
        HIGHLIGHT,
        NUMBERS
    };
    AT_DoubleAttr& number(Number which) { return _numbers[which]; }
    const AT_DoubleAttr& number(Number which) const { return _numbers[which]; }
    std::array<AT_DoubleAttr, NUMBERS>& numbers() { return _numbers; }

    MO_LightingValues values(double frame) const;
    /// All of it at a frame.
    MO_LightRig rig(double frame) const;

    /// Whether everything is as in a new scene, so that nothing need be saved.
    bool isNew() const;

    /// Reads everything from its element; a null element gives the lights of a new scene. What is not understood is
    /// kept, with a warning.
    void readXml(const QDomElement& element, QStringList* warnings);

    /// "lights".
    QString getXmlElementName() const override;
    void writeXmlAttributes(PO_XmlWriter& writer) const override;
    void writeXmlSubnodes(PO_XmlWriter& writer) const override;

private:
    void told(XUTeller& teller) override;
    void replaceLights(const Lights& lights);
    void readChild(const QDomElement& element, Lights& lights, QStringList* warnings);

    Lights _lights;
    std::array<AT_DoubleAttr, NUMBERS> _numbers;
    PO_UnknownXml _unknown;
};
