// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The XML names in the files of drawings, which the reader and the writer share.
#pragma once

#include "QuarvelPersistentObj/PIO_XmlWritable.h"

#include <QString>

#include <array>

namespace SIO_DrawingNames {

inline constexpr int kVersion = 1;

inline const QString kElementDrawing = QStringLiteral("kvr");
inline const QString kElementArt = QStringLiteral("art");
inline const QString kElementShape = QStringLiteral("shape");
inline const QString kElementPath = QStringLiteral("path");
inline const QString kElementClip = QStringLiteral("clip");
inline const QString kElementPicture = QStringLiteral("picture");
inline const QString kAttributePalette = QStringLiteral("palette");
inline const QString kAttributeName = QStringLiteral("name");
inline const QString kAttributeColour = QStringLiteral("colour");
inline const QString kAttributeOpacity = QStringLiteral("opacity");
inline const QString kAttributePoints = QStringLiteral("d");
inline const QString kAttributeFill = QStringLiteral("fill");
inline const QString kAttributePremultiplied = QStringLiteral("premultiplied");
inline const QString kEvenOdd = QStringLiteral("evenodd");
inline const QString kNonZero = QStringLiteral("nonzero");
// In the order of GR_Art.
inline const std::array<QString, 4> kArts = {QStringLiteral("underlay"), QStringLiteral("colour"),
                                             QStringLiteral("line"), QStringLiteral("overlay")};

} // namespace SIO_DrawingNames
