// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_Light: a light of a scene. It affects lit pictures of the scene, and no map that is rendered from it.
//
// A light is above the picture like a lamp above a table. Its position is relative to the frame's centre, in units of
// half the frame's shorter side, x to the right and y up; its height above the picture is in the same unit. So a light
// keeps its position when the picture's size changes. A directional light shines as from far away, in the direction
// from its position to the frame's centre. A point light shines from its position, and is weaker at larger distances
// (NM_Lighting.h has the formula).
//
//     <light>
//       <Name val="Key"/>
//       <Kind val="POINT"/>
//       ...
//     </light>
#pragma once

#include "QuarvelPersistentObj/PIO_XmlWritable.h"
#include "QuarvelPersistentObj/PO_UnknownXml.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"

#include <array>

/// How a light shines.
enum class MO_LightKind
{
    DIRECTIONAL,
    POINT
};

/// The attribute that holds the kind; in files "DIRECTIONAL" and "POINT".
class QUARVELSCENECORE_EXPORT MO_LightKindAttr : public AT_EnumAttr<MO_LightKind>
{
public:
    using AT_EnumAttr::AT_EnumAttr;
    ~MO_LightKindAttr() override;

protected:
    void fillValueTable(ValueTable& table) const override;
};

/// The values of a light at one frame. By default, a white light from the upper left.
struct MO_LightValues
{
    QString name = {}; ///< any text; empty for a light without a name
    MO_LightKind kind = MO_LightKind::DIRECTIONAL;
    bool on = true;
    bool solo = false;                   ///< while a light is solo, only solo lights shine
    double x = -0.5;                     ///< -8 to 8
    double y = 0.5;                      ///< -8 to 8
    double height = 0.70710678118654757; ///< 0.05 to 4
    double reach = 1.0; ///< point light: distance from its foot at which it is half as bright; 0.05 to 16
    double red = 255.0; ///< encoded as sRGB, 0 to 255, as in palettes
    double green = 255.0;
    double blue = 255.0;
    double intensity = 1.0; ///< a factor of the colour's linear amounts; 0 to 4

    friend bool operator==(const MO_LightValues&, const MO_LightValues&) = default;
};

/// A light. Notifies its listeners after every change. See MO_Node.h for threads.
class QUARVELSCENECORE_EXPORT MO_Light : public XUTeller, public PIO_XmlWritable, private XUListener
{
public:
    explicit MO_Light(const MO_LightValues& values = {});
    ~MO_Light() override;

    AT_StringAttr& name() { return _name; }
    MO_LightKindAttr& kind() { return _kind; }
    AT_BoolAttr& on() { return _on; }
    AT_BoolAttr& solo() { return _solo; }

    /// The numbers, which may be animated; the keywords are those of the files.
    enum Number
    {
        X,
        Y,
        HEIGHT,
        REACH,
        RED,
        GREEN,
        BLUE,
        INTENSITY,
        NUMBERS
    };
    AT_DoubleAttr& number(Number which) { return _numbers[which]; }
    const AT_DoubleAttr& number(Number which) const { return _numbers[which]; }

    /// All attributes, in the order of the files.
    std::vector<AT_Attr*> attrs();
    /// The attribute of this keyword; null when there is none.
    AT_Attr* findAttr(const QString& keyword);

    MO_LightValues values(double frame) const;

    /// Reads the light from its element; values that the element does not have are those of a new light. Unknown parts
    /// are kept, with a warning.
    void readXml(const QDomElement& element, QStringList* warnings);

    /// "light".
    QString getXmlElementName() const override;
    void writeXmlSubnodes(PO_XmlWriter& writer) const override;

private:
    void told(XUTeller& teller) override;
    std::vector<const AT_Attr*> attrs() const;

    AT_StringAttr _name;
    MO_LightKindAttr _kind;
    AT_BoolAttr _on;
    AT_BoolAttr _solo;
    std::array<AT_DoubleAttr, NUMBERS> _numbers;
    PO_UnknownXml _unknown;
};
