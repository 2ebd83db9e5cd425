// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_Node: what all nodes of a graph have in common: a name, an on/off switch, attributes and ports.
//
// Threads: a node, like the whole scene, is changed on one thread while no other thread reads it; while nothing
// changes, any number of threads may read it.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "QuarvelBaseCore/XUTeller.h"
#include "QuarvelPersistentObj/PIO_XmlWritable.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"
#include "QuarvelSceneCore/graph/MO_Port.h"

#include <memory>
#include <vector>

class AT_Attr;
class MO_AutoPortsNode;
class MO_SceneCommon;
class XUGroup;

/// A node of the graph.
class QUARVELSCENECORE_EXPORT MO_Node : public XUListener, public PIO_XmlWritable, public UT_SharedWeakBase
{
public:
    /// The largest number of input or output ports that a node can have.
    static constexpr unsigned kMaxPorts = 10000;

    MO_Node();
    ~MO_Node() override;

    /// The name of the node's kind, in files and programs.
    virtual QString keyword() const = 0;

    /// How the node is used. 0, the default, is the ordinary mode of a node that renders; kinds of nodes may define
    /// others.
    int mode() const { return _mode; }
    void setMode(int mode) { _mode = mode; }

    /// A node that is not enabled passes on what its first input delivers; without inputs it delivers nothing.
    bool enabled() const { return _enabled; }
    void setEnabled(bool enabled);

    /// The node's own name, any text; unique in its scene. Empty only for a node that was never part of a scene.
    const QString& instanceName() const { return _instanceName; }
    /// Renames the node. In a graph, an empty name becomes the keyword, and a name that another node has gets a number
    /// that makes it unique ("Peg", "Peg_1", "Peg_2").
    void setInstanceName(const QString& name);

    /// The group whose graph the node is part of; null when it is part of none.
    XUGroup* group() const { return _group; }
    /// The scene that the node is part of; null when it is part of none.
    virtual MO_SceneCommon* sceneCommon() const;

    /// Adds an attribute, which then belongs to the node.
    ///
    /// @param attr     not null, of a key that the node does not have yet
    /// @param position its place among the attributes; -1 appends
    void registerAttr(AT_Attr* attr, int position = -1);
    /// The attributes, in order.
    std::vector<AT_Attr*> attrs() const;
    /// The attribute with this keyword, or null.
    AT_Attr* findAttr(const QString& keyword) const;

    unsigned nInPorts() const { return static_cast<unsigned>(_inPorts.size()); }
    unsigned nOutPorts() const { return static_cast<unsigned>(_outPorts.size()); }
    /// The input port at an index; null after the last.
    MO_Port* inPort(unsigned index) const;
    /// The output port at an index; null after the last.
    MO_Port* outPort(unsigned index) const;

    /// Adds an input port for pictures after the others; null when there are kMaxPorts.
    MO_Port* addInImagePort();
    /// Adds an output port for pictures after the others; null when there are kMaxPorts.
    MO_Port* addOutImagePort();

    /// How many input ports the node can have: by default the present number; nodes that add ports on demand override
    /// this.
    virtual unsigned maxInPorts() const;
    /// The interface that adds and removes input ports on demand; null for a node whose ports are fixed.
    virtual MO_AutoPortsNode* portManipulator();

    /// An attribute changed; passed on to the scene.
    void told(XUTeller& teller) override;

protected:
    /// One of the node's input ports was linked or cut. Does nothing unless overridden.
    virtual void inPortChanged();

    MO_Port* insertInImagePort(unsigned index);
    /// Cuts the port's links and removes it.
    void dropInPort(unsigned index);
    void dropOutPort(unsigned index);
    /// Notifies the scene, if there is one, that the node changed.
    void changed();

private:
    friend class MO_Port;
    friend class XUGroup;

    int _mode = 0;
    bool _enabled = true;
    QString _instanceName;
    XUGroup* _group = nullptr;
    std::vector<std::unique_ptr<AT_Attr>> _attrs;
    std::vector<std::unique_ptr<MO_Port>> _inPorts;
    std::vector<std::unique_ptr<MO_Port>> _outPorts;
};
