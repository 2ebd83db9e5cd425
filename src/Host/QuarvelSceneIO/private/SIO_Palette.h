// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Palettes as files:
//
//     <palette id="00000000000000a1" name="Hero" version="1">
//       <colour alpha="255" blue="30" green="20" id="00000000000000c1" kind="solid" name="Skin" red="10"
//               type="normal"/>
//     </palette>
#pragma once

#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelSceneIO/private/SIO_XmlContext.h"

#include <map>

/// A loaded palette, with the unknown parts that a newer version wrote.
class SIO_Palette : public CM_Palette
{
public:
    struct ColourExtras
    {
        QString kind; ///< the unknown kind that the file has for a colour; empty for known kinds
        QString type; ///< the type as written in the file, if it must be kept because it is unknown; else empty
        PO_UnknownXml unknown;
    };

    using CM_Palette::CM_Palette;
    ~SIO_Palette() override;

    PO_UnknownXml unknown;
    PO_UnknownXml unknownOfEntry; ///< of the palette's entry in the list of palettes
    std::map<CM_ColorId_t, ColourExtras> colourExtras;
};

/// Reads a palette.
///
/// @param id the identifier in the scene's list of palettes; the file must have the same
UT_Result<UT_SharedPtr<SIO_Palette>> SIO_readPalette(const QByteArray& bytes, const UT_Id& id,
                                                     const SIO_XmlContext& context);
/// The bytes of a palette's file.
QByteArray SIO_writePalette(const CM_Palette& palette);
