// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// QSaveFile writes the temporary file and renames it. This file adds three things: a partial write is continued until
// its error shows; an error while the data are forced to the disk counts too (a network disk may report only then that
// it is full); and the error messages say what to do.
#include "QuarvelImageIO/IIO_AtomicFile.h"

#include "QuarvelBaseCore/UT_DiskSync.h"
#include "QuarvelBaseCore/UT_SystemError.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

class IIO_AtomicFile::Device final : public QSaveFile
{
public:
    explicit Device(const QString& path) : QSaveFile(path) {}

    bool failed() const { return _failed; }

    /// Forces the data to the disk; true if everything that was written is there.
    bool sync()
    {
        if (!UT_syncDescriptor(handle()))
            remember(qt_error_string(UT_systemError()));
        return !_failed;
    }

    /// Encoders seek back to fill in values that they know only at the end. If that fails, the file is wrong; as with a
    /// failed write, commit() reports it.
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
        // Encoders are not told about failed writes, because some of them leak memory or print then. commit() reports
        // them.
        return length;
    }

private:
    // Must be called right after the failure, while UT_systemError() tells its kind. Keeps the first failure, which
    // explains the later ones.
    void remember(const QString& reason)
    {
        if (_failed)
            return;
        _diskIsFull = UT_saysDiskIsFull(UT_systemError());
        _reason = reason;
        _failed = true;
    }

    bool _failed = false;
    bool _diskIsFull = false;
    QString _reason;
};

namespace {

UT_Error cannotWrite(const QString& path, const QString& why, UT_ErrorKind kind = UT_ErrorKind::FAILED)
{
    return {QStringLiteral("cannot write \"%1\": %2").arg(path, why), kind};
}

UT_Error diskIsFull(const QString& path)
{
    return cannotWrite(path, QStringLiteral("the disk is full; free some space and try again"),
                       UT_ErrorKind::DISK_FULL);
}

// The reason why the path cannot become a file, as far as this can be checked beforehand; empty if there is none.
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

// What to do where a finished file cannot get its name. On Windows a program can keep others from replacing the file
// that it has open, and the system says no more than that access is denied.
QString adviceForHeldFile()
{
#ifdef Q_OS_WIN
    return QStringLiteral("close the programs that have it open; ");
#else
    return {};
#endif
}

} // namespace

IIO_AtomicFile::IIO_AtomicFile(const QString& path) : _path(path) {}

IIO_AtomicFile::~IIO_AtomicFile() = default;

UT_Result<void> IIO_AtomicFile::open()
{
    if (const QString why = obstacle(_path); !why.isEmpty())
        return cannotWrite(_path, why);
    _device = std::make_unique<Device>(_path);
    // Unbuffered, so that every failed write shows at once and with its own reason.
    UT_setSystemError(0);
    if (!_device->open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return UT_saysDiskIsFull(UT_systemError())
                   ? diskIsFull(_path)
                   : cannotWrite(_path, QStringLiteral("%1; name another place").arg(_device->errorString()));
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
#ifdef Q_OS_WIN
    // A save file has no descriptor there that could be forced, the finished file has a path.
    (void)UT_syncPath(_path);
#endif
    // Forces the new name to the disk. A failure does not matter: after a crash of the machine, either the complete new
    // file or the old one is there.
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
        return diskIsFull(_path);
    return cannotWrite(_path, QStringLiteral("%1; %2what was there before is unchanged")
                                  .arg(_device->reason(), _device->failed() ? QString() : adviceForHeldFile()));
}

UT_Result<void> IIO_writeFile(const QString& path, const QByteArray& bytes)
{
    IIO_AtomicFile file(path);
    if (UT_Result<void> opened = file.open(); !opened)
        return opened;
    file.device().write(bytes);
    return file.commit();
}
