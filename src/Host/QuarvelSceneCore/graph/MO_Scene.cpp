// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The scene: links between modules, links between attributes, and its XML.
#include "QuarvelSceneCore/graph/MO_Scene.h"

#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_AutoPortsNode.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

const QString kElementCamera = QStringLiteral("camera");
const QString kElementGraph = QStringLiteral("graph");
const QString kAttributeFirst = QStringLiteral("firstFrame");
const QString kAttributeLast = QStringLiteral("lastFrame");
const QString kAttributeHeight = QStringLiteral("frameHeight");
const QString kAttributeRate = QStringLiteral("frameRate");

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MO_Scene)
};

void warn(QStringList* warnings, const QString& text)
{
    if (warnings)
        *warnings << text;
}

// What this version does not know of an element, so that it is written back; each of the known elements counts once.
PO_UnknownXml unknownIn(const QDomElement& element, QStringList knownElements, const QStringList& knownAttributes,
                        QStringList* warnings)
{
    PO_UnknownXml unknown;
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        if (knownElements.removeOne(child.tagName()))
            continue;
        unknown.addElement(child);
        warn(warnings, Texts::tr("<%1> is not understood by this version of the program").arg(child.tagName()));
    }
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QString name = attributes.item(i).nodeName();
        if (knownAttributes.contains(name))
            continue;
        unknown.addAttribute(name, attributes.item(i).nodeValue());
        warn(warnings, Texts::tr("\"%1\" is not understood by this version of the program").arg(name));
    }
    return unknown;
}

void readFrames(MO_Scene& scene, const QDomElement& element, QStringList* warnings)
{
    if (PO_intAttribute(element, kPIO_atributeVersion).value_or(MO_Scene::kVersion) > MO_Scene::kVersion)
        warn(warnings, Texts::tr("The scene was saved by a newer version of the program"));
    if (!scene.setFrameRange(PO_intAttribute(element, kAttributeFirst).value_or(1),
                             PO_intAttribute(element, kAttributeLast).value_or(1)))
        warn(warnings, Texts::tr("The scene cannot have the frames that its file names; it has the frames %1 to %2")
                           .arg(scene.firstFrame())
                           .arg(scene.lastFrame()));
    if (!scene.setFrameHeight(PO_doubleAttribute(element, kAttributeHeight).value_or(405.0)))
        warn(warnings, Texts::tr("The height of the frame is not a positive number"));
    if (!scene.setFrameRate(PO_doubleAttribute(element, kAttributeRate).value_or(MO_Scene::kUsualFrameRate)))
        warn(warnings, Texts::tr("The frame rate is not a number from %1 to %2; it stays as it was")
                           .arg(MO_Scene::kSlowest)
                           .arg(MO_Scene::kFastest));
}

} // namespace

MO_Scene::MO_Scene() : _root(std::make_unique<XUGroup>())
{
    _root->setScene(this);
}

MO_Scene::~MO_Scene() = default;

MO_Module* MO_Scene::outputModule() const
{
    for (const auto& module : _root->modules())
        if (module->enabled() && module->isSceneOutput())
            return module.get();
    return nullptr;
}

UT_Result<void> MO_Scene::mayConnect(const MO_Module& source, const MO_Module& target, unsigned inPort,
                                     unsigned outPort)
{
    const MO_Port* const from = source.outPort(outPort);
    if (!from)
        return UT_Error{Texts::tr("\"%1\" has no output port %2").arg(source.instanceName(), QString::number(outPort))};
    if (const MO_Port* const to = target.inPort(inPort))
        return to->mayConnect(*from);
    if (inPort >= target.maxInPorts())
        return UT_Error{Texts::tr("\"%1\" has no input port %2").arg(target.instanceName(), QString::number(inPort))};
    return MO_Port::mayLink(source, target);
}

UT_Result<void> MO_Scene::connect(MO_Module& source, MO_Module& target, unsigned inPort, unsigned outPort)
{
    if (auto possible = mayConnect(source, target, inPort, outPort); !possible)
        return possible;
    while (target.nInPorts() <= inPort)
        target.portManipulator()->insertInPort(target.nInPorts());
    return target.inPort(inPort)->connect(*source.outPort(outPort));
}

void MO_Scene::disconnect(MO_Module& target, unsigned inPort)
{
    if (MO_Port* port = target.inPort(inPort))
        port->disconnect();
}

void MO_Scene::forEachLinked(const std::function<void(AT_SimpleAttr&)>& function) const
{
    const auto visit = [&function](AT_Attr& attr) {
        if (attr.link())
            function(static_cast<AT_SimpleAttr&>(attr)); // no other attribute has a link
    };
    _root->forEachModule(
        [&visit](MO_Module& module) { std::ranges::for_each(module.attrs(), [&](AT_Attr* attr) { visit(*attr); }); });
    visit(truckFactorAttr());
}

void MO_Scene::resolveLinks()
{
    forEachLinked([this](AT_SimpleAttr& attr) { attr.link()->resolve(*this); });
}

void MO_Scene::nodeRenamed(const MO_Node& node)
{
    for (const AT_Attr* attr : node.attrs())
        attr->refreshReaders(*this);
}

// The camera's attributes belong to no node: the node part of their paths is empty.
AT_Attr* MO_Scene::findAttr(const QString& path) const
{
    const QString node = AT_AttrLink::nodeOf(path);
    const QString key = AT_AttrLink::keyOf(path);
    if (node.isEmpty())
        return key == truckFactorAttr().keyword() ? &truckFactorAttr() : nullptr;
    const MO_Module* const module = findModule(node);
    return module ? module->findAttr(key) : nullptr;
}

QString MO_Scene::pathOf(const AT_Attr& attr) const
{
    if (&attr == &truckFactorAttr())
        return AT_AttrLink::makePath(QString(), attr.keyword());
    const MO_Node* const node = attr.node();
    return node && node->sceneCommon() == this ? AT_AttrLink::makePath(node->instanceName(), attr.keyword())
                                               : QString();
}

QString MO_Scene::getXmlElementName() const
{
    return QStringLiteral("scene");
}

void MO_Scene::writeXmlAttributes(PO_XmlWriter& writer) const
{
    writer.attribute(kPIO_atributeVersion, kVersion);
    writer.attribute(kAttributeFirst, firstFrame());
    writer.attribute(kAttributeLast, lastFrame());
    writer.attribute(kAttributeHeight, frameHeight());
    // What every scene had before rates were saved.
    if (frameRate() != kUsualFrameRate)
        writer.attribute(kAttributeRate, frameRate());
    _unknown.writeAttributes(writer);
}

void MO_Scene::writeXmlSubnodes(PO_XmlWriter& writer) const
{
    writer.startElement(kElementCamera);
    _unknownCamera.writeAttributes(writer);
    truckFactorAttr().writeXml(writer);
    _unknownCamera.writeElements(writer);
    writer.endElement();
    if (!lighting().isNew())
        lighting().writeXml(writer);
    _root->writeGraph(writer);
    _unknown.writeElements(writer);
}

UT_Result<void> MO_Scene::readXml(const QDomElement& element, QStringList* warnings)
{
    if (element.tagName() != getXmlElementName())
        return UT_Error{Texts::tr("Line %1: <%2> is not a scene").arg(element.lineNumber()).arg(element.tagName())};
    // Reading the graph can fail, so it is read into a new group first; reading the rest cannot.
    auto root = std::make_unique<XUGroup>();
    if (const QDomElement graph = element.firstChildElement(kElementGraph); !graph.isNull())
        if (auto read = root->readGraph(graph, warnings); !read)
            return read.error();
    const QString lights = lighting().getXmlElementName();
    _unknown =
        unknownIn(element, {kElementGraph, kElementCamera, lights},
                  {kPIO_atributeVersion, kAttributeFirst, kAttributeLast, kAttributeHeight, kAttributeRate}, warnings);
    readFrames(*this, element, warnings);
    readCamera(element.firstChildElement(kElementCamera), warnings);
    lighting().readXml(element.firstChildElement(lights), warnings);
    root->setScene(this);
    _root = std::move(root);
    resolveLinks();
    tell();
    return {};
}

void MO_Scene::readCamera(const QDomElement& camera, QStringList* warnings)
{
    AT_DoubleAttr& truck = truckFactorAttr();
    truck.setLocalValue(1.0);
    truck.setCurve(AT_Curve());
    truck.setSurrogate(nullptr);
    _unknownCamera = unknownIn(camera, {truck.keyword()}, {}, warnings);
    if (const QDomElement factor = camera.firstChildElement(truck.keyword()); !factor.isNull())
        truck.parseXml(factor, warnings);
}
