// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whether lights equal a new scene's is decided by their XML, so that nothing that would be saved is overlooked.
#include "QuarvelSceneCore/graph/MO_Lighting.h"

#include <QCoreApplication>
#include <QDomElement>

#include <algorithm>

namespace {

const AT_DoubleAttrMeta kRed(QStringLiteral("AmbientRed"),
                             QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Ambient Red")),
                             QStringLiteral("DBL_STEP_LIGHT"), 0.0, 255.0, 0.0, 255.0, 1.0);
const AT_DoubleAttrMeta kGreen(QStringLiteral("AmbientGreen"),
                               QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Ambient Green")),
                               QStringLiteral("DBL_STEP_LIGHT"), 0.0, 255.0, 0.0, 255.0, 1.0);
const AT_DoubleAttrMeta kBlue(QStringLiteral("AmbientBlue"),
                              QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Ambient Blue")),
                              QStringLiteral("DBL_STEP_LIGHT"), 0.0, 255.0, 0.0, 255.0, 1.0);
const AT_DoubleAttrMeta kIntensity(QStringLiteral("AmbientIntensity"),
                                   QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Ambient Light")),
                                   QStringLiteral("DBL_STEP_LIGHT"), 0.0, 1.0, 0.0, 1.0, 0.05);
const AT_DoubleAttrMeta kHighlight(QStringLiteral("Highlight"),
                                   QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Highlights")),
                                   QStringLiteral("DBL_STEP_LIGHT"), 0.0, 1.0, 0.0, 1.0, 0.05);

AT_DoubleAttr numberAttr(const AT_DoubleAttrMeta& meta, double value)
{
    return {meta, nullptr, AT_DoubleAttr::NOT_LINKABLE, value, QString()};
}

constexpr MO_LightingValues kNew;

} // namespace

MO_Lighting::MO_Lighting()
    : _numbers{numberAttr(kRed, kNew.ambientRed), numberAttr(kGreen, kNew.ambientGreen),
               numberAttr(kBlue, kNew.ambientBlue), numberAttr(kIntensity, kNew.ambientIntensity),
               numberAttr(kHighlight, kNew.highlight)}
{
    for (AT_DoubleAttr& number : _numbers)
        number.addListener(*this);
    replaceLights({std::make_shared<MO_Light>()});
}

MO_Lighting::~MO_Lighting() = default;

bool MO_Lighting::setLights(const Lights& lights)
{
    if (lights.empty())
        return false;
    replaceLights(lights);
    tell();
    return true;
}

void MO_Lighting::replaceLights(const Lights& lights)
{
    for (const auto& light : _lights)
        light->removeListener(*this);
    _lights.assign(lights.begin(), lights.begin() + static_cast<std::ptrdiff_t>(std::min(lights.size(), kMaxLights)));
    for (const auto& light : _lights)
        light->addListener(*this);
}

QString MO_Lighting::titleOf(const MO_Light& light) const
{
    const QString name = light.values(0.0).name;
    const auto found = std::ranges::find(_lights, &light, &std::shared_ptr<MO_Light>::get);
    return name.isEmpty() ? QCoreApplication::translate("MO_Lighting", "Light %1").arg(found - _lights.begin() + 1)
                          : name;
}

MO_LightingValues MO_Lighting::values(double frame) const
{
    return {.ambientRed = _numbers[AMBIENT_RED].value(frame),
            .ambientGreen = _numbers[AMBIENT_GREEN].value(frame),
            .ambientBlue = _numbers[AMBIENT_BLUE].value(frame),
            .ambientIntensity = _numbers[AMBIENT_INTENSITY].value(frame),
            .highlight = _numbers[HIGHLIGHT].value(frame)};
}

MO_LightRig MO_Lighting::rig(double frame) const
{
    MO_LightRig rig{values(frame), {}};
    for (const auto& light : _lights)
        rig.lights.push_back(light->values(frame));
    return rig;
}

bool MO_Lighting::isNew() const
{
    static const QString xml = MO_Lighting().toXml();
    return toXml() == xml;
}

void MO_Lighting::readXml(const QDomElement& element, QStringList* warnings)
{
    const MO_Lighting fresh;
    for (std::size_t i = 0; i < _numbers.size(); ++i)
        _numbers[i].setState(fresh._numbers[i].state());
    _unknown.clear();
    Lights lights;
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        readChild(child, lights, warnings);
    // An element without lights means that none shines, so the one required light is off.
    if (lights.empty())
        lights.push_back(std::make_shared<MO_Light>(MO_LightValues{.on = element.isNull()}));
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        _unknown.addAttribute(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    setLights(lights);
}

void MO_Lighting::readChild(const QDomElement& element, Lights& lights, QStringList* warnings)
{
    const auto number = std::ranges::find(_numbers, element.tagName(), &AT_DoubleAttr::keyword);
    if (number != _numbers.end()) {
        number->parseXml(element, warnings);
    } else if (element.tagName() == QLatin1String("light") && lights.size() < kMaxLights) {
        lights.push_back(std::make_shared<MO_Light>());
        lights.back()->readXml(element, warnings);
    } else {
        _unknown.addElement(element);
        if (warnings)
            *warnings << QCoreApplication::translate("MO_Scene",
                                                     "<%1> is not understood by this version of the program")
                             .arg(element.tagName());
    }
}

QString MO_Lighting::getXmlElementName() const
{
    return QStringLiteral("lights");
}

void MO_Lighting::writeXmlAttributes(PO_XmlWriter& writer) const
{
    _unknown.writeAttributes(writer);
}

void MO_Lighting::writeXmlSubnodes(PO_XmlWriter& writer) const
{
    for (const AT_DoubleAttr& number : _numbers)
        number.writeXml(writer);
    for (const auto& light : _lights)
        light->writeXml(writer);
    _unknown.writeElements(writer);
}

void MO_Lighting::told(XUTeller&)
{
    tell();
}
