// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectDefinition: the node that says which object the drawings upstream of it belong to, and how that object enters a
// volume: at which level, and whether its greys count in proportion to its coverage.
//
// In a render its request leaves an ObjectDefinitionEntry in the context of every drawing upstream, unless there is one
// already: of several definitions downstream of a drawing, the one nearest to it counts. Where the object is switched
// off, the request leaves an entry that says so. A node that is not enabled leaves nothing. The node attaches nothing
// to the cel, and its picture is its input's.
#pragma once

#include "ObjectDefinition/ObjectDefinitionExport.h"
#include "QuarvelBaseCore/UT_DynKey.h"
#include "QuarvelSceneCore/graph/MO_Module.h"

class AT_BoolAttr;
class AT_DoubleAttr;
class AT_IntAttr;

/// Defines an object. Its attributes: "ObjectNumber" (integer, 1 by default; 0 makes a cut-out; animatable),
/// "ObjectLevel" (0 to 1, 1 by default; animatable), "ScaleByCoverage" (off by default), "ObjectEnabled" (on by
/// default), "TiltX" and "TiltY" (degrees up to kMostTilt each way, 0 by default; animatable): how far the object faces
/// to the right and upwards instead of facing the viewer; "RimBevel" (0 to kMostRimBevel, 0 by default; animatable):
/// the width of a second bevel at the object's outline, in units of which the picture is 720 wide, 0 for none, and
/// "RimHeight" (0 to kMostRimHeight, kRimHeight by default; animatable): its height in multiples of that width;
/// "Relief" (up to kMostRelief each way, 0 by default; animatable): of an object that is switched off, how high its
/// strokes bend the surface below them, in multiples of half of their width, below 0 downwards. The nodes that make
/// volumes know nothing of tilts, rims and reliefs; programs apply them to what they rendered.
class OBJECTDEFINITION_EXPORT ObjectDefinition : public MO_Module
{
public:
    ObjectDefinition();
    ~ObjectDefinition() override;

    /// "OBJECT_DEFINITION". The library registers the kind when it is loaded.
    static QString Keyword();

    /// The object's number at a frame.
    int objectId(double frame) const;
    /// The same; -1 for a null pointer.
    static int objectId(const ObjectDefinition* definition, double frame);

    AT_IntAttr* objectNumber() const { return _objectNumber; }
    AT_DoubleAttr* objectLevel() const { return _objectLevel; }
    AT_BoolAttr* scaleByCoverage() const { return _scaleByCoverage; }
    AT_BoolAttr* objectEnabled() const { return _objectEnabled; }
    AT_DoubleAttr* tiltX() const { return _tiltX; }
    AT_DoubleAttr* tiltY() const { return _tiltY; }
    AT_DoubleAttr* rimBevel() const { return _rimBevel; }
    AT_DoubleAttr* rimHeight() const { return _rimHeight; }
    AT_DoubleAttr* relief() const { return _relief; }

    /// The limits of its values, each included: the tilt's and the relief's both ways.
    static constexpr double kMostTilt = 90.0;
    static constexpr double kMostRimBevel = 720.0;
    static constexpr double kMostRimHeight = 10.0;
    static constexpr double kMostRelief = 4.0;

    /// The height of a rim for which none was given, in multiples of its bevel.
    static constexpr double kRimHeight = 1.0;

    /// The form that the program chose for the object when its drawing came in, in the program's own words; empty for
    /// an object that nobody chose a form for. The node keeps it, so that the choice can be told again however the
    /// values were changed since. In XML it is the module's attribute "chosenForm".
    const QString& chosenForm() const { return _chosenForm; }
    void setChosenForm(const QString& form) { _chosenForm = form; }

    /// In the context of a request: an ObjectDefinitionEntry. On a cel: an ObjectDefinitionMessage.
    static const UT_DynKey& objectDefinitionMessageId();
    /// In the context of a request: an entry of any class, whose presence says that the drawing's object is switched
    /// off.
    static const UT_DynKey& objectDisableMessageId();

    QString keyword() const override;
    QString baseDisplayName() const override;
    void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port) override;
    std::unique_ptr<MO_RenderingRequestHandler> createRequestHandler() override;
    void writeXmlAttributes(PO_XmlWriter& writer) const override;

protected:
    bool parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings) override;

private:
    QString _chosenForm;
    AT_IntAttr* _objectNumber;
    AT_DoubleAttr* _objectLevel;
    AT_BoolAttr* _scaleByCoverage;
    AT_BoolAttr* _objectEnabled;
    AT_DoubleAttr* _tiltX;
    AT_DoubleAttr* _tiltY;
    AT_DoubleAttr* _rimBevel;
    AT_DoubleAttr* _rimHeight;
    AT_DoubleAttr* _relief;
};
