// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One function for each section. Values are written as "quarvel set" reads them.
#include "jobs/scene/DescribeScene.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/scene/AttributeWords.h"
#include "jobs/scene/ObjectList.h"
#include "jobs/shown/NormalMapNode.h"

#include <QJsonArray>
#include <QStringList>

#include <algorithm>
#include <set>
#include <span>

namespace {

QStringList namesOfSources(const MO_Module& module)
{
    QStringList sources;
    for (unsigned i = 0; i < module.nInPorts(); ++i)
        if (const MO_Port* source = module.inPort(i)->srcPort()) {
            const QString name = source->node()->instanceName();
            sources << (name.isEmpty() ? QStringLiteral("(the group's input %1)").arg(source->index()) : name);
        }
    return sources;
}

QString sourcesOf(const MO_Module& module)
{
    const QStringList sources = namesOfSources(module);
    return sources.isEmpty() ? QString() : QStringLiteral("  from ") + sources.join(QStringLiteral(", "));
}

int depthOf(const MO_Module& module)
{
    int depth = 0;
    for (const XUGroup* group = module.group(); group && group->group(); group = group->group())
        ++depth;
    return depth;
}

bool isFullLevel(const NormalMapColour& colour)
{
    return colour.level == NormalMapColour().level;
}

// Whether an attribute is a colour table that the import made and nobody changed: it lists all colours of the palettes,
// each at its full level.
bool isImportedColourTable(const MO_Module& module, const AT_Attr& attr)
{
    const MO_SceneCommon* const scene = module.sceneCommon();
    const auto* const text = dynamic_cast<const AT_StringAttr*>(&attr);
    if (!NormalMapNode::is(module) || attr.keyword() != NormalMapNode::colourTableKey() || !scene || !text)
        return false;
    const std::vector<NormalMapColour> table = coloursOfTable(text->localValue());
    std::set<UT_Id> ids;
    for (const NormalMapColour& colour : table)
        ids.insert(colour.id);
    const auto isListed = [&](const auto& colour) { return ids.contains(colour->GetColorId()); };
    const auto areListed = [&](const auto& palette) { return std::ranges::all_of(palette->colors(), isListed); };
    return std::ranges::all_of(table, isFullLevel) && std::ranges::all_of(scene->palettes(), areListed);
}

std::vector<AT_Attr*> toldAttributes(const MO_Module& module, DescribedAttributes which)
{
    std::vector<AT_Attr*> told;
    const auto fresh = MO_ModuleFactorySingleton().create(module.keyword());
    for (AT_Attr* attr : module.attrs()) {
        const AT_Attr* const standard = fresh ? fresh->findAttr(attr->keyword()) : nullptr;
        const auto* const simple = dynamic_cast<const AT_SimpleAttr*>(attr);
        const bool isChanged = !standard || (simple && simple->link()) ||
                               !(attr->equals(*standard) || isImportedColourTable(module, *attr));
        if (isChanged || which == DescribedAttributes::ALL)
            told.push_back(attr);
    }
    return told;
}

void describeAttributes(const MO_Module& module, DescribedAttributes which, const QString& indent, QStringList& lines)
{
    for (AT_Attr* const attr : toldAttributes(module, which))
        lines << indent + attr->keyword() + QStringLiteral("  ") + attributeInWords(*attr);
}

void describeModules(const MO_Scene& scene, DescribedAttributes which, QStringList& lines)
{
    lines << QStringLiteral("nodes");
    const MO_Module* const output = scene.outputModule();
    scene.root().forEachModule([&](const MO_Module& module) {
        const QString indent(2 + 2 * depthOf(module), u' ');
        lines << indent + module.instanceName() + QStringLiteral("  ") + module.keyword() + sourcesOf(module) +
                     (module.enabled() ? QString() : QStringLiteral("  (disabled)")) +
                     (&module == output ? QStringLiteral("  (rendered unless another is named)") : QString());
        describeAttributes(module, which, indent + QStringLiteral("    "), lines);
    });
}

void describeElements(const MO_Scene& scene, QStringList& lines)
{
    lines << QString() << QStringLiteral("elements");
    scene.root().forEachModule([&](const MO_Module& module) {
        const auto* const element = dynamic_cast<const MO_ElementModule*>(&module);
        if (!element)
            return;
        const auto count = element->drawings().size();
        const int first = scene.firstFrame();
        const QString shown = element->drawingAttr()->drawing(first);
        lines << QStringLiteral("  %1  %2 %3, %4 at frame %5")
                     .arg(element->instanceName(), QString::number(count),
                          count == 1 ? QStringLiteral("drawing") : QStringLiteral("drawings"),
                          shown.isEmpty() ? QStringLiteral("none") : QStringLiteral("\"%1\"").arg(shown),
                          QString::number(first));
    });
}

void describeObjects(const MO_Scene& scene, QStringList& lines)
{
    lines << QString() << QStringLiteral("objects at frame %1").arg(scene.firstFrame());
    lines << listSceneObjects(scene);
}

QString hexOf(const CM_Rgba& colour)
{
    return QStringLiteral("#%1%2%3")
        .arg(colour.red, 2, 16, QLatin1Char('0'))
        .arg(colour.green, 2, 16, QLatin1Char('0'))
        .arg(colour.blue, 2, 16, QLatin1Char('0'));
}

void describePalettes(const MO_Scene& scene, QStringList& lines)
{
    lines << QString() << QStringLiteral("palettes");
    for (const auto& palette : scene.palettes()) {
        lines << QStringLiteral("  %1  %2 colours")
                     .arg(palette->GetName().ToQString(), QString::number(palette->colors().size()));
        for (const auto& colour : palette->colors())
            lines << QStringLiteral("    %1  %2")
                         .arg(hexOf(colour->GetNominalColor()), colour->GetColorName().ToQString());
    }
}

void describeAttributes(const QString& path, std::span<AT_Attr* const> attrs, std::span<AT_Attr* const> standards,
                        DescribedAttributes which, QStringList& lines)
{
    for (std::size_t i = 0; i < attrs.size(); ++i)
        if (which == DescribedAttributes::ALL || !attrs[i]->equals(*standards[i]))
            lines << QStringLiteral("    %1.%2  %3").arg(path, attrs[i]->keyword(), attributeInWords(*attrs[i]));
}

std::vector<AT_Attr*> attributesOf(MO_Lighting& lighting)
{
    std::vector<AT_Attr*> attrs;
    for (AT_DoubleAttr& number : lighting.numbers())
        attrs.push_back(&number);
    return attrs;
}

void describeLights(const MO_Scene& scene, DescribedAttributes which, QStringList& lines)
{
    MO_Lighting fresh;
    lines << QStringLiteral("lights");
    describeAttributes(QStringLiteral(".Lights"), attributesOf(scene.lighting()), attributesOf(fresh), which, lines);
    const std::vector<AT_Attr*> standards = fresh.lights().front()->attrs();
    int number = 0;
    for (const auto& light : scene.lighting().lights()) {
        const MO_LightValues values = light->values(scene.firstFrame());
        lines << QStringLiteral("  .Light%1  %2%3%4")
                     .arg(++number)
                     .arg(values.kind == MO_LightKind::POINT ? QStringLiteral("point") : QStringLiteral("directional"),
                          values.on ? QString() : QStringLiteral("  (off)"),
                          values.solo ? QStringLiteral("  (solo)") : QString());
        describeAttributes(QStringLiteral(".Light%1").arg(number), light->attrs(), standards, which, lines);
    }
    lines << QString();
}

QJsonObject inWords(std::span<AT_Attr* const> attrs)
{
    QJsonObject words;
    for (AT_Attr* const attr : attrs)
        words.insert(attr->keyword(), attributeInWords(*attr));
    return words;
}

QJsonArray moduleFields(const MO_Scene& scene, DescribedAttributes which)
{
    QJsonArray modules;
    scene.root().forEachModule([&](const MO_Module& module) {
        QJsonObject fields{{QStringLiteral("name"), module.instanceName()},
                           {QStringLiteral("keyword"), module.keyword()},
                           {QStringLiteral("enabled"), module.enabled()},
                           {QStringLiteral("inputs"), QJsonArray::fromStringList(namesOfSources(module))},
                           {QStringLiteral("attributes"), inWords(toldAttributes(module, which))}};
        if (const auto* const definition = dynamic_cast<const ObjectDefinition*>(&module))
            fields.insert(QStringLiteral("object"), definition->objectId(scene.firstFrame()));
        if (const auto* const element = dynamic_cast<const MO_ElementModule*>(&module))
            fields.insert(QStringLiteral("drawings"), static_cast<int>(element->drawings().size()));
        modules.append(fields);
    });
    return modules;
}

QJsonArray lightFields(const MO_Scene& scene)
{
    QJsonArray lights;
    for (const auto& light : scene.lighting().lights())
        lights.append(inWords(light->attrs()));
    return lights;
}

} // namespace

QStringList moduleNames(const MO_Scene& scene)
{
    QStringList names;
    scene.root().forEachModule([&](const MO_Module& module) { names << module.instanceName(); });
    return names;
}

QString describeScene(const MO_Scene& scene, DescribedAttributes attributes)
{
    QStringList lines;
    lines << QStringLiteral("frames  %1-%2").arg(scene.firstFrame()).arg(scene.lastFrame());
    lines << QStringLiteral("rate    %1 frames a second").arg(scene.frameRate());
    lines << QStringLiteral("frame   %1 x %2 units").arg(MO_Scene::kFrameWidth).arg(scene.frameHeight());
    lines << QStringLiteral("camera  .TruckFactor  %1").arg(attributeInWords(scene.truckFactorAttr())) << QString();
    describeLights(scene, attributes, lines);
    describeModules(scene, attributes, lines);
    describeElements(scene, lines);
    describeObjects(scene, lines);
    describePalettes(scene, lines);
    return lines.join(u'\n') + u'\n';
}

QJsonObject sceneFields(const MO_Scene& scene, DescribedAttributes attributes)
{
    const MO_Module* const output = scene.outputModule();
    return {{QStringLiteral("firstFrame"), scene.firstFrame()},
            {QStringLiteral("lastFrame"), scene.lastFrame()},
            {QStringLiteral("frameRate"), scene.frameRate()},
            {QStringLiteral("frameWidth"), MO_Scene::kFrameWidth},
            {QStringLiteral("frameHeight"), scene.frameHeight()},
            {QStringLiteral("camera"), attributeInWords(scene.truckFactorAttr())},
            {QStringLiteral("lights"), lightFields(scene)},
            {QStringLiteral("commonLight"), inWords(attributesOf(scene.lighting()))},
            {QStringLiteral("modules"), moduleFields(scene, attributes)},
            {QStringLiteral("objects"), sceneObjectFields(scene)},
            {QStringLiteral("rendered"), output ? output->instanceName() : QString()}};
}
