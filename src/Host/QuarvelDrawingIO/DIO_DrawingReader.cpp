// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of readers, and everything that is looked up in it.
#include "QuarvelDrawingIO/DIO_DrawingReader.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "QuarvelDrawingIO/DIO_LayeredReader.h"
#include "QuarvelDrawingIO/DIO_SvgReader.h"

#include <algorithm>

namespace {

UT_Result<DIO_Drawing> readBitmap(const QString& path, DIO_Grouping, DIO_Blank)
{
    return DIO_readBitmap(path);
}

} // namespace

const std::vector<DIO_DrawingKind>& DIO_drawingKinds()
{
    static const std::vector<DIO_DrawingKind> kinds = [] {
        std::vector<DIO_DrawingKind> table = {
            {QStringLiteral("SVG drawing"), {QStringLiteral("svg"), QStringLiteral("svgz")}, false, DIO_readSvg},
            {QStringLiteral("bitmap"), DIO_bitmapSuffixes(), true, readBitmap},
        };
        for (const DIO_LayeredKind& layered : DIO_layeredKinds())
            table.push_back({layered.name, layered.suffixes, false, DIO_readLayered});
        return table;
    }();
    return kinds;
}

const DIO_DrawingKind* DIO_drawingKindOf(const QString& path)
{
    const QString suffix = UT_fileSuffix(path);
    const auto found = std::ranges::find_if(
        DIO_drawingKinds(), [&](const DIO_DrawingKind& kind) { return kind.suffixes.contains(suffix); });
    return found == DIO_drawingKinds().end() ? nullptr : &*found;
}

QStringList DIO_readableSuffixes()
{
    QStringList suffixes;
    for (const DIO_DrawingKind& kind : DIO_drawingKinds())
        suffixes += kind.suffixes;
    return suffixes;
}

UT_Result<DIO_Drawing> DIO_readDrawing(const QString& path, DIO_Grouping grouping, DIO_Blank blank)
{
    if (const DIO_DrawingKind* const kind = DIO_drawingKindOf(path))
        return kind->read(path, grouping, blank);
    const QString suffix = UT_fileSuffix(path);
    const QString what = suffix.isEmpty() ? QStringLiteral("a name without suffix") : u'.' + suffix + " files";
    return UT_Error{QStringLiteral("%1: %2 cannot be read as a drawing; the readable kinds are .%3")
                        .arg(path, what, DIO_readableSuffixes().join(QStringLiteral(", .")))};
}
