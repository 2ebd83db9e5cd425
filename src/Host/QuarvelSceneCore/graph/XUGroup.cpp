// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The group: its ports, its modules and their names. XUGroupXml.cpp writes and reads it.
#include "QuarvelSceneCore/graph/XUGroup.h"

#include "QuarvelSceneCore/graph/MO_AbstractModuleVisitor.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"

#include <QCoreApplication>

#include <algorithm>
#include <cassert>

namespace {

// True for a name made unique by a number: "Peg_12" for the base "Peg".
bool isNumbered(const QString& name, const QString& base)
{
    if (!name.startsWith(base + QLatin1Char('_')))
        return false;
    const QStringView number = QStringView(name).mid(base.size() + 1);
    return !number.isEmpty() && std::all_of(number.begin(), number.end(),
                                            [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

const MO_ModuleRegistration<XUGroup> kRegistration;

} // namespace

XUGroup::XUGroup()
    : MO_Module(0)
    , _entry(std::make_unique<MO_GroupBorderModule>(MO_GroupBorderModule::Side::ENTRY))
    , _exit(std::make_unique<MO_GroupBorderModule>(MO_GroupBorderModule::Side::EXIT))
{
    _entry->_group = this;
    _exit->_group = this;
}

XUGroup::~XUGroup()
{
    // Links that are cut during destruction must not notify the scene.
    _scene = nullptr;
    while (!_modules.empty())
        _modules.pop_back();
}

QString XUGroup::Keyword()
{
    return QStringLiteral("GROUP");
}

QString XUGroup::keyword() const
{
    return Keyword();
}

QString XUGroup::baseDisplayName() const
{
    return QCoreApplication::translate("XUGroup", "Group");
}

void XUGroup::accept(MO_AbstractModuleVisitor& visitor)
{
    visitor.visit(*this);
}

MO_Port* XUGroup::addInPort()
{
    MO_Port* const port = addInImagePort();
    if (port)
        _entry->addOutImagePort();
    return port;
}

MO_Port* XUGroup::addOutPort()
{
    MO_Port* const port = addOutImagePort();
    if (port)
        _exit->addInImagePort();
    return port;
}

bool XUGroup::removeLastInPort()
{
    if (nInPorts() == 0)
        return false;
    _entry->dropOutPort(nInPorts() - 1);
    dropInPort(nInPorts() - 1);
    return true;
}

bool XUGroup::removeLastOutPort()
{
    if (nOutPorts() == 0)
        return false;
    _exit->dropInPort(nOutPorts() - 1);
    dropOutPort(nOutPorts() - 1);
    return true;
}

MO_Module& XUGroup::add(std::unique_ptr<MO_Module> module, std::size_t place)
{
    assert(module && !module->group());
    MO_Module& added = *module;
    _modules.insert(_modules.begin() + static_cast<std::ptrdiff_t>(std::min(place, _modules.size())),
                    std::move(module));
    if (added.instanceName().isEmpty())
        added.setInstanceName(added.baseDisplayName());
    added._group = this;
    claimNames(added);
    changed();
    return added;
}

std::unique_ptr<MO_Module> XUGroup::take(MO_Module& module)
{
    const auto found =
        std::find_if(_modules.begin(), _modules.end(), [&](const auto& own) { return own.get() == &module; });
    if (found == _modules.end())
        return nullptr;
    // From the last port down, because cutting the last link removes the automatic ports after it.
    for (unsigned i = module.nInPorts(); i > 0; --i)
        if (MO_Port* port = module.inPort(i - 1))
            port->disconnect();
    for (unsigned i = 0; i < module.nOutPorts(); ++i)
        while (!module.outPort(i)->sinks().empty())
            module.outPort(i)->sinks().back()->disconnect();
    releaseNames(module);
    std::unique_ptr<MO_Module> taken = std::move(*found);
    _modules.erase(found);
    taken->_group = nullptr;
    if (auto* group = dynamic_cast<XUGroup*>(taken.get()))
        for (const auto& inner : group->_modules)
            group->claimNames(*inner);
    changed();
    return taken;
}

MO_Module* XUGroup::findModule(const QString& name) const
{
    MO_Module* const module = outermost()._names.value(name);
    for (const MO_Node* node = module; node; node = node->group())
        if (node->group() == this)
            return module;
    return nullptr;
}

MO_SceneCommon* XUGroup::sceneCommon() const
{
    return _scene ? _scene : MO_Module::sceneCommon();
}

const XUGroup& XUGroup::outermost() const
{
    const XUGroup* group = this;
    while (group->group())
        group = group->group();
    return *group;
}

XUGroup& XUGroup::outermost()
{
    return const_cast<XUGroup&>(std::as_const(*this).outermost());
}

QString XUGroup::claimName(MO_Node& node, const QString& wanted)
{
    auto* const module = dynamic_cast<MO_Module*>(&node);
    if (!module || dynamic_cast<MO_GroupBorderModule*>(module))
        return wanted;
    XUGroup& all = outermost();
    const QString base = wanted.isEmpty() ? node.keyword() : wanted;
    QString current = module->instanceName();
    if (all._names.value(current) == module) {
        if (all._names.value(base, module) != module && isNumbered(current, base))
            return current;
        all.releaseName(current);
    }
    QString name = base;
    if (all._names.contains(name)) {
        int& number = all._nextNumbers[base];
        do
            name = QStringLiteral("%1_%2").arg(base, QString::number(++number));
        while (all._names.contains(name));
    }
    all._names.insert(name, module);
    return name;
}

void XUGroup::claimNames(MO_Module& module)
{
    module._instanceName = claimName(module, module.instanceName());
    auto* const group = dynamic_cast<XUGroup*>(&module);
    if (!group)
        return;
    group->_names.clear();
    group->_nextNumbers.clear();
    for (const auto& inner : group->_modules)
        claimNames(*inner);
}

void XUGroup::releaseNames(MO_Module& module)
{
    outermost().releaseName(module.instanceName());
    if (const auto* group = dynamic_cast<const XUGroup*>(&module))
        for (const auto& inner : group->_modules)
            releaseNames(*inner);
}

// Forgets the number to try first, which would skip the name that has become free.
void XUGroup::releaseName(const QString& name)
{
    _names.remove(name);
    _nextNumbers.remove(name.left(std::max(name.lastIndexOf(QLatin1Char('_')), qsizetype{0})));
}
