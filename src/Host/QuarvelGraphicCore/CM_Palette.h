// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CM_Palette: a named, ordered set of colours, each found by its identifier.
#pragma once

#include "QuarvelGraphicCore/CM_Color.h"

#include <map>
#include <vector>

/// A palette. It holds each colour identifier at most once. To be changed only while no other thread reads it.
class QUARVELGRAPHICCORE_EXPORT CM_Palette : public UT_ShareBaseSafe
{
public:
    explicit CM_Palette(UT_String name, UT_Id id = UT_Id::create());
    ~CM_Palette() override;

    const UT_Id& GetId() const { return _id; }
    const UT_String& GetName() const { return _name; }
    void SetName(UT_String name) { _name = std::move(name); }

    /// The colours in the palette's own order.
    const std::vector<CM_SharedPtr<CM_BaseColorObj>>& colors() const { return _colors; }

    /// Appends a colour.
    ///
    /// @return false, and nothing changes, when the colour is null, or its identifier is null or in the palette already
    bool addColor(const CM_SharedPtr<CM_BaseColorObj>& color);

    /// Removes the colour with this identifier; does nothing when there is none.
    void removeColor(const CM_ColorId_t& id);

    /// The colour with this identifier, or null.
    CM_SharedPtr<CM_BaseColorObj> findColor(const CM_ColorId_t& id) const;

private:
    UT_Id _id;
    UT_String _name;
    std::vector<CM_SharedPtr<CM_BaseColorObj>> _colors;
    std::map<CM_ColorId_t, CM_SharedPtr<CM_BaseColorObj>> _byId;
};
