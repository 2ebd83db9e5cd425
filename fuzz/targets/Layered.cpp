// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files of pixels in layers and frames; how the input begins says of which kind. Archives are put together of the files
// in the input (fuzzFilesIn), since changes of a packed file would only break its checksum; those that begin like an
// archive are tried as they are, too.
#include "QuarvelDrawingIO/DIO_LayeredReader.h"
#include "QuarvelDrawingIO/DIO_LottieReader.h"
#include "Targets.h"

#include <QFile>

#include <zip.h>

namespace {

QString archiveOf(const QString& name, const QByteArray& input)
{
    const QString path = fuzzFile(name, "");
    const auto files = fuzzFilesIn(input);
    int error = 0;
    zip_t* const archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    FUZZ_CHECK(archive != nullptr);
    for (const auto& [file, content] : files) {
        zip_source_t* const source =
            zip_source_buffer(archive, content.constData(), static_cast<zip_uint64_t>(content.size()), 0);
        // A name that stands there twice, or is none, is left out.
        if (zip_file_add(archive, file.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8) < 0)
            zip_source_free(source);
    }
    if (zip_close(archive) != 0)
        zip_discard(archive);
    return path;
}

QStringList pathsOf(const QByteArray& input)
{
    if (input.startsWith("=== maindoc.xml"))
        return {archiveOf(QStringLiteral("fuzz.kra"), input)};
    if (input.startsWith("=== stack.xml"))
        return {archiveOf(QStringLiteral("fuzz.ora"), input)};
    if (input.startsWith("PK"))
        return {fuzzFile(QStringLiteral("raw.kra"), input), fuzzFile(QStringLiteral("raw.ora"), input)};
    if (input.startsWith("8BPS"))
        return {fuzzFile(QStringLiteral("fuzz.psd"), input)};
    if (input.mid(4, 2) == "\xE0\xA5")
        return {fuzzFile(QStringLiteral("fuzz.aseprite"), input)};
    return {fuzzFile(QStringLiteral("fuzz.gif"), input)};
}

void checkFrames(const DIO_Animation& animation)
{
    FUZZ_CHECK(animation.frames > 1 && animation.frameRate > 0.0);
    for (const DIO_AnimatedLayer& layer : animation.layers) {
        FUZZ_CHECK(layer.shown.size() == static_cast<std::size_t>(animation.frames));
        for (const int drawing : layer.shown)
            FUZZ_CHECK(drawing >= -1 && drawing < static_cast<int>(layer.drawings.size()));
    }
}

void check(const QString& path)
{
    const auto drawing = DIO_readLayered(path, DIO_Grouping::AUTO, DIO_Blank::ACCEPTED);
    if (drawing) {
        FUZZ_CHECK(!drawing->size.isEmpty());
        for (const DIO_Layer& layer : drawing->layers)
            for (const DIO_Shape& shape : layer.shapes)
                FUZZ_CHECK(!shape.picture.isNull() && static_cast<std::size_t>(shape.paint) < drawing->palette.size());
    } else {
        FUZZ_CHECK(!drawing.error().text.isEmpty());
    }
    if (const auto frames = DIO_readFrames(path); frames && *frames)
        checkFrames(**frames);
}

} // namespace

void fuzzLayered(const QByteArray& input)
{
    if (input.startsWith("=== manifest.json")) {
        const auto animation = DIO_readLottie(archiveOf(QStringLiteral("fuzz.lottie"), input));
        FUZZ_CHECK(animation.ok() || !animation.error().text.isEmpty());
        return;
    }
    for (const QString& path : pathsOf(input))
        check(path);
}
