// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two patterns may name one file though they differ: n.####.png and ./n.%04d.png.
#include "FrameFileNames.h"

#include "TakenFiles.h"
#include "jobs/frames/FilmFile.h"
#include "jobs/import/KeptOrigins.h"

#include <QFileInfo>

#include <utility>

namespace {

UT_Error sameFile(const QString& first, const QString& second, const QString& file)
{
    return UT_Error{QStringLiteral("%1 and %2 would both write %3; name different files").arg(first, second, file)};
}

// The files that a run makes of a scene.
class RenderedFiles
{
public:
    /// @param folder the scene's
    explicit RenderedFiles(const QString& folder) : _scene(followedPath(folder) + QLatin1Char('/')) {}

    // Takes a file for an option: nothing else is written to it. Only a file that the option names may be a link, and
    // not one into the scene.
    UT_Result<void> take(const QString& file, const QString& option, bool isNamed)
    {
        if (UT_Result<void> own = isNamed ? checkLeadsElsewhere(file) : checkIsNoLink(file); !own)
            return own;
        if (const auto before = _taken.take(file, option))
            return sameFile(*before, option, file);
        if (QFileInfo::exists(file))
            _replaced.append(file);
        return {};
    }

    // Once all are taken.
    UT_Result<void> checkOriginsStay(const MO_Scene& scene) const
    {
        if (const auto origin = originAmong(scene, _replaced))
            return UT_Error{QStringLiteral("%1 is the drawing that the scene was made of, and would be lost; name "
                                           "another file")
                                .arg(*origin)};
        return {};
    }

private:
    UT_Result<void> checkLeadsElsewhere(const QString& file) const
    {
        if (file.isEmpty() || !QFileInfo(file).isSymLink() || !followedPath(file).startsWith(_scene))
            return {};
        return UT_Error{QStringLiteral("%1 is a link into the scene, whose file would be written over; name another "
                                       "file, or remove the link")
                            .arg(file)};
    }

    QString _scene; // its path and a slash
    TakenFiles _taken;
    QStringList _replaced;
};

} // namespace

UT_Result<FrameFileName> frameFileOf(const QString& output, const RenderOptions& options, std::size_t frames)
{
    auto name = FrameFileName::parse(output);
    if (name && !name->hasNumber() && (frames > 1 || options.shard.second > 1))
        return UT_Error{QStringLiteral("%1 would be written over by every frame; write %2")
                            .arg(output, FrameFileName::proposal(output))};
    return name;
}

UT_Result<void> checkFrameFiles(const MO_Scene& scene, const RenderOptions& options, const std::vector<int>& frames)
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
    RenderedFiles files(options.scene);
    for (const int frame : frames)
        for (const auto& [option, name] : names)
            if (auto taken = files.take(name.of(frame), option, !name.hasNumber()); !taken)
                return taken;
    const QString film = FilmFile::fileFor(options.preview);
    if (auto taken = files.take(film, QStringLiteral("--preview"), film == options.preview); !taken)
        return taken;
    if (auto taken = files.take(options.page, QStringLiteral("--html"), true); !taken)
        return taken;
    return files.checkOriginsStay(scene);
}
