// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The lock of a scene's folder. A lock file, where one is needed, is removed with the lock, so that only the scene's
// files stay in the folder. A process that has locked a file which was just removed tries again with a new file.
#include "QuarvelSceneIO/private/SIO_FolderLock.h"

#include "QuarvelBaseCore/UT_NativePath.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <chrono>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kPatience = 30s;
constexpr unsigned long kPauseInMilliseconds = 5;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_FolderLock)
};

} // namespace

SIO_FolderLock::SIO_FolderLock(const QString& folder) : _folder(folder), _path(folder + QStringLiteral("/.lock")) {}

UT_Result<void> SIO_FolderLock::lock(const std::function<bool()>& goOn)
{
    const QDeadlineTimer deadline(kPatience);
    Attempt attempt = tryLock();
    while (attempt == Attempt::HELD_BY_OTHERS && !deadline.hasExpired()) {
        if (goOn && !goOn())
            return UT_stopped();
        QThread::msleep(kPauseInMilliseconds);
        attempt = tryLock();
    }
    _readOnly = attempt == Attempt::NOT_PERMITTED;
    const QString shown = QDir::toNativeSeparators(_folder);
    switch (attempt) {
    case Attempt::LOCKED:
        return {};
    case Attempt::HELD_BY_OTHERS:
        return UT_Error{Texts::tr("the scene \"%1\" is being saved by another program; try again later").arg(shown)};
    case Attempt::NOT_PERMITTED:
        return UT_Error{Texts::tr("files may not be made in \"%1\"; permit it or name another place").arg(shown)};
    case Attempt::IN_THE_WAY:
        return UT_Error{Texts::tr("\"%1\" is not a plain file; remove it").arg(QDir::toNativeSeparators(_path))};
    case Attempt::FAILED:
        break;
    }
    return UT_Error{Texts::tr("cannot write in \"%1\"; see whether the disk is full").arg(shown)};
}

#ifdef Q_OS_WIN

SIO_FolderLock::Attempt SIO_FolderLock::tryLock()
{
    return tryLockOfFile();
}

bool SIO_FolderLock::isHeldByOthers(const QString& folder)
{
    return QFileInfo::exists(folder + QStringLiteral("/.lock"));
}

// No other process can open the file while it is open here; the system removes it when it is closed.
SIO_FolderLock::Attempt SIO_FolderLock::tryLockOfFile()
{
    const HANDLE file = CreateFileW(UT_nativePath(_path).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        _file = reinterpret_cast<std::intptr_t>(file);
        return Attempt::LOCKED;
    }
    switch (GetLastError()) {
    case ERROR_SHARING_VIOLATION:
        return Attempt::HELD_BY_OTHERS;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return Attempt::NOT_PERMITTED;
    default:
        return Attempt::FAILED;
    }
}

SIO_FolderLock::~SIO_FolderLock()
{
    if (_file != -1)
        CloseHandle(reinterpret_cast<HANDLE>(_file));
}

#else

namespace {

int openFolder(const QString& folder)
{
    return ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

} // namespace

bool SIO_FolderLock::isHeldByOthers(const QString& folder)
{
    const int descriptor = openFolder(folder);
    const bool isHeld = descriptor >= 0 && ::flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (descriptor >= 0)
        ::close(descriptor);
    return isHeld;
}

SIO_FolderLock::Attempt SIO_FolderLock::tryLock()
{
    // isWritable() checks the folder's permissions; the superuser could lock a folder in spite of them.
    if (!QFileInfo(_folder).isWritable())
        return Attempt::NOT_PERMITTED;
    const int descriptor = openFolder(_folder);
    if (descriptor < 0)
        return errno == EACCES || errno == EPERM ? Attempt::NOT_PERMITTED : Attempt::FAILED;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        _file = descriptor;
        return Attempt::LOCKED;
    }
    const int reason = errno;
    ::close(descriptor);
    return reason == EWOULDBLOCK || reason == EINTR ? Attempt::HELD_BY_OTHERS : tryLockOfFile();
}

SIO_FolderLock::Attempt SIO_FolderLock::tryLockOfFile()
{
    const QByteArray path = QFile::encodeName(_path);
    struct stat locked = {};
    struct stat named = {};
    // Opening a device can have side effects, so the kind is checked first.
    if (::lstat(path.constData(), &named) == 0 && !S_ISREG(named.st_mode))
        return Attempt::IN_THE_WAY;
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
    if (file < 0)
        return errno == EACCES || errno == EPERM || errno == EROFS ? Attempt::NOT_PERMITTED : Attempt::FAILED;
    const bool isMine = ::flock(file, LOCK_EX | LOCK_NB) == 0;
    const bool isStillThere = isMine && ::fstat(file, &locked) == 0 && ::lstat(path.constData(), &named) == 0 &&
                              locked.st_ino == named.st_ino && locked.st_dev == named.st_dev;
    if (!isStillThere) {
        ::close(file);
        return Attempt::HELD_BY_OTHERS;
    }
    _file = file;
    _madeFile = true;
    return Attempt::LOCKED;
}

SIO_FolderLock::~SIO_FolderLock()
{
    if (_file == -1)
        return;
    if (_madeFile)
        ::unlink(QFile::encodeName(_path).constData());
    ::close(static_cast<int>(_file));
}

#endif
