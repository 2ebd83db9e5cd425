// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes and reads the key, and computes seals with it.
#include "QuarvelSceneIO/private/SIO_JournalSeal.h"

#include "QuarvelBaseCore/UT_NativePath.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>
#include <QStandardPaths>

#include <array>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

const QByteArray kSeal = "seal ";
constexpr qsizetype kKeySize = 32;
constexpr qsizetype kSealLength = 64;

QString keyFolder()
{
#ifdef Q_OS_WIN
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
#else
    QString base = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(base))
        base = QDir::homePath() + QStringLiteral("/.local/state");
#endif
    return base + QStringLiteral("/quarvel");
}

QString keyPath()
{
    return keyFolder() + QStringLiteral("/journal.key");
}

// A key that others can read, or could have written, is not a secret.
bool isPrivate(const QString& path)
{
#ifdef Q_OS_WIN
    return !QFileInfo(path).isSymLink();
#else
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
#endif
}

std::optional<QByteArray> readKey()
{
    const QString path = keyPath();
    QFile file(path);
    if (!isPrivate(path) || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray key = file.read(kKeySize + 1);
    return key.size() == kKeySize ? std::optional(std::move(key)) : std::nullopt;
}

QByteArray randomBytes(qsizetype count)
{
    std::array<quint32, 8> words = {};
    QRandomGenerator::system()->fillRange(words.data(), static_cast<qsizetype>(words.size()));
    return QByteArray(reinterpret_cast<const char*>(words.data()), count);
}

bool writePrivately(QFile& file, const QByteArray& bytes)
{
    // The file has its permissions before its bytes.
    bool written = file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered,
                             QFile::ReadOwner | QFile::WriteOwner) &&
                   file.write(bytes) == bytes.size();
#ifndef Q_OS_WIN
    // If a crash of the machine lost the key, the journals sealed with it would be worthless.
    written = written && (::fsync(file.handle()) == 0 || errno == EINVAL);
#endif
    file.close();
    return written;
}

// Makes the key, unless another process was faster.
void makeKey()
{
    if (!QDir().mkpath(keyFolder()))
        return;
    const QString name = QString::fromLatin1(randomBytes(8).toHex());
    QFile fresh(keyFolder() + QStringLiteral("/journal.key.") + name);
    if (writePrivately(fresh, randomBytes(kKeySize))) {
#ifdef Q_OS_WIN
        // Does not replace an existing file. The file then has the key's name, and is not to be removed.
        if (fresh.rename(keyPath()))
            return;
#else
        // Unlike rename(), link() does not replace an existing file.
        (void)::link(QFile::encodeName(fresh.fileName()).constData(), QFile::encodeName(keyPath()).constData());
        const int folder = ::open(QFile::encodeName(keyFolder()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (folder >= 0) {
            (void)::fsync(folder);
            ::close(folder);
        }
#endif
    }
    fresh.remove();
}

// Distinguishes a folder from its copies, and from folders that took its place; empty if the system does not tell.
QByteArray identityOf(const QString& folder)
{
#ifdef Q_OS_WIN
    const HANDLE handle =
        CreateFileW(UT_nativePath(folder).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return {};
    BY_HANDLE_FILE_INFORMATION information = {};
    const bool isTold = GetFileInformationByHandle(handle, &information) != 0;
    CloseHandle(handle);
    if (!isTold)
        return {};
    // The index counts how often its place was used, so it needs no time beside it. Wine's times of making change with
    // what is in the folder.
    const quint64 index = (quint64{information.nFileIndexHigh} << 32) | information.nFileIndexLow;
    return QByteArray::number(index) + ' ' + QByteArray::number(qulonglong{information.dwVolumeSerialNumber});
#else
    struct stat status = {};
    if (::stat(QFile::encodeName(folder).constData(), &status) != 0)
        return {};
    const QDateTime born = QFileInfo(folder).birthTime();
    return QByteArray::number(static_cast<qulonglong>(status.st_ino)) + ' ' +
           QByteArray::number(born.isValid() ? born.toMSecsSinceEpoch() : 0);
#endif
}

QByteArray sealOf(const QByteArray& text, const QByteArray& identity, const QByteArray& key)
{
    return QMessageAuthenticationCode::hash(identity + '\n' + text, key, QCryptographicHash::Sha256).toHex();
}

// Compares in constant time, so that the time does not tell where the two differ.
bool isEqual(const QByteArray& a, const QByteArray& b)
{
    if (a.size() != b.size())
        return false;
    int different = 0;
    for (qsizetype i = 0; i < a.size(); ++i)
        different |= a.at(i) ^ b.at(i);
    return different == 0;
}

} // namespace

UT_Result<QByteArray> SIO_sealed(const QByteArray& text, const QString& folder)
{
    auto key = readKey();
    if (!key) {
        makeKey();
        key = readKey();
    }
    const QByteArray identity = identityOf(folder);
    if (!key || identity.isEmpty())
        return UT_Error{
            QCoreApplication::translate("SIO_JournalSeal",
                                        "cannot make or read the key \"%1\", without which no save is safe; make "
                                        "that folder writable and the file your own, or set XDG_STATE_HOME")
                .arg(QDir::toNativeSeparators(keyPath()))};
    return text + kSeal + sealOf(text, identity, *key) + '\n';
}

std::optional<QByteArray> SIO_unsealed(const QByteArray& sealed, const QString& folder)
{
    const qsizetype end = sealed.size() - (kSeal.size() + kSealLength + 1);
    if (end < 0 || sealed.mid(end, kSeal.size()) != kSeal || !sealed.endsWith('\n'))
        return std::nullopt;
    const auto key = readKey();
    const QByteArray identity = identityOf(folder);
    const QByteArray text = sealed.left(end);
    if (!key || identity.isEmpty() ||
        !isEqual(sealed.mid(end + kSeal.size(), kSealLength), sealOf(text, identity, *key)))
        return std::nullopt;
    return text;
}
