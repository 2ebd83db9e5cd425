// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Surrogates: sources of a value that replaces an attribute's own. The attribute keeps its local value, which is saved
// and counts again when the surrogate is removed.
#pragma once

#include "QuarvelBaseCore/UT_SharedPtr.h"
#include "QuarvelBaseCore/XUTeller.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <optional>

/// The base of all surrogates. Notifies its listeners when its value may have changed.
class QUARVELSCENECORE_EXPORT AT_AttrSurrogate : public UT_ShareBaseSafe, public XUTeller
{
public:
    ~AT_AttrSurrogate() override;
};

/// A surrogate whose value is one number.
class QUARVELSCENECORE_EXPORT AT_ScalarSimpleAttrSurrogate : public AT_AttrSurrogate
{
public:
    ~AT_ScalarSimpleAttrSurrogate() override;

    /// The value at a frame; nothing when there is none at the moment, so that the attribute's local value counts.
    /// Several threads may call it at once.
    virtual std::optional<double> value(double frame) const = 0;
};
