// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Drawings as files:
//
//     <kvr palette="00000000000000a1" version="1">
//       <art name="colour">
//         <shape colour="00000000000000c1" opacity="0.5">
//           <path d="M 0 0 L 10 0 C 10 5 5 10 0 10" fill="evenodd"/>
//           <clip d="M 0 0 L 5 0 L 5 5" fill="nonzero"/>
//           <picture>iVBORw0...</picture>
//         </shape>
//       </art>
//     </kvr>
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelSceneIO/private/SIO_XmlContext.h"

#include <functional>
#include <map>

/// A loaded drawing, with the unknown parts that a newer version wrote.
class SIO_Drawing : public CELVEC_Kvd
{
public:
    struct ShapeExtras
    {
        PO_UnknownXml shape;
        PO_UnknownXml path;
        PO_UnknownXml clip;
        PO_UnknownXml picture;
    };

    using CELVEC_Kvd::CELVEC_Kvd;
    ~SIO_Drawing() override;

    /// With what a newer version wrote.
    UT_SharedPtr<CELVEC_Kvd> withPalette(const CM_SharedPtr<CM_Palette>& palette) const override;

    PO_UnknownXml unknown;
    PO_UnknownXml unknownOfEntry; ///< of the drawing's entry in the scene's main file
    std::map<GR_Art, PO_UnknownXml> unknownOfArts;
    std::map<std::pair<GR_Art, std::size_t>, ShapeExtras> shapeExtras;
};

/// Finds a palette of the scene; returns null if there is none.
using SIO_PaletteFinder = std::function<CM_SharedPtr<CM_Palette>(const UT_Id&)>;

/// Reads a drawing.
UT_Result<UT_SharedPtr<SIO_Drawing>> SIO_readDrawing(const QByteArray& bytes, const SIO_PaletteFinder& palettes,
                                                     const SIO_XmlContext& context);
/// The bytes of a drawing's file.
///
/// @param name for the error's text
/// @return an error if the drawing exceeds what a file can hold, see SIO_Limits.h
UT_Result<QByteArray> SIO_writeDrawing(const CELVEC_Kvd& drawing, const QString& name);
