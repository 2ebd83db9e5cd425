// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's keys, and the conversion of its values to and from texts.
#include "jobs/shown/NormalMapNode.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "form/ElevationUnit.h"

#include <QStringList>

#include <algorithm>

namespace {

const QString kObjects = QStringLiteral("ObjectList");
const QString kColours = QStringLiteral("ColorInformation");
const QString kBevelMultiplier = QStringLiteral("BlurScale");
const QString kElevationMultiplier = QStringLiteral("ElevationScale");
const QString kSmoothnessMultiplier = QStringLiteral("ElevationSmoothness");
const QString kQuality = QStringLiteral("NormalQuality");
const QString kGenerateNormals = QStringLiteral("GenerateNormals");
const QString kDepthInBlue = QStringLiteral("DepthInBlue");
const QString kClip = QStringLiteral("ClipBlurredWithGeometry");
const QString kUseTruckFactor = QStringLiteral("UseTruckFactor");

QString yesNo(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

bool isOn(const MO_Module& module, const QString& key, bool otherwise)
{
    const auto* const attr = dynamic_cast<const AT_BoolAttr*>(module.findAttr(key));
    return attr ? attr->localValue() : otherwise;
}

UT_Result<void> setText(MO_Module& module, const QString& key, const QString& text)
{
    AT_Attr* const attr = module.findAttr(key);
    if (!attr || !attr->parseText(text, false))
        return UT_Error{QStringLiteral("the node %1 does not take \"%2\" for %3; is its plug-in of this version?")
                            .arg(module.keyword(), text, key)};
    attr->parseText(text, true);
    return {};
}

std::unique_ptr<CO_Command> textCmd(MO_Module& module, const QString& key, const QString& text)
{
    auto* const attr = dynamic_cast<AT_StringAttr*>(module.findAttr(key));
    return std::unique_ptr<CO_Command>(attr ? attr->setValueCmd(0.0, text) : nullptr);
}

// The field as a number; the fallback if it is missing or not a number.
double numberAt(const QStringList& fields, qsizetype index, double fallback)
{
    bool isNumber = false;
    const double number = fields.value(index).toDouble(&isNumber);
    return isNumber ? number : fallback;
}

} // namespace

const QString& NormalMapNode::keyword()
{
    static const QString keyword = QStringLiteral("Vallorin");
    return keyword;
}

const QString& NormalMapNode::objectTableKey()
{
    return kObjects;
}

const QString& NormalMapNode::colourTableKey()
{
    return kColours;
}

QString NormalMapNode::keyCalled(const QString& name)
{
    const std::pair<const char*, const QString&> names[] = {
        {"bevel-multiplier", kBevelMultiplier},
        {"elevation-multiplier", kElevationMultiplier},
        {"smoothness-multiplier", kSmoothnessMultiplier},
        {"quality", kQuality},
        {"generate-normals", kGenerateNormals},
        {"depth-in-blue", kDepthInBlue},
        {"clip", kClip},
        {"use-truck-factor", kUseTruckFactor},
    };
    const QString word = name.trimmed().toLower().replace(u' ', u'-');
    for (const auto& [called, key] : names)
        if (word == QLatin1String(called))
            return key;
    return {};
}

std::unique_ptr<MO_Module> NormalMapNode::make()
{
    return MO_ModuleFactorySingleton().create(keyword());
}

UT_Result<void> NormalMapNode::set(const NormalMapValues& values) const
{
    const std::pair<const QString&, QString> texts[] = {
        {kColours, colourTableText(values.colours)},
        {kObjects, objectTableText(values.objects)},
        {kBevelMultiplier, PO_formatDouble(values.bevelMultiplier)},
        {kElevationMultiplier, PO_formatDouble(values.elevationMultiplier)},
        {kSmoothnessMultiplier, PO_formatDouble(values.smoothnessMultiplier)},
        {kGenerateNormals, yesNo(values.generateNormals)},
        {kUseTruckFactor, yesNo(values.useTruckFactor)},
        {kDepthInBlue, yesNo(values.depthInBlue)},
        {kClip, yesNo(values.clipBlurredWithGeometry)},
        {kQuality, values.quality},
    };
    for (const auto& [key, text] : texts)
        if (UT_Result<void> done = setText(*_module, key, text); !done)
            return done;
    return {};
}

bool NormalMapNode::generatesNormals() const
{
    return isOn(*_module, kGenerateNormals, true);
}

bool NormalMapNode::hasElevationInBlue() const
{
    return isOn(*_module, kDepthInBlue, false);
}

void NormalMapNode::putElevationInBlue() const
{
    if (auto* const attr = dynamic_cast<AT_BoolAttr*>(_module->findAttr(kDepthInBlue)))
        attr->setLocalValue(true);
}

std::vector<NormalMapObject> NormalMapNode::objects() const
{
    const auto* const attr = dynamic_cast<const AT_StringAttr*>(_module->findAttr(kObjects));
    return attr ? objectsOfTable(attr->localValue()) : std::vector<NormalMapObject>();
}

std::unique_ptr<CO_Command> NormalMapNode::objectsCmd(const std::vector<NormalMapObject>& objects) const
{
    return textCmd(*_module, kObjects, objectTableText(objects));
}

std::vector<NormalMapColour> NormalMapNode::colours() const
{
    const auto* const attr = dynamic_cast<const AT_StringAttr*>(_module->findAttr(kColours));
    return attr ? coloursOfTable(attr->localValue()) : std::vector<NormalMapColour>();
}

std::unique_ptr<CO_Command> NormalMapNode::coloursCmd(const std::vector<NormalMapColour>& colours) const
{
    return textCmd(*_module, kColours, colourTableText(colours));
}

AT_DoubleAttr* NormalMapNode::bevelMultiplier() const
{
    return dynamic_cast<AT_DoubleAttr*>(_module->findAttr(kBevelMultiplier));
}

AT_DoubleAttr* NormalMapNode::elevationMultiplier() const
{
    return dynamic_cast<AT_DoubleAttr*>(_module->findAttr(kElevationMultiplier));
}

std::map<int, double> NormalMapNode::rises(double frame) const
{
    const double factor = riseFactor(frame);
    std::map<int, double> rises;
    for (const NormalMapObject& object : objects())
        rises[object.number] = object.elevation * factor;
    return rises;
}

double NormalMapNode::riseFactor(double frame) const
{
    const AT_DoubleAttr* const multiplier = elevationMultiplier();
    return kRiseOfElevation * (multiplier ? multiplier->value(frame) : 1.0) * truckFactor(frame);
}

double NormalMapNode::bevelFactor(double frame) const
{
    const AT_DoubleAttr* const multiplier = bevelMultiplier();
    return (multiplier ? multiplier->value(frame) : 1.0) * truckFactor(frame);
}

double NormalMapNode::truckFactor(double frame) const
{
    const MO_SceneCommon* const scene = _module->sceneCommon();
    return scene && usesTruckFactor() ? scene->truckFactor(frame) : 1.0;
}

void NormalMapNode::scaleElevations(double factor) const
{
    std::vector<NormalMapObject> scaled = objects();
    for (NormalMapObject& object : scaled)
        object.elevation *= factor;
    setObjects(objectTableText(scaled));
}

void NormalMapNode::setObjects(const QString& table) const
{
    (void)setText(*_module, kObjects, table);
}

bool NormalMapNode::clips() const
{
    return isOn(*_module, kClip, true);
}

bool NormalMapNode::usesTruckFactor() const
{
    return isOn(*_module, kUseTruckFactor, false);
}

QString objectTableText(const std::vector<NormalMapObject>& objects)
{
    QStringList rows;
    for (const NormalMapObject& object : objects)
        rows.append(QStringLiteral("%1:%2:%3:%4")
                        .arg(object.number)
                        .arg(PO_formatDouble(object.bevel), PO_formatDouble(object.elevation),
                             PO_formatDouble(object.smoothness)));
    return rows.join(QLatin1Char(';'));
}

std::vector<NormalMapObject> objectsOfTable(const QString& text)
{
    std::vector<NormalMapObject> objects;
    std::map<int, std::size_t> places; // by number
    for (const QString& row : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QStringList fields = row.split(QLatin1Char(':'), Qt::SkipEmptyParts);
        // A number alone is a row; a number with only a colon after it is not.
        if (row.contains(QLatin1Char(':')) && fields.size() < 2)
            continue;
        NormalMapObject object;
        bool isNumber = false;
        object.number = fields.value(0).toInt(&isNumber);
        object.bevel = numberAt(fields, 1, object.bevel);
        object.elevation = numberAt(fields, 2, object.elevation);
        object.smoothness = numberAt(fields, 3, object.smoothness);
        if (!isNumber || object.number < 1)
            continue;
        const auto [place, isNew] = places.try_emplace(object.number, objects.size());
        if (isNew)
            objects.push_back(object);
        else
            objects[place->second] = object;
    }
    return objects;
}

const NormalMapObject* findRow(const std::vector<NormalMapObject>& table, int number)
{
    const auto found = std::ranges::find(table, number, &NormalMapObject::number);
    return found == table.end() ? nullptr : &*found;
}

void putRow(std::vector<NormalMapObject>& table, const NormalMapObject& row)
{
    const auto found = std::ranges::find(table, row.number, &NormalMapObject::number);
    if (found == table.end())
        table.push_back(row);
    else
        *found = row;
}

QString colourTableText(const std::vector<NormalMapColour>& colours)
{
    QStringList rows;
    for (const NormalMapColour& colour : colours) {
        // Separators inside a name would end its row early.
        const QString name = QString(colour.name).remove(QLatin1Char(':')).remove(QLatin1Char(';'));
        rows.append(QStringLiteral("%1:%2:%3").arg(colour.id.AsString().ToQString()).arg(colour.level).arg(name));
    }
    return rows.join(QLatin1Char(';'));
}

std::vector<NormalMapColour> coloursOfTable(const QString& text)
{
    std::vector<NormalMapColour> colours;
    UT_Id id;
    for (const QString& row : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QStringList fields = row.split(QLatin1Char(':'), Qt::SkipEmptyParts);
        if (fields.isEmpty())
            continue;
        // A field that is not an identifier keeps the previous row's identifier, as in the node.
        id.parseXml(fields[0]);
        colours.push_back({id, fields.size() > 1 ? fields[1].toInt() : 255, fields.value(2)});
    }
    return colours;
}
