// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Links: making and cutting them, refusing circles, and finding the port that delivers a picture.
#include "QuarvelSceneCore/graph/MO_Port.h"

#include "QuarvelSceneCore/graph/XUGroup.h"

#include <QCoreApplication>

#include <algorithm>
#include <unordered_set>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MO_Port)
};

bool feedsAnything(const MO_Node& node)
{
    for (unsigned i = 0; i < node.nOutPorts(); ++i)
        if (node.outPort(i)->isConnected())
            return true;
    return false;
}

// True when the picture of the node downstream depends on that of the other node, or both are the same.
bool isUpstream(const MO_Node* node, const MO_Node& downstream)
{
    if (node != &downstream && !feedsAnything(*node))
        return false;
    std::unordered_set<const MO_Node*> seen;
    std::vector<const MO_Node*> open{&downstream};
    while (!open.empty()) {
        const MO_Node* next = open.back();
        open.pop_back();
        if (next == node)
            return true;
        if (!seen.insert(next).second)
            continue;
        for (unsigned i = 0; i < next->nInPorts(); ++i)
            if (const MO_Port* source = next->inPort(i)->srcPort())
                open.push_back(source->node());
    }
    return false;
}

} // namespace

MO_Port::MO_Port(MO_Node& node, Kind kind, unsigned index) : _node(&node), _kind(kind), _index(index) {}

MO_Port::~MO_Port()
{
    cut();
    while (!_sinks.empty())
        _sinks.back()->disconnect();
}

MO_Module* MO_Port::module() const
{
    return dynamic_cast<MO_Module*>(_node);
}

MO_Port* MO_Port::realSrcPort() const
{
    return lookThrough(true);
}

MO_Port* MO_Port::realDisabledSrcPort() const
{
    return lookThrough(false);
}

MO_Port* MO_Port::lookThrough(bool alsoDisabled) const
{
    const MO_Port* input = this;
    while (input && input->_source) {
        MO_Port* const source = input->_source;
        const MO_Node* const node = source->node();
        if (const auto* border = dynamic_cast<const MO_GroupBorderModule*>(node))
            input = border->group()->inPort(source->index());
        else if (alsoDisabled && !node->enabled())
            input = node->inPort(0);
        else if (const auto* group = dynamic_cast<const XUGroup*>(node))
            input = group->exit().inPort(source->index());
        else
            return source;
    }
    return nullptr;
}

UT_Result<void> MO_Port::mayLink(const MO_Node& source, const MO_Node& target)
{
    if (target.group() != source.group())
        return UT_Error{Texts::tr("A link cannot cross the border of a group; use a port of the group")};
    if (isUpstream(&target, source))
        return UT_Error{Texts::tr("\"%1\" already depends on \"%2\"; the link would close a circle")
                            .arg(source.instanceName(), target.instanceName())};
    return {};
}

UT_Result<void> MO_Port::mayConnect(const MO_Port& source) const
{
    if (_kind != Kind::IN || source._kind != Kind::OUT)
        return UT_Error{Texts::tr("A link leads from an output port to an input port")};
    return mayLink(*source._node, *_node);
}

UT_Result<void> MO_Port::connect(MO_Port& source)
{
    if (auto possible = mayConnect(source); !possible)
        return possible;
    if (_source == &source)
        return {};
    cut();
    _source = &source;
    source._sinks.push_back(this);
    MO_Node* const node = _node;
    node->inPortChanged();
    node->changed();
    return {};
}

void MO_Port::disconnect()
{
    if (!_source)
        return;
    cut();
    // The node may delete this port, so its members are not used from here on.
    MO_Node* const node = _node;
    node->inPortChanged();
    node->changed();
}

void MO_Port::cut()
{
    if (!_source)
        return;
    auto& sinks = _source->_sinks;
    sinks.erase(std::find(sinks.begin(), sinks.end(), this));
    _source = nullptr;
}
