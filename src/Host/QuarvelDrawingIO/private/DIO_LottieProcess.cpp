// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The other program is watched while it writes: it is ended as soon as it takes too long or writes too much.
#include "QuarvelDrawingIO/private/DIO_LottieProcess.h"

#include "QuarvelDrawingIO/DIO_LottieStream.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>

namespace {

constexpr qsizetype kMaxRemark = 200;

UT_Error problem(const QString& path, const QString& what)
{
    return {path + QStringLiteral(": ") + what};
}

QString programOf(const DIO_LottieLimits& limits)
{
    if (!limits.program.isEmpty())
        return limits.program;
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("quarvel-lottie-reader"));
}

QString whyItDoesNotRun(const QString& program)
{
#ifdef Q_OS_WIN
    Q_UNUSED(program)
    return QStringLiteral("animations are not read on Windows, where nothing confines their reader yet; import it on "
                          "Linux and copy the scene here");
#else
    return QStringLiteral("animations are read by the program %1, which does not run; is the installation whole?")
        .arg(program);
#endif
}

// The program's own reason, a single line; anything else that stands there is not meant for people.
QString reasonFrom(const QByteArray& remark)
{
    const QString text = QString::fromUtf8(remark).trimmed();
    const bool plain = !text.isEmpty() && text.size() < kMaxRemark && !text.contains(u'\n');
    return plain ? text : QStringLiteral("the file is damaged, or no animation in the Lottie format");
}

} // namespace

UT_Result<void> DIO_runLottieProgram(const QByteArray& document, const QString& path, const DIO_LottieLimits& limits,
                                     QByteArray& written, const std::function<bool()>& goOn)
{
    QProcess process;
    process.setProgram(programOf(limits));
    QDeadlineTimer deadline(qint64{limits.seconds} * 1000);
    process.start(QIODevice::ReadWrite);
    if (!process.waitForStarted())
        return problem(path, whyItDoesNotRun(process.program()));
    process.write(document);
    process.closeWriteChannel();
    QByteArray remark;
    const auto collect = [&] {
        written += process.readAllStandardOutput();
        remark = (remark + process.readAllStandardError()).left(kMaxRemark);
    };
    const auto end = [&process] {
        process.kill();
        process.waitForFinished();
    };
    while (process.state() != QProcess::NotRunning) {
        if (deadline.hasExpired()) {
            end();
            return problem(path,
                           QStringLiteral("reading it took more than %1 seconds; is it damaged?").arg(limits.seconds));
        }
        QElapsedTimer ours;
        ours.start();
        if (!goOn()) {
            end();
            return UT_stopped();
        }
        // What is done here with what came is not the program's time.
        deadline += ours.elapsed();
        process.waitForReadyRead(static_cast<int>(std::clamp<qint64>(deadline.remainingTime(), 1, 200)));
        collect();
        if (written.size() > limits.bytes) {
            end();
            return problem(path, QStringLiteral("the animation shows more than can be kept; is it damaged?"));
        }
    }
    collect();
    if (process.exitStatus() != QProcess::NormalExit)
        return problem(path, QStringLiteral("reading it went wrong; the file is probably damaged"));
    if (process.exitCode() != DIO_LottieStream::OK)
        return problem(path, reasonFrom(remark));
    return {};
}
