// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two patterns may name one file though they differ: n.####.png and ./n.%04d.png.
#include "FrameFileNames.h"

#include "TakenFiles.h"
#include "jobs/frames/FilmFile.h"

#include <utility>

namespace {

UT_Error sameFile(const QString& first, const QString& second, const QString& file)
{
    return UT_Error{QStringLiteral("%1 and %2 would both write %3; name different files").arg(first, second, file)};
}

} // namespace

UT_Result<FrameFileName> frameFileOf(const QString& output, const RenderOptions& options, std::size_t frames)
{
    auto name = FrameFileName::parse(output);
    if (name && !name->hasNumber() && (frames > 1 || options.shard.second > 1))
        return UT_Error{QStringLiteral("%1 would be written over by every frame; write %2")
                            .arg(output, FrameFileName::proposal(output))};
    return name;
}

UT_Result<void> checkFilesDiffer(const RenderOptions& options, const std::vector<int>& frames)
{
    const std::pair<const char*, const QString&> frameFiles[] = {{"-o", options.output},
                                                                 {"--lit", options.lit},
                                                                 {"--drawing", options.drawing},
                                                                 {"--height", options.height},
                                                                 {"--occlusion", options.occlusion},
                                                                 {"--numbers", options.numbers},
                                                                 {"--gloss-file", options.glossFile}};
    std::vector<std::pair<QString, FrameFileName>> names;
    for (const auto& [option, output] : frameFiles)
        if (const auto name = FrameFileName::parse(output))
            names.emplace_back(QLatin1String(option), *name);
    TakenFiles taken;
    for (const int frame : frames)
        for (const auto& [option, name] : names)
            if (auto before = taken.take(name.of(frame), option))
                return sameFile(*before, option, name.of(frame));
    const QString film = FilmFile::fileFor(options.preview);
    for (const auto& [option, file] : {std::pair("--preview", film), std::pair("--html", options.page)})
        if (auto before = taken.take(file, QLatin1String(option)))
            return sameFile(*before, QLatin1String(option), file);
    return {};
}
