// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/scene/ObjectList.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "jobs/drawing/DescribeObjects.h"
#include "jobs/scene/ObjectInputs.h"
#include "jobs/scene/ObjectsSeen.h"
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
    QString reason;                        // empty where nobody knows
    std::optional<NormalMapObject> values; // none for cut-outs and for definitions that lead to no node
    double tiltX = 0.0;
    double tiltY = 0.0;
    double rimBevel = 0.0;
    double rimHeight = 0.0;
    double relief = 0.0;
    std::optional<SeenObject> seen; // none for definitions that lead to no node
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
    object.reason = input.reasons.join(QStringLiteral("; "));
    if (const NormalMapObject* const row = findRow(values, object.number))
        object.values = *row;
    return object;
}

// What is seen of each input's object, node by node.
std::vector<SeenObject> seenOf(const MO_Scene& scene, std::span<const ObjectInput> inputs)
{
    std::vector<SeenObject> all;
    while (!inputs.empty()) {
        const auto next = std::ranges::find_if(
            inputs, [&](const MO_Module* node) { return node != inputs.front().node; }, &ObjectInput::node);
        const auto count = static_cast<std::size_t>(next - inputs.begin());
        std::ranges::move(objectsSeen(scene, inputs.first(count), scene.firstFrame()), std::back_inserter(all));
        inputs = inputs.subspan(count);
    }
    return all;
}

std::vector<Listed> listedOf(const MO_Scene& scene)
{
    const double frame = scene.firstFrame();
    std::vector<Listed> objects;
    std::set<const MO_Module*> listed;
    std::map<const MO_Module*, std::vector<NormalMapObject>> tables;
    const std::vector<ObjectInput> inputs = objectInputsOf(scene);
    const std::vector<SeenObject> seen = seenOf(scene, inputs);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const ObjectInput& input = inputs[i];
        const auto [table, isNew] = tables.try_emplace(input.node);
        if (isNew)
            table->second = NormalMapNode(*input.node).objects();
        objects.push_back(listedFor(input, table->second, frame));
        objects.back().seen = seen[i];
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
    QStringList cells{QString::number(object.number), object.name,
                      object.seen ? shareInWords(object.seen->share) : QString()};
    const QString colours = object.seen ? object.seen->colours.join(u' ') : QString();
    if (object.relief != 0.0)
        return cells << QStringLiteral("relief=") + PO_formatDouble(object.relief) << QString() << QString()
                     << QString() << QString() << colours << object.reason;
    if (object.values)
        cells << PO_formatDouble(object.values->bevel) << PO_formatDouble(object.values->elevation)
              << PO_formatDouble(object.values->smoothness);
    else
        cells << (object.number == 0 ? QStringLiteral("cuts out") : QStringLiteral("-")) << QString() << QString();
    return cells << (tilted ? PO_formatDouble(object.tiltX) + u',' + PO_formatDouble(object.tiltY) : QString())
                 << (object.rimBevel > 0.0 ? PO_formatDouble(object.rimBevel) + u',' + PO_formatDouble(object.rimHeight)
                                           : QString())
                 << colours << object.reason;
}

} // namespace

QStringList listSceneObjects(const MO_Scene& scene)
{
    std::vector<QStringList> rows{{QStringLiteral("number"), QStringLiteral("name"), QStringLiteral("share"),
                                   QStringLiteral("bevel"), QStringLiteral("elevation"), QStringLiteral("smoothness"),
                                   QStringLiteral("tilt"), QStringLiteral("rim"), QStringLiteral("colours"),
                                   QStringLiteral("why")}};
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
        if (!object.reason.isEmpty())
            fields.insert(QStringLiteral("why"), object.reason);
        if (object.seen) {
            fields.insert(QStringLiteral("share"), object.seen->share);
            fields.insert(QStringLiteral("colours"), QJsonArray::fromStringList(object.seen->colours));
        }
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
