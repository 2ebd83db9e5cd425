// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// GR_GraphicOpsColorTransform: what a rasteriser asks about colours while it paints one drawing. The defaults use the
// drawing's palette; subclasses repaint a drawing (in greys, in one colour, selected colours alone) without changing
// it.
//
// The rasteriser makes one per rasterisation and, per art layer and shape, calls in this order: setCurrentArt,
// GetColorObjectEntry with the shape's colour id, GetColorValue with the object it got, and ApplyColorTransform with
// the paint. At the end it calls closingColorTransform once. A paint with alpha 0 applies neither colour nor coverage.
#pragma once

#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelGraphicCore/GR_ArtSelector.h"

#include <QTransform>

#include <memory>
#include <span>

/// Used by one rasterisation, on one thread at a time; several threads at once may call the const functions.
class QUARVELGRAPHICCORE_EXPORT GR_GraphicOpsColorTransform
{
public:
    GR_GraphicOpsColorTransform() = default;
    /// @param palette where colour ids are looked up; with null, no id is known
    explicit GR_GraphicOpsColorTransform(CM_SharedPtr<CM_Palette> palette) : _palette(std::move(palette)) {}
    GR_GraphicOpsColorTransform(const GR_GraphicOpsColorTransform&) = delete;
    GR_GraphicOpsColorTransform& operator=(const GR_GraphicOpsColorTransform&) = delete;
    virtual ~GR_GraphicOpsColorTransform();

    /// The colour object of a shape with this colour id; by default the result of GetColorObject.
    virtual CM_SharedPtr<CM_BaseColorObj> GetColorObjectEntry(const CM_ColorId_t& id);

    /// The colour object of an id; null when the palette does not hold it.
    virtual CM_SharedPtr<CM_BaseColorObj> GetColorObject(const CM_ColorId_t& id);

    /// How texture colours are placed relative to the drawing; by default the identity.
    virtual QTransform getTransformation() const;

    /// The paint of a bitmap's grey level (0 to 255, clamped), for art that stores levels instead of colour ids: that
    /// opaque grey.
    virtual VS_RGBA GetColor(int level) const;

    /// The paint of a colour object; by default its nominal colour, and the transparent paint for a null pointer.
    virtual VS_RGBA GetColorValue(const CM_SharedPtr<CM_BaseColorObj>& color);

    /// True when the colours depend on where in the picture a shape lies, so that no finished part of a picture may be
    /// reused at another place; by default false.
    virtual bool isPositionDependent() const;

    /// True when the transform answers by colour id, so that a rasteriser must not merge shapes of different ids into
    /// one even where their paints agree; by default true.
    virtual bool isNeedColorId() const;

    /// True when applyMatrixTransform moves shapes; by default false.
    virtual bool isAffectsMatrix() const;

    /// True when shapes whose colour GetColorObjectEntry does not find (null) are left out. By default false: such
    /// shapes get the paint that GetColorValue returns for null.
    virtual bool renderSelectedColorsOnly() const;

    /// The transform for the colours inside a texture; null (the default) leaves textures unchanged.
    virtual std::unique_ptr<GR_GraphicOpsColorTransform> CreateTextureColorTransform() const;

    /// Moves a shape when isAffectsMatrix(); by default leaves the matrix unchanged.
    virtual void applyMatrixTransform(QTransform& matrix) const;

    /// The transform whose paints let a pick tell the shapes' colours apart; null (the default) when colours are picked
    /// as painted.
    virtual std::unique_ptr<GR_GraphicOpsColorTransform> toPickingTransform() const;

    /// The last change of a colour, for each type that holds colours; by default none. The overloads for the other
    /// types call the one for VS_RGBA.
    virtual void ApplyColorTransform(VS_RGBA& paint) const;
    virtual void ApplyColorTransform(CM_Rgba& colour) const;
    virtual void ApplyColorTransform(std::span<VS_RGBA> paints) const;
    virtual void ApplyColorTransform(std::span<CM_Rgba> colours) const;

    /// Sets the art layer of the calls that follow.
    virtual void setCurrentArt(GR_Art art);

    /// Identifies the transform's effect: pictures made through transforms with the same id are equal. Null (the
    /// default) means that pictures made through it must not be reused.
    virtual UT_Id cacheId() const;
    /// The same for pictures made through toPickingTransform().
    virtual UT_Id getPickingCacheId() const;

    /// Called when the rasterisation has ended.
    virtual void closingColorTransform();

    /// The art layer that was set last.
    GR_Art currentArt() const { return _currentArt; }

private:
    CM_SharedPtr<CM_Palette> _palette;
    GR_Art _currentArt = GR_Art::UNDERLAY;
};
