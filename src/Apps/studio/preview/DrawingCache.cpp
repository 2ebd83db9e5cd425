// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which drawings are visible depends on the links of a normal-map node and on whether it is enabled (VisibleDrawing.h),
// but not on its values, and not on tilts and rims, which are done to objects after the node rendered them. So these
// values count only if another attribute reads one.
#include "studio/preview/DrawingCache.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_GroupBorderModule.h"
#include "jobs/frames/FrameState.h"
#include "jobs/shown/NormalMapNode.h"

#include <QDataStream>

#include <algorithm>
#include <array>

namespace {

bool readsAnother(const MO_Scene& scene)
{
    bool reads = scene.truckFactorAttr().link() != nullptr;
    scene.root().forEachModule([&](const MO_Module& module) {
        for (const AT_Attr* const attr : module.attrs())
            reads = reads || attr->link();
    });
    return reads;
}

void addLinks(const MO_Module& target, QDataStream& out)
{
    for (unsigned i = 0; i < target.nInPorts(); ++i) {
        const MO_Port* const source = target.inPort(i)->srcPort();
        out << (source ? source->node()->instanceName() : QStringLiteral("/")) << (source ? source->index() : 0U);
    }
}

// Whether the drawing depends on an attribute that no other one reads.
bool isDrawn(const MO_Module& module, const AT_Attr& attr)
{
    if (NormalMapNode::is(module))
        return false;
    const auto* const object = dynamic_cast<const ObjectDefinition*>(&module);
    if (!object)
        return true;
    const std::array<const AT_Attr*, 4> undrawn{object->tiltX(), object->tiltY(), object->rimBevel(),
                                                object->rimHeight()};
    return std::ranges::find(undrawn, &attr) == undrawn.end();
}

} // namespace

QByteArray drawingGraphOf(const MO_Scene& scene, const QString& shown)
{
    const bool allCount = readsAnother(scene);
    QByteArray graph;
    QDataStream out(&graph, QIODevice::WriteOnly);
    out << shown << scene.frameHeight() << scene.truckFactorAttr().toXml();
    scene.root().forEachModule([&](const MO_Module& module) {
        const auto* const group = dynamic_cast<const XUGroup*>(&module);
        out << module.keyword() << module.instanceName() << module.enabled();
        // The modules inside a group are visited separately.
        const bool hasUndrawn = NormalMapNode::is(module) || dynamic_cast<const ObjectDefinition*>(&module);
        if (!group && hasUndrawn && !allCount) {
            for (const AT_Attr* const attr : module.attrs())
                if (isDrawn(module, *attr))
                    out << attr->toXml();
        } else if (!group) {
            out << module.toXml();
        }
        out << (module.group() ? module.group()->instanceName() : QString());
        addLinks(module, out);
        if (group)
            addLinks(group->exit(), out);
    });
    return graph;
}

QByteArray drawingFrameOf(const MO_Scene& scene, double frame)
{
    const bool allCount = readsAnother(scene);
    return frameStateOf(scene, frame, [allCount](const MO_Module& module, const AT_Attr& attr) {
        return allCount || isDrawn(module, attr);
    });
}

QByteArray colourTablesOf(const MO_Scene& scene)
{
    QByteArray tables;
    QDataStream out(&tables, QIODevice::WriteOnly);
    scene.root().forEachModule([&](MO_Module& module) {
        if (NormalMapNode::is(module))
            out << module.instanceName() << colourTableText(NormalMapNode(module).colours());
    });
    return tables;
}

const PaintedDrawing* DrawingCache::find(const DrawingState& state, const QSize& size)
{
    const auto found =
        std::ranges::find_if(_entries, [&](const Entry& entry) { return entry.size == size && entry.state == state; });
    if (found == _entries.end())
        return nullptr;
    _entries.splice(_entries.begin(), _entries, found);
    return &_entries.front().drawing;
}

void DrawingCache::keep(const DrawingState& state, const QSize& size, const PaintedDrawing& drawing)
{
    _entries.push_front({state, size, drawing});
    if (_entries.size() > kMost)
        _entries.pop_back();
}

RD_KeptInputs& DrawingCache::inputsFor(const DrawingState& state, const QByteArray& colourTables)
{
    if (state != _inputsState || colourTables != _inputsTables)
        _inputs.clear();
    _inputsState = state;
    _inputsTables = colourTables;
    return _inputs;
}
