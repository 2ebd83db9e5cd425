// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/scene/ObjectList.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "jobs/scene/ObjectInputs.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/shown/SurfaceLines.h"
#include "jobs/text/TextTable.h"

#include <QJsonObject>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace {

struct Listed
{
    int number = 0;
    QString name;
    QString definition;
    std::optional<NormalMapObject> values; // none for cut-outs and for definitions that lead to no node
    double tiltX = 0.0;
    double tiltY = 0.0;
    double rimBevel = 0.0;
    double rimHeight = 0.0;
    double relief = 0.0;
};

Listed listedFor(const ObjectDefinition& definition, double frame)
{
    Listed object;
    object.number = definition.objectId(frame);
    object.name = object.definition = definition.instanceName();
    object.tiltX = definition.tiltX()->value(frame);
    object.tiltY = definition.tiltY()->value(frame);
    object.rimBevel = definition.rimBevel()->value(frame);
    object.rimHeight = definition.rimHeight()->value(frame);
    object.relief = bendsTheSurface(definition, frame) ? definition.relief()->value(frame) : 0.0;
    return object;
}

Listed listedFor(const ObjectInput& input, const std::vector<NormalMapObject>& values, double frame)
{
    Listed object = listedFor(*input.definition, frame);
    if (!input.elements.isEmpty())
        object.name = input.elements.join(QStringLiteral(", "));
    if (const NormalMapObject* const row = findRow(values, object.number))
        object.values = *row;
    return object;
}

std::vector<Listed> listedOf(const MO_Scene& scene)
{
    const double frame = scene.firstFrame();
    std::vector<Listed> objects;
    std::set<const MO_Module*> listed;
    std::map<const MO_Module*, std::vector<NormalMapObject>> tables;
    for (const ObjectInput& input : objectInputsOf(scene)) {
        const auto [table, isNew] = tables.try_emplace(input.node);
        if (isNew)
            table->second = NormalMapNode(*input.node).objects();
        objects.push_back(listedFor(input, table->second, frame));
        listed.insert(input.definition);
    }
    scene.root().forEachModule([&](MO_Module& module) {
        if (const auto* const definition = dynamic_cast<const ObjectDefinition*>(&module);
            definition && !listed.contains(definition))
            objects.push_back(listedFor(*definition, frame));
    });
    std::ranges::stable_sort(objects, {}, &Listed::number);
    return objects;
}

QStringList cellsOf(const Listed& object)
{
    const bool tilted = object.tiltX != 0.0 || object.tiltY != 0.0;
    QStringList cells{QString::number(object.number), object.name};
    if (object.relief != 0.0)
        return cells << QStringLiteral("relief=") + PO_formatDouble(object.relief) << QString() << QString()
                     << QString() << QString();
    if (object.values)
        cells << PO_formatDouble(object.values->bevel) << PO_formatDouble(object.values->elevation)
              << PO_formatDouble(object.values->smoothness);
    else
        cells << (object.number == 0 ? QStringLiteral("cuts out") : QStringLiteral("-")) << QString() << QString();
    return cells << (tilted ? PO_formatDouble(object.tiltX) + u',' + PO_formatDouble(object.tiltY) : QString())
                 << (object.rimBevel > 0.0 ? PO_formatDouble(object.rimBevel) + u',' + PO_formatDouble(object.rimHeight)
                                           : QString());
}

} // namespace

QStringList listSceneObjects(const MO_Scene& scene)
{
    std::vector<QStringList> rows{{QStringLiteral("number"), QStringLiteral("name"), QStringLiteral("bevel"),
                                   QStringLiteral("elevation"), QStringLiteral("smoothness"), QStringLiteral("tilt"),
                                   QStringLiteral("rim")}};
    for (const Listed& object : listedOf(scene))
        rows.push_back(cellsOf(object));
    return tableLines(rows);
}

QJsonArray sceneObjectFields(const MO_Scene& scene)
{
    QJsonArray all;
    for (const Listed& object : listedOf(scene)) {
        QJsonObject fields{{QStringLiteral("number"), object.number},
                           {QStringLiteral("name"), object.name},
                           {QStringLiteral("definition"), object.definition}};
        if (object.relief != 0.0)
            fields.insert(QStringLiteral("relief"), object.relief);
        if (object.values) {
            fields.insert(QStringLiteral("bevel"), object.values->bevel);
            fields.insert(QStringLiteral("elevation"), object.values->elevation);
            fields.insert(QStringLiteral("smoothness"), object.values->smoothness);
            fields.insert(QStringLiteral("tilt"), QJsonArray{object.tiltX, object.tiltY});
            fields.insert(QStringLiteral("rim"), QJsonArray{object.rimBevel, object.rimHeight});
        }
        all.append(fields);
    }
    return all;
}
