// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// On POSIX systems the path is opened part by part from the scene's folder, so that a link that appears meanwhile is
// not followed either. The kind of a file is checked before opening, because opening a device can have side effects,
// and again after opening.
#include "QuarvelSceneIO/private/SIO_SafeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <QFile>
#endif

namespace {

using Bytes = std::optional<QByteArray>;

UT_Error problem(const QString& path, const char* text)
{
    return {QCoreApplication::translate("SIO_SafeFile", text).arg(QDir::toNativeSeparators(path))};
}

UT_Error isLink(const QString& path)
{
    return problem(path,
                   QT_TRANSLATE_NOOP("SIO_SafeFile",
                                     "\"%1\" is reached through a link; a scene holds plain files and folders only"));
}

UT_Error isNoPlainFile(const QString& path)
{
    return problem(path, QT_TRANSLATE_NOOP("SIO_SafeFile", "\"%1\" is not a plain file"));
}

UT_Error isTooLarge(const QString& path, qint64 maxBytes)
{
    return {QCoreApplication::translate("SIO_SafeFile", "\"%1\" is larger than %2 MiB")
                .arg(QDir::toNativeSeparators(path), QString::number(maxBytes >> 20))};
}

UT_Error isUnreadable(const QString& path, const QString& reason)
{
    return {QCoreApplication::translate("SIO_SafeFile", "cannot read \"%1\": %2")
                .arg(QDir::toNativeSeparators(path), reason)};
}

bool isAnyLink(const QString& path)
{
    const QFileInfo info(path);
    return info.isSymLink() || info.isJunction();
}

#ifdef Q_OS_UNIX

// Closes a file descriptor in its destructor.
class Descriptor
{
public:
    explicit Descriptor(int number) : _number(number) {}
    ~Descriptor() { reset(-1); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    void reset(int number)
    {
        if (_number >= 0)
            ::close(_number);
        _number = number;
    }
    int number() const { return _number; }

private:
    int _number;
};

// Converts an errno value to the result of reading.
UT_Result<Bytes> failure(const QString& path, int reason)
{
    if (reason == ENOENT)
        return Bytes();
    if (reason == ELOOP)
        return isLink(path);
    return isUnreadable(path, qt_error_string(reason));
}

UT_Result<Bytes> readOpened(int file, const QString& path, qint64 size, qint64 maxBytes)
{
    constexpr qint64 kStep = 65536;
    QByteArray bytes;
    bytes.reserve(std::min(size, maxBytes) + 1);
    for (;;) {
        const qsizetype before = bytes.size();
        // Reads one byte more than expected, so that the end shows without another enlargement.
        const qint64 wanted = std::max(size - before + 1, kStep);
        bytes.resize(before + std::min(wanted, maxBytes + 1 - before));
        const ssize_t count = ::read(file, bytes.data() + before, static_cast<std::size_t>(bytes.size() - before));
        bytes.resize(before + std::max<ssize_t>(count, 0));
        if (count < 0 && errno != EINTR)
            return failure(path, errno);
        if (bytes.size() > maxBytes)
            return isTooLarge(path, maxBytes);
        if (count == 0)
            return Bytes(std::move(bytes));
    }
}

UT_Result<Bytes> readIn(int parent, const QByteArray& name, const QString& path, qint64 maxBytes)
{
    struct stat status = {};
    if (::fstatat(parent, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return failure(path, errno);
    if (S_ISLNK(status.st_mode))
        return isLink(path);
    if (!S_ISREG(status.st_mode))
        return isNoPlainFile(path);
    const Descriptor file(
        ::openat(parent, name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (file.number() < 0 || ::fstat(file.number(), &status) != 0)
        return failure(path, errno);
    if (!S_ISREG(status.st_mode))
        return isNoPlainFile(path);
    if (status.st_size > maxBytes)
        return isTooLarge(path, maxBytes);
    return readOpened(file.number(), path, status.st_size, maxBytes);
}

#endif

} // namespace

#ifdef Q_OS_UNIX

UT_Result<Bytes> SIO_readInside(const QString& folder, const QString& relative, qint64 maxBytes)
{
    constexpr int kFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    const QString path = folder + u'/' + relative;
    QStringList parts = relative.split(u'/');
    const QByteArray name = QFile::encodeName(parts.takeLast());
    Descriptor parent(::open(QFile::encodeName(folder).constData(), kFolder));
    for (const QString& part : std::as_const(parts)) {
        if (parent.number() < 0)
            break;
        const QByteArray inner = QFile::encodeName(part);
        struct stat status = {};
        if (::fstatat(parent.number(), inner.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
            return failure(path, errno);
        if (S_ISLNK(status.st_mode))
            return isLink(path);
        parent.reset(::openat(parent.number(), inner.constData(), kFolder | O_NOFOLLOW));
    }
    if (parent.number() < 0)
        return failure(path, errno);
    return readIn(parent.number(), name, path, maxBytes);
}

#else

UT_Result<Bytes> SIO_readInside(const QString& folder, const QString& relative, qint64 maxBytes)
{
    const QString path = folder + u'/' + relative;
    if (!SIO_hasNoLinks(folder, relative))
        return isLink(path);
    const QFileInfo info(path);
    if (!info.exists())
        return Bytes();
    if (!info.isFile())
        return isNoPlainFile(path);
    if (info.size() > maxBytes)
        return isTooLarge(path, maxBytes);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QFileInfo::exists(path) ? UT_Result<Bytes>(isUnreadable(path, file.errorString())) : Bytes();
    QByteArray bytes = file.read(std::min(file.size(), maxBytes) + 1);
    if (file.error() != QFileDevice::NoError)
        return isUnreadable(path, file.errorString());
    if (bytes.size() > maxBytes)
        return isTooLarge(path, maxBytes);
    return Bytes(std::move(bytes));
}

#endif

bool SIO_hasNoLinks(const QString& folder, const QString& relative)
{
    for (QString path = relative; !path.isEmpty(); path = path.left(std::max<qsizetype>(path.lastIndexOf(u'/'), 0)))
        if (isAnyLink(folder + u'/' + path))
            return false;
    return true;
}
