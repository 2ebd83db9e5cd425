// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_Port: where a link of the node graph begins or ends. Pictures flow from an output port, the source, to any number
// of input ports; an input port has one source or none.
//
// Groups hold graphs of their own: a port of the group continues inside of it. Links never cross the border of a group
// otherwise.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <vector>

class MO_Module;
class MO_Node;

/// A port of a node. It belongs to its node and goes when the node does, or when the node drops it.
class QUARVELSCENECORE_EXPORT MO_Port
{
public:
    enum class Kind
    {
        IN,
        OUT
    };

    /// For nodes, which make their ports.
    MO_Port(MO_Node& node, Kind kind, unsigned index);
    MO_Port(const MO_Port&) = delete;
    MO_Port& operator=(const MO_Port&) = delete;
    /// Cuts the links.
    ~MO_Port();

    Kind kind() const { return _kind; }
    /// The node that owns the port; never null.
    MO_Node* node() const { return _node; }
    /// The same as a module; null for a node that is none.
    MO_Module* module() const;
    /// The position among the node's ports of this kind, from 0.
    unsigned index() const { return _index; }

    /// The output port that this input port is linked to; null when there is none.
    MO_Port* srcPort() const { return _source; }
    /// The input ports that this output port is linked to, in the order in which the links were made.
    const std::vector<MO_Port*>& sinks() const { return _sinks; }
    bool isConnected() const { return _source != nullptr || !_sinks.empty(); }

    /// The output port that really delivers the picture of this input port.
    ///
    /// Groups are looked through: where the link leads to a group, the answer lies behind the group's output inside of
    /// it; where it leads to the border of the group around, it lies outside. So are disabled modules: a disabled
    /// module passes on what its first input delivers; a disabled leaf, which has no input, delivers nothing.
    ///
    /// @return null when nothing delivers a picture, and for output ports
    MO_Port* realSrcPort() const;

    /// The same, but disabled modules are met like others; only the borders of groups are looked through.
    MO_Port* realDisabledSrcPort() const;

    /// Whether an input of the target may be linked to an output of the source. Refused when the two are not in the
    /// same group, and when the link would close a circle.
    ///
    /// @return the reason when it is refused
    static UT_Result<void> mayLink(const MO_Node& source, const MO_Node& target);

    /// Whether connect() would link this port to the source. Refused when the ports are not an input and an output, and
    /// when mayLink() refuses.
    ///
    /// @return the reason when it is refused
    UT_Result<void> mayConnect(const MO_Port& source) const;

    /// Links this input port to a source, in place of the one it has; nothing changes when mayConnect() refuses.
    UT_Result<void> connect(MO_Port& source);

    /// Cuts the link of an input port; nothing happens when it has none.
    void disconnect();

private:
    friend class MO_Node;

    MO_Port* lookThrough(bool alsoDisabled) const;
    void cut();

    MO_Node* _node;
    Kind _kind;
    unsigned _index;
    MO_Port* _source = nullptr;
    std::vector<MO_Port*> _sinks;
};
