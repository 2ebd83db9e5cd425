// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CEL_Cel: what travels along the links of the node graph, a picture (as pixels or as a vector drawing) with messages
// attached.
#pragma once

#include "QuarvelCelCore/CELVEC_RenderArgs.h"
#include "QuarvelCelCore/CEL_Message.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <map>
#include <optional>

class CELVEC_Kvd;
class CEL_Cel;

/// Holds a cel, or nothing.
using CA_CelRef = UT_SharedPtr<CEL_Cel>;

/// A picture with its messages. An empty cel has no picture.
///
/// Cels are built by one thread and then only read.
class QUARVELCELCORE_EXPORT CEL_Cel : public UT_ShareBaseSafe
{
public:
    CEL_Cel();
    ~CEL_Cel() override;

    /// Gives the cel its picture, replacing the one it had; null makes it empty.
    void setRepresentation(UT_SharedPtr<CEL_Representation> representation);

    /// The picture as pixels; null when it is not a pixmap.
    UT_SharedPtr<CEL_PixmapArea> pixmap() const;

    /// The best of the cel's vector representations; null when there is none.
    UT_SharedPtr<CELVEC_Kvd> findBestVectorRepresentation() const;

    bool isEmpty() const { return !_representation; }

    /// Sets how a vector picture becomes pixels: its place, resolution and extent. The renderer sets it before it
    /// delivers the cel; without it, a vector picture cannot be converted.
    void setRenderArgs(const CELVEC_RenderArgs& args);
    /// What was set; nothing for a cel that was made of pixels.
    const std::optional<CELVEC_RenderArgs>& renderArgs() const { return _renderArgs; }

    /// The cel with its picture as pixels of a format: vectors are rasterised, pixels converted. Messages are copied
    /// along. Rasterising may wait until a pixel is asked for (CEL_PixmapArea::makePixels).
    ///
    /// @param format a value of CEL_Format
    /// @return this cel itself when there is nothing to convert; an empty cel when it cannot be converted to that
    /// format
    CA_CelRef convertTo(int format);

    /// A converted cel with its own pixels, which may be written.
    CA_CelRef getWorkingCopy(int format);

    /// Attaches a message, replacing the one under the same key.
    void addMessage(const UT_DynKey& key, UT_SharedPtr<CEL_Message> message);
    /// The message under a key; null when there is none.
    UT_SharedPtr<CEL_Message> findMessage(const UT_DynKey& key) const;

private:
    UT_SharedPtr<CEL_PixmapArea> makePixmap(int format) const;

    UT_SharedPtr<CEL_Representation> _representation;
    std::map<const UT_DynKey*, UT_SharedPtr<CEL_Message>> _messages;
    std::optional<CELVEC_RenderArgs> _renderArgs;
};
