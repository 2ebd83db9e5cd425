// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The leaf that shows drawings.
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/graph/MO_AbstractModuleVisitor.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"

#include <QCoreApplication>

namespace {

constexpr double kFarAway = 1.0e6;
constexpr double kManyTimes = 1.0e4;

const QString kAttributeExtension = QStringLiteral("drawingFileExt");

const AT_AttrMeta kDrawingMeta(QStringLiteral("Drawing"), QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Drawing")));
const AT_DoubleAttrMeta kPositionXMeta(QStringLiteral("PositionX"),
                                       QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Position X")),
                                       QStringLiteral("DBL_STEP_POSITION"), -kFarAway, kFarAway, -360.0, 360.0, 1.0);
const AT_DoubleAttrMeta kPositionYMeta(QStringLiteral("PositionY"),
                                       QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Position Y")),
                                       QStringLiteral("DBL_STEP_POSITION"), -kFarAway, kFarAway, -360.0, 360.0, 1.0);
const AT_DoubleAttrMeta kScaleXMeta(QStringLiteral("ScaleX"),
                                    QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Scale X")),
                                    QStringLiteral("DBL_STEP_SCALE"), -kManyTimes, kManyTimes, 0.0, 4.0);
const AT_DoubleAttrMeta kScaleYMeta(QStringLiteral("ScaleY"),
                                    QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Scale Y")),
                                    QStringLiteral("DBL_STEP_SCALE"), -kManyTimes, kManyTimes, 0.0, 4.0);
const AT_DoubleAttrMeta kRotationMeta(QStringLiteral("Rotation"),
                                      QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Rotation")),
                                      QStringLiteral("DBL_STEP_ANGLE"), -kFarAway, kFarAway, -180.0, 180.0, 1.0);

const MO_ModuleRegistration<MO_ElementModule> kRegistration;

} // namespace

MO_ElementModule::MO_ElementModule()
    : _drawing(new AT_DrawingAttr(kDrawingMeta)), _drawingFileExt(QStringLiteral("KVR"))
{
    registerAttr(_drawing);
    _positionX = addNumber(kPositionXMeta, 0.0);
    _positionY = addNumber(kPositionYMeta, 0.0);
    _scaleX = addNumber(kScaleXMeta, 1.0);
    _scaleY = addNumber(kScaleYMeta, 1.0);
    _rotation = addNumber(kRotationMeta, 0.0);
}

MO_ElementModule::~MO_ElementModule() = default;

AT_DoubleAttr* MO_ElementModule::addNumber(const AT_DoubleAttrMeta& meta, double defaultValue)
{
    auto* attr = new AT_DoubleAttr(meta, nullptr, AT_DoubleAttr::LINKABLE, defaultValue, QString());
    registerAttr(attr);
    return attr;
}

QString MO_ElementModule::Keyword()
{
    return QStringLiteral("READ");
}

void MO_ElementModule::setDrawingFileExt(const QString& extension)
{
    if (_drawingFileExt == extension)
        return;
    _drawingFileExt = extension;
    changed();
}

void MO_ElementModule::setDrawing(const QString& name, const UT_SharedPtr<CELVEC_Kvd>& drawing)
{
    if (drawing)
        _drawings[name] = drawing;
    else
        _drawings.erase(name);
    changed();
}

void MO_ElementModule::setOrigin(const MO_DrawingOrigin& origin)
{
    if (_origin == origin)
        return;
    _origin = origin;
    changed();
}

UT_SharedPtr<CELVEC_Kvd> MO_ElementModule::drawingAt(double frame) const
{
    const auto found = _drawings.find(_drawing->drawing(frame));
    return found == _drawings.end() ? nullptr : found->second;
}

QTransform MO_ElementModule::drawingToScene(double frame) const
{
    // Each call prepends its step to the ones before: the last one written is applied first.
    QTransform transform;
    transform.translate(_positionX->value(frame), _positionY->value(frame));
    transform.rotate(_rotation->value(frame));
    transform.scale(_scaleX->value(frame), _scaleY->value(frame));
    return transform;
}

QString MO_ElementModule::keyword() const
{
    return Keyword();
}

QString MO_ElementModule::baseDisplayName() const
{
    return QCoreApplication::translate("MO_ElementModule", "Drawing");
}

void MO_ElementModule::accept(MO_AbstractModuleVisitor& visitor)
{
    visitor.visit(*this);
}

void MO_ElementModule::shareFiles(const MO_Module& original, MO_FileSharing sharing)
{
    const bool forRendering = sharing == MO_FileSharing::FOR_RENDERING;
    const auto& element = static_cast<const MO_ElementModule&>(original);
    setOrigin(element.origin());
    for (const auto& [name, drawing] : element.drawings())
        setDrawing(name, forRendering ? drawing->shareForRendering() : drawing);
}

void MO_ElementModule::writeXmlAttributes(PO_XmlWriter& writer) const
{
    MO_Module::writeXmlAttributes(writer);
    writer.attribute(kAttributeExtension, _drawingFileExt);
}

bool MO_ElementModule::parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings)
{
    if (name != kAttributeExtension)
        return MO_Module::parseXmlAttribute(name, value, warnings);
    setDrawingFileExt(value);
    return true;
}
