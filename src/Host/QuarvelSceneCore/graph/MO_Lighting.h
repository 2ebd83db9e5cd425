// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_Lighting: the lights of a scene, and their common values: the ambient light, which comes from all directions, and
// the strength of highlights.
//
//     <lights>
//       <AmbientRed val="255"/>
//       ...
//       <light>...</light>
//     </lights>
//
// A scene with the lights of a new one is saved without this element, so scenes from before lights stay unchanged.
#pragma once

#include "QuarvelSceneCore/graph/MO_Light.h"

#include <memory>
#include <vector>

/// The common values of the lights at one frame.
struct MO_LightingValues
{
    double ambientRed = 255.0; ///< encoded as sRGB, 0 to 255
    double ambientGreen = 255.0;
    double ambientBlue = 255.0;
    /// A factor of the ambient colour's linear amounts; 0 to 1. By default 1 - sin 45 degrees, so that together with a
    /// new scene's first light, a surface that faces the viewer gets full light.
    double ambientIntensity = 0.29289321881345254;
    double highlight = 0.0; ///< the strength of highlights; 0 to 1

    friend bool operator==(const MO_LightingValues&, const MO_LightingValues&) = default;
};

/// Lights with their common values, as plain values.
struct MO_LightRig
{
    MO_LightingValues common = {};
    std::vector<MO_LightValues> lights{MO_LightValues{}};
};

/// The lights of a scene; there is always at least one. Notifies its listeners after every change. See MO_Node.h for
/// threads.
class QUARVELSCENECORE_EXPORT MO_Lighting : public XUTeller, public PIO_XmlWritable, private XUListener
{
public:
    /// The largest number of lights in a scene.
    static constexpr std::size_t kMaxLights = 16;

    using Lights = std::vector<std::shared_ptr<MO_Light>>;

    MO_Lighting();
    ~MO_Lighting() override;

    const Lights& lights() const { return _lights; }
    /// Replaces the lights; those after the first kMaxLights are left out.
    ///
    /// @return false, and nothing changes, when there is none
    bool setLights(const Lights& lights);
    /// The title of a light of this scene: its name, or "Light N", translated.
    QString titleOf(const MO_Light& light) const;

    /// The common numbers of the lights, which may be animated.
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
    /// The lights and their common values at a frame.
    MO_LightRig rig(double frame) const;

    /// Whether everything equals a new scene's, so that nothing need be saved.
    bool isNew() const;

    /// Reads everything from its element; a null element gives the lights of a new scene. Unknown parts are kept, with
    /// a warning.
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
