// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colours of a palette. Every kind has an identifier, a name and a nominal colour, which stands for it where one
// plain colour is needed. CM_Color is a solid colour, CM_TextureColor any colour that varies from place to place.
#pragma once

#include "QuarvelGraphicCore/CM_ColorId.h"
#include "QuarvelGraphicCore/CM_Rgba.h"
#include "QuarvelGraphicCore/QuarvelGraphicCoreExport.h"

/// A colour of any kind. To be changed only while no other thread reads it.
class QUARVELGRAPHICCORE_EXPORT CM_BaseColorObj : public UT_ShareBaseSafe
{
public:
    CM_BaseColorObj(UT_String name, CM_ColorId_t id) : _name(std::move(name)), _id(id) {}
    ~CM_BaseColorObj() override;

    const UT_String& GetColorName() const { return _name; }
    void SetColorName(UT_String name) { _name = std::move(name); }
    /// Null for a colour that belongs to no palette.
    const CM_ColorId_t& GetColorId() const { return _id; }

    /// The one plain colour that stands for this one.
    const CM_Rgba& GetNominalColor() const { return _nominal; }
    void SetNominalColor(const CM_Rgba& colour) { _nominal = colour; }

private:
    UT_String _name;
    CM_ColorId_t _id;
    CM_Rgba _nominal;
};

/// A solid colour.
class QUARVELGRAPHICCORE_EXPORT CM_Color : public CM_BaseColorObj
{
public:
    /// How a solid colour is meant to be used.
    enum enColorType
    {
        NORMAL_COLOR = 0, ///< paints areas and lines
        GUIDE_COLOR = 1   ///< marks construction lines; painted like any other colour
    };

    /// @param colorType a value of enColorType
    CM_Color(UT_String name, int colorType, CM_ColorId_t id = CM_ColorId_t());
    ~CM_Color() override;

    enColorType GetColorType() const { return _type; }

private:
    enColorType _type;
};

/// A colour that varies from place to place (a gradient, a picture, a pattern). Its nominal colour is its average.
class QUARVELGRAPHICCORE_EXPORT CM_TextureColor : public CM_BaseColorObj
{
public:
    enum enTextureKind
    {
        GRADIENT_TEXTURE = 0,
        PICTURE_TEXTURE = 1,
        PATTERN_TEXTURE = 2
    };

    CM_TextureColor(UT_String name, enTextureKind kind, CM_ColorId_t id);
    ~CM_TextureColor() override;

    enTextureKind GetTextureKind() const { return _kind; }

private:
    enTextureKind _kind;
};
