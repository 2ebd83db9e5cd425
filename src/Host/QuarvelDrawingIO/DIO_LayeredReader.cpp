// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of formats.
#include "QuarvelDrawingIO/DIO_LayeredReader.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "QuarvelDrawingIO/private/layered/DIO_Aseprite.h"
#include "QuarvelDrawingIO/private/layered/DIO_Krita.h"
#include "QuarvelDrawingIO/private/layered/DIO_MovingPicture.h"
#include "QuarvelDrawingIO/private/layered/DIO_OpenRaster.h"
#include "QuarvelDrawingIO/private/layered/DIO_Psd.h"

#include <algorithm>

namespace {

struct Format
{
    DIO_LayeredKind kind;
    UT_Result<DIO_BitmapLayers> (*read)(const QString& path);
    bool hasFrames;
};

const std::vector<Format>& formats()
{
    static const std::vector<Format> table = {
        {{QStringLiteral("OpenRaster file"), {QStringLiteral("ora")}}, DIO_readOpenRaster, false},
        {{QStringLiteral("Aseprite file"), {QStringLiteral("aseprite"), QStringLiteral("ase")}},
         DIO_readAseprite,
         true},
        {{QStringLiteral("PSD file"), {QStringLiteral("psd"), QStringLiteral("psb")}}, DIO_readPsd, false},
        {{QStringLiteral("Krita file"), {QStringLiteral("kra")}}, DIO_readKrita, false},
    };
    return table;
}

const Format* formatOf(const QString& path)
{
    const QString suffix = UT_fileSuffix(path);
    const auto found =
        std::ranges::find_if(formats(), [&](const Format& format) { return format.kind.suffixes.contains(suffix); });
    return found == formats().end() ? nullptr : &*found;
}

UT_Error problem(const QString& path, const UT_Error& error)
{
    return {path + QStringLiteral(": ") + error.text, error.kind};
}

using Read = UT_Result<DIO_BitmapLayers> (*)(const QString& path);

// Reads a file and drops layers that show nothing.
UT_Result<DIO_BitmapLayers> readTidy(const QString& path, Read read)
{
    UT_Result<DIO_BitmapLayers> layers =
        UT_withinMemory(QStringLiteral("its pictures"), QStringLiteral("make it smaller"), [&] { return read(path); });
    if (!layers)
        return problem(path, layers.error());
    DIO_tidyLayers(*layers);
    return layers;
}

UT_Error blankFile(const QString& path)
{
    return {QStringLiteral("%1: nothing shows in it: there is no visible layer with anything on it").arg(path)};
}

} // namespace

const std::vector<DIO_LayeredKind>& DIO_layeredKinds()
{
    static const std::vector<DIO_LayeredKind> kinds = [] {
        std::vector<DIO_LayeredKind> all;
        for (const Format& format : formats())
            all.push_back(format.kind);
        return all;
    }();
    return kinds;
}

UT_Result<DIO_Drawing> DIO_readLayered(const QString& path, DIO_Grouping grouping, DIO_Blank blank)
{
    const Format* const format = formatOf(path);
    if (!format)
        return UT_Error{QStringLiteral("%1: this is not a file with layers of pixels").arg(path)};
    const UT_Result<DIO_BitmapLayers> layers = readTidy(path, format->read);
    if (!layers)
        return layers.error();
    DIO_Drawing drawing = DIO_drawingOf(*layers, path, grouping);
    if (drawing.layers.empty() && blank == DIO_Blank::REFUSED)
        return blankFile(path);
    return drawing;
}

UT_Result<std::optional<DIO_Animation>> DIO_readFrames(const QString& path)
{
    const Format* const format = formatOf(path);
    if (format ? !format->hasFrames : !DIO_isMovingPicture(path))
        return std::optional<DIO_Animation>();
    const UT_Result<DIO_BitmapLayers> layers = readTidy(path, format ? format->read : DIO_readMovingPicture);
    if (!layers)
        return layers.error();
    if (layers->layers.empty())
        return blankFile(path);
    if (layers->frames < 2)
        return std::optional<DIO_Animation>();
    return std::optional(DIO_animationOf(*layers, path));
}
