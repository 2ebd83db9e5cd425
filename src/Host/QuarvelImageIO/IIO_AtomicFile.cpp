// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// QSaveFile does the writing beside and the renaming. What it leaves out is done here: a write that is cut short is
// carried on until its error shows, the error of forcing the data to the disk counts (a network disk reports a full
// disk only then), and the texts say what to do.
#include "QuarvelImageIO/IIO_AtomicFile.h"

#include "QuarvelBaseCore/UT_DiskSync.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstring>

class IIO_AtomicFile::Device final : public QSaveFile
{
public:
    explicit Device(const QString& path) : QSaveFile(path) {}

    bool failed() const { return _failed; }

    /// True when the disk has everything that was written.
    bool sync()
    {
        if (!UT_syncDescriptor(handle()))
            remember(QString::fromLocal8Bit(std::strerror(errno)));
        return !_failed;
    }

    /// Encoders go back to fill in what they know in the end. Where that fails the file is not what it says, and as
    /// with writing it is commit() that tells.
    bool seek(qint64 position) override
    {
        if (!_failed && !QSaveFile::seek(position))
            remember(errorString());
        return true;
    }

    QString reason() const { return _reason.isEmpty() ? errorString() : _reason; }
    bool diskIsFull() const { return _diskIsFull; }

protected:
    qint64 writeData(const char* data, qint64 length) override
    {
        for (qint64 written = 0; written < length && !_failed;) {
            const qint64 step = QSaveFile::writeData(data + written, length - written);
            if (step <= 0)
                remember(errorString());
            written += step;
        }
        // Encoders are not told: some of them leak memory or print when a write fails. commit() tells.
        return length;
    }

private:
    // Right after the failure, while errno tells which kind it is. The first one explains those that follow.
    void remember(const QString& reason)
    {
        if (_failed)
            return;
        _diskIsFull = errno == ENOSPC;
#ifdef Q_OS_UNIX
        _diskIsFull = _diskIsFull || errno == EDQUOT;
#endif
        _reason = reason;
        _failed = true;
    }

    bool _failed = false;
    bool _diskIsFull = false;
    QString _reason;
};

namespace {

UT_Error cannotWrite(const QString& path, const QString& why)
{
    return {QStringLiteral("cannot write \"%1\": %2").arg(path, why)};
}

// Why the path cannot become a file, as far as that can be told beforehand; empty when it can.
QString obstacle(const QString& path)
{
    if (path.isEmpty())
        return QStringLiteral("the name is empty; name a file");
    const QFileInfo target(path);
    if (target.isDir())
        return QStringLiteral("it is a folder; name a file in it");
    if (target.exists() && !target.isFile())
        return QStringLiteral("it is a device, and pictures are written to ordinary files only; name a file");
    const QFileInfo folder(target.path());
    const QString shown = QDir::toNativeSeparators(target.path());
    if (!folder.exists())
        return QStringLiteral("the folder \"%1\" does not exist; make it first").arg(shown);
    if (!folder.isDir())
        return QStringLiteral("\"%1\" is not a folder; name another place").arg(shown);
    if (target.exists() && !target.isWritable())
        return QStringLiteral("the file that is there may not be changed; permit it or name another file");
    if (!folder.isWritable())
        return QStringLiteral("files may not be made in the folder \"%1\"; permit it or name another place").arg(shown);
    return {};
}

} // namespace

IIO_AtomicFile::IIO_AtomicFile(const QString& path) : _path(path) {}

IIO_AtomicFile::~IIO_AtomicFile() = default;

UT_Result<void> IIO_AtomicFile::open()
{
    if (const QString why = obstacle(_path); !why.isEmpty())
        return cannotWrite(_path, why);
    _device = std::make_unique<Device>(_path);
    // Without a buffer in between, so that every failed write shows at once and with its true reason.
    if (!_device->open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return cannotWrite(_path, QStringLiteral("%1; name another place").arg(_device->errorString()));
    return {};
}

QIODevice& IIO_AtomicFile::device()
{
    assert(_device);
    return *_device;
}

UT_Result<void> IIO_AtomicFile::commit()
{
    assert(_device);
    if (_device->failed() || !_device->sync()) {
        _device->cancelWriting();
        return failure();
    }
    if (!_device->commit())
        return failure();
    // The file is whole with or without its new name on the disk, so nothing fails here: after a crash of the machine
    // there is the new picture or the old one.
    (void)UT_syncPath(QFileInfo(_path).absolutePath());
    return {};
}

UT_Result<void> IIO_AtomicFile::abandon()
{
    assert(_device);
    _device->cancelWriting();
    if (_device->failed())
        return failure();
    return {};
}

UT_Error IIO_AtomicFile::failure() const
{
    if (_device->diskIsFull())
        return cannotWrite(_path, QStringLiteral("the disk is full; free some space and try again"));
    return cannotWrite(_path, QStringLiteral("%1; what was there before is unchanged").arg(_device->reason()));
}
