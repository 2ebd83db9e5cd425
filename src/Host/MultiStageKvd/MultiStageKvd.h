// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MultiStageKvd: a vector drawing that is rasterised in stages. First the embedded drawing (the primary one) is painted
// as usual; then every stage, in the order in which it was added, works on the pixels. To other code it is a vector
// drawing like any other, rasterised when pixels are requested.
#pragma once

#include "MultiStageKvd/MultiStageKvdExport.h"
#include "QuarvelCelCore/CELVEC_Kvd.h"

/// A vector drawing with rendering stages.
class MULTISTAGEKVD_EXPORT MultiStageKvd : public CELVEC_Kvd
{
public:
    /// A step on the pixels of a multi-stage drawing. Stages are shared and immutable once added: several threads may
    /// run the same one at once.
    class MULTISTAGEKVD_EXPORT RenderingStage : public UT_ShareBaseSafe
    {
    public:
        ~RenderingStage() override;

        /// Works on the pixels; leaves the allocated rectangle as it is.
        ///
        /// @param drawing the drawing that is rendered; target holds what its primary() painted
        /// @param args    how it is rendered
        /// @param target  the pixels after the primary drawing and the stages before this one
        virtual void render(const MultiStageKvd& drawing, const CELVEC_RenderArgs& args,
                            CEL_PixmapArea& target) const = 0;

        /// For the first stage: makes the pixels that painting the primary drawing and render() would make, if it can
        /// do so for less. It is asked before anything is painted.
        ///
        /// @param target as CELVEC_Kvd::render() gets it
        /// @return whether it did; otherwise the target is as it was
        virtual bool paint(const MultiStageKvd& drawing, const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const;
    };

    /// Embeds a drawing; there are no stages yet.
    static UT_SharedPtr<MultiStageKvd> embed(UT_SharedPtr<CELVEC_Kvd> primary);
    ~MultiStageKvd() override;

    /// Adds a stage after the existing ones.
    void addStage(UT_SharedPtr<RenderingStage> stage);

    /// The drawing that is embedded.
    const UT_SharedPtr<CELVEC_Kvd>& primary() const { return _primary; }

    std::span<const CELVEC_Shape> shapes(GR_Art art) const override;
    UT_SharedPtr<CELVEC_Kvd> shareForRendering() const override;
    void render(const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const override;
    void addCoverage(const CELVEC_RenderArgs& args, CEL_CoverageStep step, CEL_CoveragePlane& coverage) const override;
    /// The primary drawing's: stages work on the pixels that are there.
    std::optional<Math::Box2di> renderedRect(const CELVEC_RenderArgs& args) const override;
    /// None: what stages make is no painting.
    std::unique_ptr<CELVEC_AlphaPlane> sharedAlpha(const CELVEC_RenderArgs& args,
                                                   const CELVEC_Kvd& white) const override;

private:
    explicit MultiStageKvd(UT_SharedPtr<CELVEC_Kvd> primary);
    MultiStageKvd(const MultiStageKvd&);

    UT_SharedPtr<CELVEC_Kvd> _primary;
    std::vector<UT_SharedPtr<RenderingStage>> _stages;
};
