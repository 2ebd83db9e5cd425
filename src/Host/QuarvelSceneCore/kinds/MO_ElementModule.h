// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_ElementModule: a leaf of the graph, which shows drawings. Its drawing attribute says which one is shown at which
// frame, its position, scale and rotation say where.
//
// A drawing's units are those of the scene. It is scaled, turned about its own origin, and moved, in this order:
//
//     x' = PositionX + ScaleX x cos(r) - ScaleY y sin(r)
//     y' = PositionY + ScaleX x sin(r) + ScaleY y cos(r)
//
// with y down, so that a positive rotation turns clockwise on the screen.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelSceneCore/graph/MO_Module.h"

#include <QStringList>
#include <QTransform>

#include <map>

class AT_DoubleAttr;
class AT_DoubleAttrMeta;
class AT_DrawingAttr;

/// Where an element's drawings were read from, so that they can be read again. A plain value.
struct MO_DrawingOrigin
{
    QStringList files;    ///< absolute paths, of all files that were read together; empty when nobody knows
    QString layer;        ///< what the layer is called in them
    QString objects = {}; ///< how their objects were chosen, in a word of the program that read them; empty: as usual
    QString digest = {};  ///< of the files as they were read, in the form of the program that read them; may be empty
    QString reason = {};  ///< why the drawings are an object, in that program's words; empty when nobody knows

    friend bool operator==(const MO_DrawingOrigin&, const MO_DrawingOrigin&) = default;
};

/// A module that shows the drawings of an element. Its attributes: "Drawing"; "PositionX" and "PositionY" in scene
/// units, 0 by default; "ScaleX" and "ScaleY", 1 by default; "Rotation" in degrees, 0 by default. All numbers can be
/// animated.
class QUARVELSCENECORE_EXPORT MO_ElementModule : public MO_Module
{
public:
    MO_ElementModule();
    ~MO_ElementModule() override;

    /// "READ".
    static QString Keyword();

    /// The attribute that names the element and holds the exposures.
    AT_DrawingAttr* drawingAttr() const { return _drawing; }
    AT_DoubleAttr* positionX() const { return _positionX; }
    AT_DoubleAttr* positionY() const { return _positionY; }
    AT_DoubleAttr* scaleX() const { return _scaleX; }
    AT_DoubleAttr* scaleY() const { return _scaleY; }
    AT_DoubleAttr* rotation() const { return _rotation; }

    /// The extension of the files of the element's drawings, without a dot; by default "KVR", for vector drawings.
    const QString& getDrawingFileExt() const { return _drawingFileExt; }
    void setDrawingFileExt(const QString& extension);

    /// The drawings, by the names that exposures use.
    const std::map<QString, UT_SharedPtr<CELVEC_Kvd>>& drawings() const { return _drawings; }
    /// Adds a drawing, replacing the one with that name; null removes it.
    void setDrawing(const QString& name, const UT_SharedPtr<CELVEC_Kvd>& drawing);
    /// The drawing shown at a frame; null when nothing is shown or the element has no drawing of that name.
    UT_SharedPtr<CELVEC_Kvd> drawingAt(double frame) const;

    /// Where the drawings were read from. It does not change with them.
    const MO_DrawingOrigin& origin() const { return _origin; }
    void setOrigin(const MO_DrawingOrigin& origin);

    /// From a drawing's units to the scene's, at a frame.
    QTransform drawingToScene(double frame) const;

    QString keyword() const override;
    QString baseDisplayName() const override;
    void accept(MO_AbstractModuleVisitor& visitor) override;
    /// Shares the drawings and their origin.
    void shareFiles(const MO_Module& original, MO_FileSharing sharing) override;
    bool hasFiles() const override { return !_drawings.empty(); }
    void writeXmlAttributes(PO_XmlWriter& writer) const override;

protected:
    bool parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings) override;

private:
    AT_DoubleAttr* addNumber(const AT_DoubleAttrMeta& meta, double defaultValue);

    AT_DrawingAttr* _drawing;
    AT_DoubleAttr* _positionX;
    AT_DoubleAttr* _positionY;
    AT_DoubleAttr* _scaleX;
    AT_DoubleAttr* _scaleY;
    AT_DoubleAttr* _rotation;
    QString _drawingFileExt;
    std::map<QString, UT_SharedPtr<CELVEC_Kvd>> _drawings;
    MO_DrawingOrigin _origin;
};
