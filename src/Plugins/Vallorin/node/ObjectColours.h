// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colour table of a node, decoded once for all of its drawings. A table of its own for each drawing would take time
// and memory in the product of the numbers of objects and colours.
#pragma once

#include "VallorinExport.h"
#include "parameters/LatestValue.h"
#include "parameters/VallorinAttributes.h"
#include "render/DepthComputationCelColorTransform.h"

#include <memory>
#include <vector>

/// A decoded colour table, and the transform that repaints drawings in its greys. Immutable: any number of drawings and
/// threads may share it.
class VALLORIN_EXPORT ObjectColours
{
public:
    explicit ObjectColours(std::vector<VallorinAttributes::ColorInformation> records);
    /// @param table the text of a node's colour table
    explicit ObjectColours(const QString& table);

    const std::vector<VallorinAttributes::ColorInformation>& records() const { return _records; }
    const UT_SharedPtr<VallorinLib::DepthComputationCelColorTransform>& greys() const { return _greys; }

private:
    std::vector<VallorinAttributes::ColorInformation> _records;
    UT_SharedPtr<VallorinLib::DepthComputationCelColorTransform> _greys;
};

/// The colours of the table that was decoded last. A node is asked for them at every input. Any number of threads may
/// ask at once.
class VALLORIN_EXPORT LatestColours
{
public:
    /// @param table the text of a node's colour table
    std::shared_ptr<const ObjectColours> of(const QString& table) const;

private:
    LatestValue<std::shared_ptr<const ObjectColours>> _latest;
};
