// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One function a section. Values are written as "quarvel set" reads them.
#include "jobs/scene/DescribeScene.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <QStringList>

#include <algorithm>

namespace {

QString interpolationWord(AT_Curve::Interpolation interpolation)
{
    switch (interpolation) {
    case AT_Curve::Interpolation::HOLD:
        return QStringLiteral(":hold");
    case AT_Curve::Interpolation::BEZIER:
        return QStringLiteral(":bezier");
    case AT_Curve::Interpolation::LINEAR:
        break;
    }
    return {};
}

QString curveWords(const AT_Curve& curve)
{
    QStringList words;
    for (const AT_Curve::Key& key : curve.keys())
        words << PO_formatDouble(key.frame) + u':' + PO_formatDouble(key.value) + interpolationWord(key.interpolation);
    return words.join(u' ');
}

QString exposureWords(const AT_ExposureSheet& sheet)
{
    QStringList words;
    for (const auto& [frame, drawing] : sheet.exposures())
        words << QStringLiteral("%1:%2").arg(frame).arg(drawing);
    return words.join(u' ');
}

QString enumWord(const AT_EnumAttrBase& attr)
{
    for (auto [row, end] = attr.values(); row != end; ++row)
        if (row->first == attr.localInt())
            return row->second.keyword;
    return QString::number(attr.localInt());
}

QString valueWords(const AT_Attr& attr)
{
    if (const auto* simple = dynamic_cast<const AT_SimpleAttr*>(&attr); simple && simple->link())
        return u'=' + simple->link()->path();
    if (const auto* number = dynamic_cast<const AT_AnimatableAttr*>(&attr); number && number->isAnimated())
        return curveWords(number->curve());
    if (const auto* number = dynamic_cast<const AT_DoubleAttr*>(&attr))
        return PO_formatDouble(number->localValue());
    if (const auto* number = dynamic_cast<const AT_IntAttr*>(&attr))
        return QString::number(number->localValue());
    if (const auto* truth = dynamic_cast<const AT_BoolAttr*>(&attr))
        return truth->localValue() ? QStringLiteral("yes") : QStringLiteral("no");
    if (const auto* choice = dynamic_cast<const AT_EnumAttrBase*>(&attr))
        return enumWord(*choice);
    if (const auto* drawing = dynamic_cast<const AT_DrawingAttr*>(&attr))
        return exposureWords(drawing->exposures());
    return attr.displayText(0.0);
}

QString sourcesOf(const MO_Module& module)
{
    QStringList sources;
    for (unsigned i = 0; i < module.nInPorts(); ++i)
        if (const MO_Port* source = module.inPort(i)->srcPort()) {
            const QString name = source->node()->instanceName();
            sources << (name.isEmpty() ? QStringLiteral("(the group's input %1)").arg(source->index()) : name);
        }
    return sources.isEmpty() ? QString() : QStringLiteral("  from ") + sources.join(QStringLiteral(", "));
}

int depthOf(const MO_Module& module)
{
    int depth = 0;
    for (const XUGroup* group = module.group(); group && group->group(); group = group->group())
        ++depth;
    return depth;
}

void describeAttributes(const MO_Module& module, DescribedAttributes which, const QString& indent, QStringList& lines)
{
    const auto fresh = MO_ModuleFactorySingleton().create(module.keyword());
    for (const AT_Attr* attr : module.attrs()) {
        const AT_Attr* const standard = fresh ? fresh->findAttr(attr->keyword()) : nullptr;
        const auto* const simple = dynamic_cast<const AT_SimpleAttr*>(attr);
        const bool isChanged = !standard || (simple && simple->link()) || !attr->equals(*standard);
        if (isChanged || which == DescribedAttributes::ALL)
            lines << indent + attr->keyword() + QStringLiteral("  ") + valueWords(*attr);
    }
}

void describeModules(const MO_Scene& scene, DescribedAttributes which, QStringList& lines)
{
    lines << QStringLiteral("modules");
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
                     .arg(element->instanceName())
                     .arg(count)
                     .arg(count == 1 ? QStringLiteral("drawing") : QStringLiteral("drawings"),
                          shown.isEmpty() ? QStringLiteral("none") : QStringLiteral("\"%1\"").arg(shown))
                     .arg(first);
    });
}

void describeObjects(const MO_Scene& scene, QStringList& lines)
{
    std::map<int, QStringList> byNumber;
    scene.root().forEachModule([&](const MO_Module& module) {
        if (const auto* definition = dynamic_cast<const ObjectDefinition*>(&module))
            byNumber[definition->objectId(scene.firstFrame())] << definition->instanceName();
    });
    lines << QString() << QStringLiteral("objects at frame %1").arg(scene.firstFrame());
    for (const auto& [number, names] : byNumber)
        lines << QStringLiteral("  %1%2  %3")
                     .arg(number)
                     .arg(number == 0 ? QStringLiteral(" (cuts)") : QString(), names.join(QStringLiteral(", ")));
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
        lines << QStringLiteral("  %1  %2 colours").arg(palette->GetName().ToQString()).arg(palette->colors().size());
        for (const auto& colour : palette->colors())
            lines << QStringLiteral("    %1  %2")
                         .arg(hexOf(colour->GetNominalColor()), colour->GetColorName().ToQString());
    }
}

} // namespace

QString describeScene(const MO_Scene& scene, DescribedAttributes attributes)
{
    QStringList lines;
    lines << QStringLiteral("frames  %1-%2").arg(scene.firstFrame()).arg(scene.lastFrame());
    lines << QStringLiteral("frame   %1 x %2 units").arg(MO_Scene::kFrameWidth).arg(scene.frameHeight());
    lines << QStringLiteral("camera  .TruckFactor  %1").arg(valueWords(scene.truckFactorAttr())) << QString();
    describeModules(scene, attributes, lines);
    describeElements(scene, lines);
    describeObjects(scene, lines);
    describePalettes(scene, lines);
    return lines.join(u'\n') + u'\n';
}
