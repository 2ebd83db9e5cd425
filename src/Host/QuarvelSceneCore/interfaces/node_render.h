// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// node_render::PortRenderInfo: what a module is told about each of its inputs when it is asked for its render
// interface.
#pragma once

class MO_Module;
class MO_Port;

namespace node_render {

/// An input port of a module that is about to be rendered.
struct PortRenderInfo
{
    /// The module that delivers the picture (MO_Port::realSrcPort); null when none does.
    MO_Module* sourceModule = nullptr;
    /// The index of the input port.
    int port = 0;
    /// The output port that delivers the picture; null when none does.
    MO_Port* sourcePort = nullptr;
};

} // namespace node_render
