// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/frames/FilmReadBack.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

namespace {

constexpr int kPatience = 600'000; // milliseconds

QStringList countingWords(const QString& film)
{
    return {QStringLiteral("-v"),
            QStringLiteral("error"),
            QStringLiteral("-count_frames"),
            QStringLiteral("-select_streams"),
            QStringLiteral("v:0"),
            QStringLiteral("-show_entries"),
            QStringLiteral("stream=nb_read_frames"),
            QStringLiteral("-of"),
            QStringLiteral("csv=p=0"),
            film};
}

} // namespace

FilmPrograms FilmPrograms::find()
{
    return {QStandardPaths::findExecutable(QStringLiteral("ffmpeg")),
            QStandardPaths::findExecutable(QStringLiteral("ffprobe"))};
}

UT_Result<void> readBackFilm(const FilmPrograms& programs, const QString& film, int frames)
{
    QProcess process;
    process.start(programs.prober, countingWords(film), QIODevice::ReadOnly);
    if (!process.waitForFinished(kPatience)) {
        const QString reason = process.errorString();
        process.kill();
        process.waitForFinished();
        return UT_Error{QStringLiteral("it cannot be read back: %1").arg(reason)};
    }
    const QString counted = QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
    if (counted != QString::number(frames))
        return UT_Error{QStringLiteral("%1 of its %2 frames can be read back; see whether the disk is full")
                            .arg(counted.toInt())
                            .arg(frames)};
    // ffprobe counts an incomplete frame too, but prints an error for it.
    if (const QByteArray complaint = process.readAllStandardError().trimmed(); !complaint.isEmpty())
        return UT_Error{QStringLiteral("it cannot be read back: %1; see whether the disk is full")
                            .arg(QString::fromLocal8Bit(complaint).simplified())};
    return {};
}
