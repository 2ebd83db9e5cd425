// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectAlgoRenderStage: the stage that turns a rasterised drawing into an input image of an object, with two layers in
// one pixmap: the object's level with the drawing's coverage, and the greys of the colour table with theirs.
#pragma once

#include "MultiStageKvd/MultiStageKvd.h"
#include "node/ObjectColours.h"
#include "node/VallorinRequestHandler.h"

#include <cstdint>
#include <memory>
#include <vector>

/// The stage for one drawing of one object. Immutable: several threads may render through one.
class VALLORIN_EXPORT VallorinRequestHandler::ObjectAlgoRenderStage : public MultiStageKvd::RenderingStage
{
public:
    /// @param frame            the frame of the request
    /// @param objectId         the object's number, not negative
    /// @param scaleByCoverage  whether the greys count in proportion to the drawing's coverage
    /// @param objectLevel      the level of what the drawing covers, usually from 0 to 1
    /// @param colours          the colours that are painted in greys; all others are left out
    ObjectAlgoRenderStage(double frame, std::int32_t objectId, bool scaleByCoverage, double objectLevel,
                          std::shared_ptr<const ObjectColours> colours);
    ~ObjectAlgoRenderStage() override;

    double frame() const { return _frame; }
    std::int32_t objectId() const { return _objectId; }
    bool scaleByCoverage() const { return _scaleByCoverage; }
    double objectLevel() const { return _objectLevel; }
    const std::vector<VallorinAttributes::ColorInformation>& colorInformation() const { return _colours->records(); }

    /// Paints the drawing again, in the greys of the colour table, and merges the greys and the level into the target.
    /// A target that has neither of the two colour formats stays unchanged.
    void render(const MultiStageKvd& drawing, const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const override;

    /// Where all greys are white, the alpha alone is painted, once for both pictures: of the drawing's own colours,
    /// render() reads nothing else.
    bool paint(const MultiStageKvd& drawing, const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const override;

private:
    UT_SharedPtr<CELVEC_Kvd> greysOf(const MultiStageKvd& drawing) const;

    double _frame;
    std::int32_t _objectId;
    bool _scaleByCoverage;
    double _objectLevel;
    std::shared_ptr<const ObjectColours> _colours;
};
