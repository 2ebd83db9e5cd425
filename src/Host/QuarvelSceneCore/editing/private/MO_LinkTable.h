// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_LinkTable: all links of one group's graph as a plain value, for restoring them.
#pragma once

#include "QuarvelSceneCore/graph/XUGroup.h"

#include <map>

/// The links of a group, by the input ports that they lead to.
class MO_LinkTable
{
public:
    struct Input
    {
        MO_Module* module;
        unsigned port;

        // The check takes the comparison with 0 that the compiler makes for ours.
        // NOLINTNEXTLINE(modernize-use-nullptr)
        friend auto operator<=>(const Input&, const Input&) = default;
    };
    struct Output
    {
        MO_Module* module;
        unsigned port;

        friend bool operator==(const Output&, const Output&) = default;
    };

    static MO_LinkTable of(const XUGroup& group);

    /// Makes these the group's links. All modules of the table must be in the group. Automatic ports become what they
    /// were when the table was made.
    void restore(const XUGroup& group) const;

    friend bool operator==(const MO_LinkTable&, const MO_LinkTable&) = default;

private:
    std::map<Input, Output> linksTo(MO_Module& module) const;

    std::map<Input, Output> _links;
};
