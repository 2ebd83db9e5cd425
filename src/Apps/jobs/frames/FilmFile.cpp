// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ffmpeg reads raw pixels from a pipe and writes into a new folder beside the file. The film gets its name after all
// frames have been read back from it.
#include "jobs/frames/FilmFile.h"

#include "QuarvelBaseCore/UT_DiskSync.h"
#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelBaseCore/UT_NativePath.h"
#include "QuarvelBaseCore/UT_SystemError.h"
#include "QuarvelImageIO/IIO_ApngFile.h"
#include "jobs/frames/FilmReadBack.h"

#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <filesystem>
#include <system_error>

namespace {

const QStringList kKinds = {QStringLiteral("mp4"), QStringLiteral("gif"), QStringLiteral("png")};

// The last lines of a program's messages usually say why it failed.
QString lastWords(const QByteArray& messages)
{
    constexpr qsizetype kMost = 300;
    return QString::fromLocal8Bit(messages).simplified().right(kMost);
}

class PngFilm final : public FilmFile
{
public:
    PngFilm(const QString& path, const QSize& size, double framesPerSecond)
        : FilmFile(path), _writer(path, size, framesPerSecond)
    {}

    UT_Result<void> open() { return _writer.open(); }
    UT_Result<void> add(std::span<const std::uint8_t> rgba) override { return _writer.add(rgba); }
    UT_Result<void> finish() override { return _writer.finish(); }

private:
    IIO_ApngWriter _writer;
};

class EncodedFilm final : public FilmFile
{
public:
    EncodedFilm(FilmPrograms programs, const QString& path, const QSize& size, double framesPerSecond)
        : FilmFile(path)
        , _programs(std::move(programs))
        , _folder(templateOf(path))
        , _part(_folder.filePath(QStringLiteral("film")))
        , _pixels(static_cast<qsizetype>(size.width()) * size.height() * 3, '\0')
    {
        _process.setStandardOutputFile(QProcess::nullDevice());
        _process.setProgram(_programs.encoder);
        _process.setArguments(arguments(size, framesPerSecond));
    }

    ~EncodedFilm() override
    {
        if (_process.state() != QProcess::NotRunning) {
            _process.kill();
            _process.waitForFinished();
        }
    }

    UT_Result<void> open()
    {
        if (!_folder.isValid())
            return cannotWrite(_folder.errorString());
        _process.start();
        return _process.waitForStarted() ? UT_Result<void>() : failure();
    }

    UT_Result<void> add(std::span<const std::uint8_t> rgba) override
    {
        overWhite(rgba);
        if (_process.write(_pixels) != _pixels.size())
            return failure();
        while (_process.bytesToWrite() > 0)
            if (!_process.waitForBytesWritten(kPatience))
                return failure();
        ++_frames;
        return {};
    }

    UT_Result<void> finish() override
    {
        _process.closeWriteChannel();
        if (!_process.waitForFinished(kPatience) || _process.exitStatus() != QProcess::NormalExit ||
            _process.exitCode() != 0)
            return failure();
        if (!UT_syncPath(_part))
            return cannotWrite(qt_error_string(UT_systemError()));
        if (const auto whole = readBackFilm(_programs, _part, _frames); !whole)
            return cannotWrite(whole.error().sentence());
        std::error_code error;
        std::filesystem::rename(UT_nativePath(_part), UT_nativePath(path()), error);
        if (error)
            return cannotWrite(QString::fromLocal8Bit(error.message().c_str()));
        (void)UT_syncPath(QFileInfo(path()).absolutePath());
        return {};
    }

private:
    static constexpr int kPatience = 600'000; // milliseconds

    // The system replaces the Xs by random characters.
    static QString templateOf(const QString& path)
    {
        const QFileInfo info(path);
        return QStringLiteral("%1/.%2.XXXXXX.part").arg(info.absolutePath(), info.fileName());
    }

    QStringList arguments(const QSize& size, double framesPerSecond) const
    {
        QStringList words{QStringLiteral("-y"),
                          QStringLiteral("-v"),
                          QStringLiteral("error"),
                          QStringLiteral("-f"),
                          QStringLiteral("rawvideo"),
                          QStringLiteral("-pix_fmt"),
                          QStringLiteral("rgb24"),
                          QStringLiteral("-s"),
                          QStringLiteral("%1x%2").arg(size.width()).arg(size.height()),
                          QStringLiteral("-r"),
                          QString::number(framesPerSecond),
                          QStringLiteral("-i"),
                          QStringLiteral("-"),
                          QStringLiteral("-an"),
                          QStringLiteral("-vf")};
        // A GIF gets a palette of its own; many players of MP4 need even sides and yuv420p.
        if (UT_fileSuffix(path()) == QLatin1String("gif"))
            words << QStringLiteral("split[a][b];[a]palettegen[p];[b][p]paletteuse");
        else
            words << QStringLiteral("pad=ceil(iw/2)*2:ceil(ih/2)*2:0:0:white") << QStringLiteral("-pix_fmt")
                  << QStringLiteral("yuv420p");
        return words << QStringLiteral("-f") << UT_fileSuffix(path()) << _part;
    }

    // These films have no alpha, so pixels are painted over white.
    void overWhite(std::span<const std::uint8_t> rgba)
    {
        char* target = _pixels.data();
        for (std::size_t i = 0; i < rgba.size(); i += 4)
            for (std::size_t c = 0; c < 3; ++c)
                *target++ = static_cast<char>((rgba[i + c] * rgba[i + 3] + 255 * (255 - rgba[i + 3]) + 127) / 255);
    }

    UT_Error cannotWrite(const QString& why) const
    {
        return {QStringLiteral("cannot write \"%1\": %2").arg(path(), why)};
    }

    UT_Error failure()
    {
        _process.waitForFinished(1000);
        const QString words = lastWords(_process.readAllStandardError());
        // What the system says of ENOSPC, which ffmpeg passes on in English.
        if (words.contains(QLatin1String("No space left on device")))
            return {QStringLiteral("cannot write \"%1\": the disk is full; free some space and try again").arg(path()),
                    UT_ErrorKind::DISK_FULL};
        return {QStringLiteral("cannot write \"%1\": ffmpeg failed: %2; a name that ends in .png needs no ffmpeg")
                    .arg(path(), words.isEmpty() ? _process.errorString() : words)};
    }

    FilmPrograms _programs;
    QTemporaryDir _folder; ///< new and accessible only to the user, so nobody can have put a link where ffmpeg writes
    QString _part;
    QProcess _process;
    QByteArray _pixels;
    int _frames = 0;
};

bool isPng(const QString& path)
{
    return UT_fileSuffix(path) == QLatin1String("png");
}

QString fileBy(const FilmPrograms& programs, const QString& path)
{
    if (isPng(path) || programs.isComplete())
        return path;
    return path.chopped(UT_fileSuffix(path).size()) + QStringLiteral("png");
}

template<typename Film>
UT_Result<std::unique_ptr<FilmFile>> opened(std::unique_ptr<Film> film)
{
    if (const auto open = film->open(); !open)
        return open.error();
    return std::unique_ptr<FilmFile>(std::move(film));
}

} // namespace

UT_Result<void> FilmFile::check(const QString& path)
{
    if (kKinds.contains(UT_fileSuffix(path)))
        return {};
    return UT_Error{QStringLiteral("\"%1\" is not a film; its name must end in .mp4, .gif or .png").arg(path)};
}

UT_Result<std::unique_ptr<FilmFile>> FilmFile::create(const QString& path, const QSize& size, double framesPerSecond)
{
    if (const auto known = check(path); !known)
        return known.error();
    FilmPrograms programs = FilmPrograms::find();
    const QString file = fileBy(programs, path);
    if (isPng(file))
        return opened(std::make_unique<PngFilm>(file, size, framesPerSecond));
    return opened(std::make_unique<EncodedFilm>(std::move(programs), file, size, framesPerSecond));
}

QString FilmFile::fileFor(const QString& path)
{
    return path.isEmpty() ? QString() : fileBy(FilmPrograms::find(), path);
}
