// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node: its name, its attributes and the lists of its ports.
#include "QuarvelSceneCore/graph/MO_Node.h"

#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "QuarvelSceneCore/graph/XUGroup.h"

#include <cassert>

MO_Node::MO_Node() = default;

MO_Node::~MO_Node() = default;

void MO_Node::setEnabled(bool enabled)
{
    if (_enabled == enabled)
        return;
    _enabled = enabled;
    changed();
}

void MO_Node::setInstanceName(const QString& name)
{
    const QString claimed = _group ? _group->claimName(*this, name) : name;
    if (_instanceName == claimed)
        return;
    _instanceName = claimed;
    if (MO_SceneCommon* scene = sceneCommon())
        scene->nodeRenamed(*this);
    changed();
}

MO_SceneCommon* MO_Node::sceneCommon() const
{
    return _group ? _group->sceneCommon() : nullptr;
}

void MO_Node::registerAttr(AT_Attr* attr, int position)
{
    assert(attr && !findAttr(attr->keyword()));
    std::unique_ptr<AT_Attr> owned(attr);
    const bool append = position < 0 || static_cast<std::size_t>(position) >= _attrs.size();
    _attrs.insert(append ? _attrs.end() : _attrs.begin() + position, std::move(owned));
    attr->setNode(this);
    attr->addListener(*this);
    changed();
}

std::vector<AT_Attr*> MO_Node::attrs() const
{
    std::vector<AT_Attr*> attrs;
    attrs.reserve(_attrs.size());
    for (const auto& attr : _attrs)
        attrs.push_back(attr.get());
    return attrs;
}

AT_Attr* MO_Node::findAttr(const QString& keyword) const
{
    for (const auto& attr : _attrs)
        if (attr->keyword() == keyword)
            return attr.get();
    return nullptr;
}

MO_Port* MO_Node::inPort(unsigned index) const
{
    return index < _inPorts.size() ? _inPorts[index].get() : nullptr;
}

MO_Port* MO_Node::outPort(unsigned index) const
{
    return index < _outPorts.size() ? _outPorts[index].get() : nullptr;
}

MO_Port* MO_Node::addInImagePort()
{
    return insertInImagePort(nInPorts());
}

MO_Port* MO_Node::addOutImagePort()
{
    if (nOutPorts() >= kMaxPorts)
        return nullptr;
    _outPorts.push_back(std::make_unique<MO_Port>(*this, MO_Port::Kind::OUT, nOutPorts()));
    changed();
    return _outPorts.back().get();
}

unsigned MO_Node::maxInPorts() const
{
    return nInPorts();
}

MO_AutoPortsNode* MO_Node::portManipulator()
{
    return nullptr;
}

void MO_Node::told(XUTeller&)
{
    changed();
}

void MO_Node::inPortChanged() {}

MO_Port* MO_Node::insertInImagePort(unsigned index)
{
    if (nInPorts() >= kMaxPorts)
        return nullptr;
    const unsigned place = std::min(index, nInPorts());
    _inPorts.insert(_inPorts.begin() + place, std::make_unique<MO_Port>(*this, MO_Port::Kind::IN, place));
    for (unsigned i = place + 1; i < nInPorts(); ++i)
        _inPorts[i]->_index = i;
    changed();
    return _inPorts[place].get();
}

void MO_Node::dropInPort(unsigned index)
{
    assert(index < nInPorts());
    _inPorts.erase(_inPorts.begin() + index);
    for (unsigned i = index; i < nInPorts(); ++i)
        _inPorts[i]->_index = i;
    changed();
}

void MO_Node::dropOutPort(unsigned index)
{
    assert(index < nOutPorts());
    _outPorts.erase(_outPorts.begin() + index);
    for (unsigned i = index; i < nOutPorts(); ++i)
        _outPorts[i]->_index = i;
    changed();
}

void MO_Node::changed()
{
    if (MO_SceneCommon* scene = sceneCommon())
        scene->nodeChanged();
}
