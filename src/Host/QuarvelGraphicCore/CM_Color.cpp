// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colours' constructors and destructors, so that their type information exists in one library only.
#include "QuarvelGraphicCore/CM_Color.h"

CM_BaseColorObj::~CM_BaseColorObj() = default;

CM_Color::CM_Color(UT_String name, int colorType, CM_ColorId_t id)
    : CM_BaseColorObj(std::move(name), id), _type(static_cast<enColorType>(colorType))
{}

CM_Color::~CM_Color() = default;

CM_TextureColor::CM_TextureColor(UT_String name, enTextureKind kind, CM_ColorId_t id)
    : CM_BaseColorObj(std::move(name), id), _kind(kind)
{}

CM_TextureColor::~CM_TextureColor() = default;
