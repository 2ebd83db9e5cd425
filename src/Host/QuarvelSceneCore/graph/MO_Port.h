// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_Port: where a link of the node graph begins or ends. Pictures flow from an output port, the source, to any number
// of input ports; an input port has one source or none.
//
// A group holds a graph of its own, and its ports continue inside it. No link crosses the border of a group in any
// other way.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <vector>

class MO_Module;
class MO_Node;

/// A port of a node. It belongs to its node and is deleted with it, or when the node removes it.
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
    /// The same as a module; null for a node that is not a module.
    MO_Module* module() const;
    /// The position among the node's ports of this kind, from 0.
    unsigned index() const { return _index; }

    /// The output port that this input port is linked to; null when there is none.
    MO_Port* srcPort() const { return _source; }
    /// The input ports that this output port is linked to, in the order in which the links were made.
    const std::vector<MO_Port*>& sinks() const { return _sinks; }
    bool isConnected() const { return _source != nullptr || !_sinks.empty(); }

    /// The output port that delivers the picture of this input port.
    ///
    /// Groups are looked through: where the link leads to a group, the port is found inside, upstream of the group's
    /// exit; where it leads to the surrounding group's entry, it is found outside. Disabled modules are looked through
    /// too: a disabled module passes on what its first input delivers; a disabled leaf, which has no input, delivers
    /// nothing.
    ///
    /// @return null when nothing delivers a picture, and for output ports
    MO_Port* realSrcPort() const;

    /// The same, but disabled modules count like others; only the borders of groups are looked through.
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

    /// Links this input port to a source, replacing its earlier link; nothing changes when mayConnect() refuses.
    UT_Result<void> connect(MO_Port& source);

    /// Cuts the link of an input port; does nothing when it has none.
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
