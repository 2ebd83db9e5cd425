// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The walks over the node graph, one visitor each. A module calls the visitor's operation for its kind, which goes on
// to the modules linked to the input ports.
#include "objects/ObjectDefinitionDiscovery.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/AT_DrawingAttr.h"
#include "QuarvelSceneCore/MO_ElementModule.h"
#include "QuarvelSceneCore/MO_ModuleVisitor.h"

namespace {

/// How many inputs of a module a walk follows.
enum class Follow
{
    ONE_PORT,
    EVERY_PORT
};

/// The module as an object definition; null when it is not one or is not enabled.
ObjectDefinition* asEnabledDefinition(MO_Module& module)
{
    auto* const definition = dynamic_cast<ObjectDefinition*>(&module);
    return definition && definition->enabled() ? definition : nullptr;
}

/// The module that owns a port; null when there is no port.
MO_Module* ownerOf(const MO_Port* port)
{
    return port ? port->module() : nullptr;
}

/// How the collectors go upstream: input ports without a source are skipped.
void followConnectedInputs(const MO_Module& module, MO_AbstractModuleVisitor& visitor, Follow follow)
{
    for (unsigned i = 0; i < module.nInPorts(); ++i) {
        const MO_Port* const port = module.inPort(i);
        MO_Module* const source = port ? ownerOf(port->realDisabledSrcPort()) : nullptr;
        if (!source)
            continue;
        source->accept(visitor);
        if (follow == Follow::ONE_PORT)
            return;
    }
}

/// Finds the definition furthest upstream on the chain of first inputs: each one found replaces the one before.
class ObjectDefinitionModuleVisitor : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;

    void visit(MO_Module& module) override
    {
        if (ObjectDefinition* const found = asEnabledDefinition(module))
            definition = found;
        const MO_Port* const port = module.inPort(0);
        if (MO_Module* const source = port ? ownerOf(port->realSrcPort()) : nullptr)
            source->accept(*this);
    }

    void visit(MO_ElementModule&) override {}
    void visit(Vallorin&, MO_Module&) override {}

    ObjectDefinition* definition = nullptr;
};

/// Collects the numbers of the definitions.
class ObjectDefinitionModuleCollector : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;

    explicit ObjectDefinitionModuleCollector(double atFrame) : frame(atFrame) {}

    void visit(MO_Module& module) override { collect(module, Follow::ONE_PORT); }
    void visit(MO_ElementModule&) override {}
    void visit(Vallorin&, MO_Module& asModule) override { collect(asModule, Follow::EVERY_PORT); }

    std::set<int> takeObjectIds() { return std::move(objectIds); }

private:
    void collect(MO_Module& module, Follow follow)
    {
        if (const ObjectDefinition* const definition = asEnabledDefinition(module))
            objectIds.insert(definition->objectId(frame));
        followConnectedInputs(module, *this, follow);
    }

    std::set<int> objectIds;
    double frame;
};

/// Collects the names of the definitions that give one number.
class ObjectDefinitionModuleNamesCollector : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;

    ObjectDefinitionModuleNamesCollector(int wantedId, double atFrame, const QString& unwantedSuffix)
        : objectId(wantedId), frame(atFrame), suffix(unwantedSuffix)
    {}

    void visit(MO_Module& module) override { collect(module, Follow::ONE_PORT); }
    void visit(MO_ElementModule&) override {}
    void visit(Vallorin&, MO_Module& asModule) override { collect(asModule, Follow::EVERY_PORT); }

    std::set<QString> takeNames() { return std::move(names); }

private:
    void collect(MO_Module& module, Follow follow)
    {
        const ObjectDefinition* const definition = asEnabledDefinition(module);
        if (definition && definition->objectId(frame) == objectId)
            insertName(definition->instanceName());
        followConnectedInputs(module, *this, follow);
    }

    void insertName(QString name)
    {
        if (!suffix.isEmpty())
            name.replace(suffix, QString(), Qt::CaseSensitive);
        names.insert(name);
    }

    int objectId;
    double frame;
    std::set<QString> names;
    QString suffix;
};

/// Finds the elements that a number applies to.
class ConnectedElementsFinder : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;

    ConnectedElementsFinder(int wantedId, double atFrame, std::set<QString>& names)
        : objectId(wantedId), frame(atFrame), elementNames(&names)
    {}

    void visit(MO_Module& module) override { walk(module, Follow::ONE_PORT); }
    void visit(Vallorin&, MO_Module& asModule) override { walk(asModule, Follow::EVERY_PORT); }

    void visit(MO_ElementModule& module) override
    {
        if (currentObjectId != objectId)
            return;
        const AT_DrawingAttr* const drawing = module.drawingAttr();
        if (drawing && module.getDrawingFileExt().toUpper() == QLatin1String("KVR"))
            elementNames->insert(drawing->getElementName());
    }

private:
    void walk(MO_Module& module, Follow follow)
    {
        if (const ObjectDefinition* const definition = asEnabledDefinition(module))
            currentObjectId = definition->objectId(frame);
        followInputs(module, follow);
    }

    /// How this walk goes upstream: an input port without a source ends it. A number applies only to modules upstream
    /// of its definition, so it is restored after each port.
    void followInputs(const MO_Module& module, Follow follow)
    {
        const bool isGlue = module.keyword() == QLatin1String("GLUE");
        for (unsigned i = 0; i < module.nInPorts(); ++i) {
            const MO_Port* const port = module.inPort(i);
            if (!port)
                continue;
            MO_Module* const source = ownerOf(port->realSrcPort());
            if (!source)
                return;

            const int saved = currentObjectId;
            source->accept(*this);
            currentObjectId = saved;
            if (follow == Follow::ONE_PORT && !(isGlue && i == 0))
                return;
        }
    }

    int objectId;
    double frame;
    std::set<QString>* elementNames;
    int currentObjectId = 0;
};

} // namespace

namespace ObjectDefinitionDiscovery {

ObjectDefinition* findObjectDefinition(MO_Module* start)
{
    ObjectDefinitionModuleVisitor visitor;
    if (start)
        start->accept(visitor);
    return visitor.definition;
}

void collectObjectIds(MO_Module* start, double frame, std::set<int>& objectIds)
{
    objectIds.clear();
    if (!start)
        return;
    ObjectDefinitionModuleCollector visitor(frame);
    start->accept(visitor);
    objectIds = visitor.takeObjectIds();
}

void collectObjectDefinitionNames(MO_Module* start, int objectId, double frame, std::set<QString>& names,
                                  const QString& suffix)
{
    // The caller's suffix may be an element of the set that is cleared.
    ObjectDefinitionModuleNamesCollector visitor(objectId, frame, suffix);
    names.clear();
    if (!start)
        return;
    start->accept(visitor);
    names = visitor.takeNames();
}

void findConnectedElements(MO_Module* start, int objectId, double frame, std::set<QString>& elementNames)
{
    elementNames.clear();
    if (!start)
        return;
    ConnectedElementsFinder visitor(objectId, frame, elementNames);
    start->accept(visitor);
}

} // namespace ObjectDefinitionDiscovery
