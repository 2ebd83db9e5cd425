// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The words of the metadata. They are read by other programs, so they are never translated.
#include "QuarvelNormalMap/NM_Layout.h"

IIO_Metadata NM_metadataOf(NM_Layout layout, NM_YAxis yAxis)
{
    const bool tangent = layout == NM_Layout::TANGENT;
    const bool up = tangent && yAxis == NM_YAxis::UP;
    IIO_Metadata metadata = NM_metadataOf(tangent ? QStringLiteral("tangent") : QStringLiteral("node"));
    metadata.set(QStringLiteral("Y"), up ? QStringLiteral("up") : QStringLiteral("down"));
    metadata.set(QStringLiteral("Encoding"),
                 tangent ? QStringLiteral("x = 2 R - 1, y = 2 G - 1, z = 2 B - 1, coverage = A")
                         : QStringLiteral("x = 2 R - 1, y = 2 G - 1, sign of z = sign of B, coverage = A"));
    return metadata;
}

IIO_Metadata NM_metadataOf(const QString& layoutName)
{
    IIO_Metadata metadata;
    metadata.set(QStringLiteral("Software"), QStringLiteral("Vallorin " VALLORIN_VERSION));
    metadata.set(QStringLiteral("Layout"), layoutName);
    return metadata;
}
