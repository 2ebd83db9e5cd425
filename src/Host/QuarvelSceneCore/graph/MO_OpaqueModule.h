// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_OpaqueModule: stands in for a module of a kind that this program does not know, because a plug-in is missing or a
// newer version made it. It keeps everything that the file says about the module and writes it back; in a render it
// passes on its first input.
#pragma once

#include "QuarvelSceneCore/graph/MO_Module.h"

/// A module of an unknown kind.
class QUARVELSCENECORE_EXPORT MO_OpaqueModule : public MO_Module
{
public:
    /// @param keyword the kind that the file names
    explicit MO_OpaqueModule(const QString& keyword);
    ~MO_OpaqueModule() override;

    /// Adds input ports until there is one at the index. @return whether that was possible
    bool needInPort(unsigned index);
    /// Adds output ports until there is one at the index. @return whether that was possible
    bool needOutPort(unsigned index);

    QString keyword() const override;
    /// The keyword.
    QString baseDisplayName() const override;

private:
    QString _keyword;
};
