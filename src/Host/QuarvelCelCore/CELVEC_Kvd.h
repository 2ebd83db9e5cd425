// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CELVEC_Kvd: a vector drawing, shapes on art layers, each painted in a palette colour, and how it becomes pixels.
//
// Rasterising computes exact areas, in 256 levels of coverage a pixel, and paints the shapes in their order, art layer
// by art layer. The result is associated colour: red, green and blue multiplied by alpha.
#pragma once

#include "QuarvelCelCore/CELVEC_AlphaPlane.h"
#include "QuarvelCelCore/CELVEC_RenderArgs.h"
#include "QuarvelCelCore/CEL_ColorTransform.h"
#include "QuarvelCelCore/CEL_CoveragePlane.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelGraphicCore/GR_ArtSelector.h"

#include <QImage>
#include <QPainterPath>

#include <memory>
#include <optional>
#include <span>
#include <vector>

/// A closed area of one colour. The path carries its own fill rule.
struct CELVEC_Shape
{
    QPainterPath path;                     ///< in the drawing's units, y down
    CM_ColorId_t color;                    ///< the palette colour that it is painted with
    double opacity = 1.0;                  ///< 0 to 1, times the colour's own alpha
    std::optional<QPainterPath> clip = {}; ///< limits the painted area; in the drawing's units
    /// A sprite's pixels, painted in place of the plain colour: pixels with coverage, stretched over the path's
    /// bounding rectangle. Null for most shapes. With a colour transform, the picture's coverage is painted in the
    /// transform's colour.
    QImage picture = {};

    friend bool operator==(const CELVEC_Shape&, const CELVEC_Shape&) = default;
};

/// A vector drawing.
///
/// Shapes are shared between a drawing and the results of shareForRendering(), and copied when one of them changes, so
/// a drawing may be edited while another thread renders a shared one. A drawing itself belongs to one thread at a time.
class QUARVELCELCORE_EXPORT CELVEC_Kvd : public CEL_Representation
{
public:
    /// @param palette where the shapes' colours are looked up; with null, only a colour transform makes shapes visible
    explicit CELVEC_Kvd(CM_SharedPtr<CM_Palette> palette = nullptr);
    ~CELVEC_Kvd() override;

    const CM_SharedPtr<CM_Palette>& palette() const { return _palette; }

    /// Puts a shape on top of an art layer.
    void addShape(GR_Art art, CELVEC_Shape shape);

    /// The shapes of an art layer, in the order of painting.
    virtual std::span<const CELVEC_Shape> shapes(GR_Art art) const;

    /// A drawing of the same shapes with an art selector and a colour transform of its own, which start as copies of
    /// this drawing's.
    virtual UT_SharedPtr<CELVEC_Kvd> shareForRendering() const;

    /// A drawing of the same shapes whose colours are looked up in another palette.
    virtual UT_SharedPtr<CELVEC_Kvd> withPalette(const CM_SharedPtr<CM_Palette>& palette) const;

    /// Chooses the art layers that are rendered.
    void setArtSelector(const GR_ArtSelector& selector);
    const GR_ArtSelector& artSelector() const { return _selector; }

    /// Paints the drawing in other colours than its palette's; null goes back to the palette's.
    void setColorTransform(UT_SharedPtr<CEL_ColorTransform> transform);
    const UT_SharedPtr<CEL_ColorTransform>& colorTransform() const { return _transform; }

    /// Rasterises the drawing.
    ///
    /// @param target a pixmap in one of the two colour formats, made for args.size and args.canvas. Its allocated
    /// rectangle becomes the wanted pixels that shapes may touch; its earlier pixels are lost. A target of another
    /// format stays empty.
    virtual void render(const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const;

    /// Paints the coverage that render() makes in 16 bits over the coverage of what lies below, or cuts it out, without
    /// a picture in between. A class that overrides render() overrides this as well where it changes the coverage.
    virtual void addCoverage(const CELVEC_RenderArgs& args, CEL_CoverageStep step, CEL_CoveragePlane& coverage) const;

    /// The allocated rectangle that render() makes, found without painting, so that painting can wait
    /// (CEL_DeferredPixels). A class that overrides render() overrides this as well where it changes the rectangle.
    ///
    /// @return nothing where only painting finds it, as with a colour transform, which may depend on being asked once
    virtual std::optional<Math::Box2di> renderedRect(const CELVEC_RenderArgs& args) const;

    /// Paints the alpha that render() gives this drawing and another one, without colours, if the other is this one in
    /// opaque white: then all channels of its pixels are their alpha. A class that overrides render() overrides this as
    /// well where it changes pixels.
    ///
    /// @param white a drawing of this one's class with a colour transform
    /// @return null where the other has other shapes or paints, where shapes have pictures, and where this drawing has
    /// a colour transform; nothing is painted then
    virtual std::unique_ptr<CELVEC_AlphaPlane> sharedAlpha(const CELVEC_RenderArgs& args,
                                                           const CELVEC_Kvd& white) const;

protected:
    CELVEC_Kvd(const CELVEC_Kvd&);
    /// addCoverage() by way of render(), for classes that change its pixels.
    void addRenderedCoverage(const CELVEC_RenderArgs& args, CEL_CoverageStep step, CEL_CoveragePlane& coverage) const;
    void setPalette(const CM_SharedPtr<CM_Palette>& palette) { _palette = palette; }

private:
    struct Geometry;

    std::unique_ptr<GR_GraphicOpsColorTransform> colours() const;

    CM_SharedPtr<CM_Palette> _palette;
    std::shared_ptr<Geometry> _geometry;
    GR_ArtSelector _selector;
    UT_SharedPtr<CEL_ColorTransform> _transform;
};
