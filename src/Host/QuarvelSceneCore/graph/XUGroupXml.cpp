// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Graphs as XML. Modules come first, in order, so that every link finds both of its ends.
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/graph/XUGroup.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

const QString kElementGraph = QStringLiteral("graph");
const QString kElementModule = QStringLiteral("module");
const QString kElementLink = QStringLiteral("link");
const QString kAttributeInPorts = QStringLiteral("inPorts");
const QString kAttributeOutPorts = QStringLiteral("outPorts");
const QString kAttributeFrom = QStringLiteral("from");
const QString kAttributeFromPort = QStringLiteral("fromPort");
const QString kAttributeTo = QStringLiteral("to");
const QString kAttributeToPort = QStringLiteral("toPort");

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(XUGroup)
};

void addWarning(QStringList* warnings, const QDomElement& element, const QString& text)
{
    if (warnings)
        *warnings << Texts::tr("Line %1: %2").arg(element.lineNumber()).arg(text);
}

// Identifies a link of a graph. The length of its first end comes first, because names may contain any characters.
QString linkKey(const MO_Port& source, const MO_Port& target)
{
    const auto end = [](const MO_Port& port) {
        const bool isBorder = dynamic_cast<const MO_GroupBorderModule*>(port.node()) != nullptr;
        return QString::number(port.index()) + (isBorder ? u'|' : u'/') +
               (isBorder ? QString() : port.node()->instanceName());
    };
    const QString from = end(source);
    return QString::number(from.size()) + u'/' + from + end(target);
}

// A module and all that lie in it.
int modulesIn(const MO_Module& module)
{
    int count = 1;
    if (const auto* const group = dynamic_cast<const XUGroup*>(&module))
        group->forEachModule([&count](const MO_Module&) { ++count; });
    return count;
}

int groupsInEachOther(const MO_Module& module)
{
    const auto* const group = dynamic_cast<const XUGroup*>(&module);
    if (!group)
        return 0;
    int most = 0;
    for (const auto& inner : group->modules())
        most = std::max(most, groupsInEachOther(*inner));
    return 1 + most;
}

UT_Result<void> checkExtent(int modules, int groupsInEachOther)
{
    if (modules > XUGroup::kMaxModulesInFile)
        return UT_Error{Texts::tr("the graph would have more than %1 nodes").arg(XUGroup::kMaxModulesInFile),
                        UT_ErrorKind::REFUSED};
    if (groupsInEachOther > XUGroup::kMaxDepthInFile)
        return UT_Error{Texts::tr("more than %1 groups would lie in each other").arg(XUGroup::kMaxDepthInFile),
                        UT_ErrorKind::REFUSED};
    return {};
}

// The port index in a file's text; nothing when it is not an allowed one.
std::optional<unsigned> portIndex(const QDomElement& link, const QString& name)
{
    const int index = PO_intAttribute(link, name).value_or(-1);
    if (index < 0 || index >= static_cast<int>(MO_Node::kMaxPorts))
        return std::nullopt;
    return static_cast<unsigned>(index);
}

} // namespace

void XUGroup::writeXmlAttributes(PO_XmlWriter& writer) const
{
    MO_Module::writeXmlAttributes(writer);
    writer.attribute(kAttributeInPorts, static_cast<int>(nInPorts()));
    writer.attribute(kAttributeOutPorts, static_cast<int>(nOutPorts()));
}

void XUGroup::writeXmlSubnodes(PO_XmlWriter& writer) const
{
    MO_Module::writeXmlSubnodes(writer);
    writeGraph(writer);
}

void XUGroup::writeLinksTo(const MO_Module& target, PO_XmlWriter& writer) const
{
    for (unsigned i = 0; i < target.nInPorts(); ++i) {
        const MO_Port* const source = target.inPort(i)->srcPort();
        if (!source)
            continue;
        const PO_UnknownXml unknown = _unknownLinks.value(linkKey(*source, *target.inPort(i)));
        writer.startElement(kElementLink);
        if (!dynamic_cast<const MO_GroupBorderModule*>(source->node()))
            writer.attribute(kAttributeFrom, source->node()->instanceName());
        writer.attribute(kAttributeFromPort, static_cast<int>(source->index()));
        if (!dynamic_cast<const MO_GroupBorderModule*>(&target))
            writer.attribute(kAttributeTo, target.instanceName());
        writer.attribute(kAttributeToPort, static_cast<int>(i));
        unknown.writeAttributes(writer);
        unknown.writeElements(writer);
        writer.endElement();
    }
}

UT_Result<void> XUGroup::mayBeFiled() const
{
    // The group itself is not in its graph.
    return checkExtent(modulesIn(*this) - 1, groupsInEachOther(*this) - 1);
}

UT_Result<void> XUGroup::mayAdd(const std::vector<const MO_Module*>& modules) const
{
    int count = modulesIn(outermost()) - 1;
    int deepest = 0;
    for (const MO_Module* module : modules) {
        count += modulesIn(*module);
        deepest = std::max(deepest, depth() + groupsInEachOther(*module));
    }
    return checkExtent(count, deepest);
}

// How many groups this group lies in.
int XUGroup::depth() const
{
    int depth = 0;
    for (const XUGroup* around = group(); around; around = around->group())
        ++depth;
    return depth;
}

void XUGroup::writeGraph(PO_XmlWriter& writer) const
{
    writer.startElement(kElementGraph);
    _unknownGraph.writeAttributes(writer);
    for (const auto& module : _modules)
        module->writeXml(writer);
    for (const auto& module : _modules)
        writeLinksTo(*module, writer);
    writeLinksTo(*_exit, writer);
    _unknownGraph.writeElements(writer);
    writer.endElement();
}

bool XUGroup::parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings)
{
    if (name != kAttributeInPorts && name != kAttributeOutPorts)
        return MO_Module::parseXmlAttribute(name, value, warnings);
    const int count = PO_parseInt(value).value_or(-1);
    if (count < 0 || count > static_cast<int>(kMaxPorts))
        return false;
    const auto wanted = static_cast<unsigned>(count);
    if (!mayAddFreePorts(wanted))
        return false;
    const bool inputs = name == kAttributeInPorts;
    while (inputs && nInPorts() < wanted)
        addInPort();
    while (!inputs && nOutPorts() < wanted)
        addOutPort();
    return true;
}

// Unlinked ports cost memory too, and a few bytes of a file can ask for thousands.
bool XUGroup::mayAddFreePorts(unsigned count)
{
    int& left = outermost()._freePortsLeft;
    if (static_cast<int>(count) > left)
        return false;
    left -= static_cast<int>(count);
    return true;
}

bool XUGroup::parseXmlSubnode(const QDomElement& element, QStringList* warnings)
{
    if (element.tagName() != kElementGraph)
        return MO_Module::parseXmlSubnode(element, warnings);
    if (const auto read = readGraph(element, warnings); !read)
        _graphError = read.error();
    return true;
}

UT_Result<void> XUGroup::readGraph(const QDomElement& element, QStringList* warnings)
{
    QHash<QString, MO_Module*> byFileName;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        _unknownGraph.addAttribute(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() == kElementModule) {
            if (auto read = readModule(child, byFileName, warnings); !read)
                return read;
        } else if (child.tagName() != kElementLink) {
            _unknownGraph.addElement(child);
            addWarning(warnings, child, Texts::tr("<%1> is not understood by this version").arg(child.tagName()));
        }
    }
    for (QDomElement link = element.firstChildElement(kElementLink); !link.isNull();
         link = link.nextSiblingElement(kElementLink))
        readLink(link, byFileName, warnings);
    return {};
}

UT_Result<void> XUGroup::readModule(const QDomElement& element, QHash<QString, MO_Module*>& byFileName,
                                    QStringList* warnings)
{
    if (outermost()._names.size() >= kMaxModulesInFile)
        return UT_Error{Texts::tr("Line %1: a graph with more than %2 nodes is not read")
                            .arg(element.lineNumber())
                            .arg(kMaxModulesInFile)};
    const QString type = PO_attribute(element, QStringLiteral("type"));
    if (type == Keyword() && depth() >= kMaxDepthInFile)
        return UT_Error{Texts::tr("Line %1: more than %2 groups in each other are not read")
                            .arg(element.lineNumber())
                            .arg(kMaxDepthInFile)};
    const QString fileName = PO_attribute(element, QStringLiteral("name"));
    std::unique_ptr<MO_Module> made = MO_ModuleFactorySingleton().create(type);
    if (!made) {
        made = std::make_unique<MO_OpaqueModule>(type);
        addWarning(warnings, element,
                   Texts::tr("\"%1\" is of the unknown kind \"%2\"; it is kept as it is").arg(fileName, type));
    }
    made->setInstanceName(fileName);
    // Added to the graph before it is read, so that its inner modules are counted and named with all others.
    MO_Module& module = add(std::move(made));
    if (!byFileName.contains(fileName))
        byFileName.insert(fileName, &module);
    module.componentReader()->readElement(element, warnings);
    if (const auto* group = dynamic_cast<const XUGroup*>(&module); group && group->_graphError)
        return *group->_graphError;
    if (module.instanceName() != fileName)
        addWarning(warnings, element,
                   Texts::tr("A second node \"%1\" is called \"%2\" now").arg(fileName, module.instanceName()));
    return {};
}

void XUGroup::readLink(const QDomElement& element, const QHash<QString, MO_Module*>& byFileName, QStringList* warnings)
{
    const auto end = [&](const QString& name, MO_GroupBorderModule& border) -> MO_Module* {
        return element.hasAttribute(name) ? byFileName.value(PO_attribute(element, name)) : &border;
    };
    MO_Module* const source = end(kAttributeFrom, *_entry);
    MO_Module* const target = end(kAttributeTo, *_exit);
    const auto outPort = portIndex(element, kAttributeFromPort);
    const auto inPort = portIndex(element, kAttributeToPort);
    // Only the ports between those that there are and the link's stay free.
    const auto mayReach = [this](unsigned port, unsigned count) {
        return port <= count || mayAddFreePorts(port - count);
    };
    const bool portsAreFew = target && inPort && mayReach(*inPort, target->nInPorts()) && source && outPort &&
                             mayReach(*outPort, source->nOutPorts());
    if (!portsAreFew) {
        addWarning(warnings, element, Texts::tr("The link leads from or to nowhere and is left out"));
        return;
    }
    if (auto* opaque = dynamic_cast<MO_OpaqueModule*>(source))
        opaque->needOutPort(*outPort);
    if (auto* opaque = dynamic_cast<MO_OpaqueModule*>(target))
        opaque->needInPort(*inPort);
    if (const auto linked = MO_Scene::connect(*source, *target, *inPort, *outPort); !linked)
        addWarning(warnings, element, linked.error().text);
    else
        keepUnknownOfLink(element, *target->inPort(*inPort), warnings);
}

void XUGroup::keepUnknownOfLink(const QDomElement& element, const MO_Port& target, QStringList* warnings)
{
    PO_UnknownXml unknown;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QString name = attributes.item(i).nodeName();
        if (name == kAttributeFrom || name == kAttributeFromPort || name == kAttributeTo || name == kAttributeToPort)
            continue;
        unknown.addAttribute(name, attributes.item(i).nodeValue());
        addWarning(warnings, element, Texts::tr("\"%1\" is not understood by this version").arg(name));
    }
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        unknown.addElement(child);
        addWarning(warnings, child, Texts::tr("<%1> is not understood by this version").arg(child.tagName()));
    }
    if (!unknown.isEmpty())
        _unknownLinks.insert(linkKey(*target.srcPort(), target), unknown);
}
