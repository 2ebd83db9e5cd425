// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The palette's list of colours and its index by identifier, kept consistent.
#include "QuarvelGraphicCore/CM_Palette.h"

CM_Palette::CM_Palette(UT_String name, UT_Id id) : _id(id), _name(std::move(name)) {}

CM_Palette::~CM_Palette() = default;

bool CM_Palette::addColor(const CM_SharedPtr<CM_BaseColorObj>& color)
{
    if (!color || color->GetColorId().isNull() || !_byId.emplace(color->GetColorId(), color).second)
        return false;
    _colors.push_back(color);
    return true;
}

void CM_Palette::removeColor(const CM_ColorId_t& id)
{
    if (_byId.erase(id) == 0)
        return;
    std::erase_if(_colors, [&](const auto& color) { return color->GetColorId() == id; });
}

CM_SharedPtr<CM_BaseColorObj> CM_Palette::findColor(const CM_ColorId_t& id) const
{
    const auto found = _byId.find(id);
    return found == _byId.end() ? nullptr : found->second;
}
