// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The copy is written as scenes are: whole or not at all.
#include "studio/document/Autosave.h"

#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "studio/document/StudioDocument.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QUuid>

namespace {

QString lockOf(const QString& folder)
{
    return folder + QStringLiteral("/lock");
}

QString sceneOf(const QString& folder)
{
    return folder + QStringLiteral("/kept.scene");
}

QString aboutOf(const QString& folder)
{
    return folder + QStringLiteral("/about.ini");
}

const QString kTitle = QStringLiteral("title");
const QString kSavedAs = QStringLiteral("savedAs");
const QString kState = QStringLiteral("state");
const QString kTime = QStringLiteral("time");

SIO_SceneState stateIn(const QSettings& about)
{
    const QByteArray digest = QByteArray::fromHex(about.value(kState).toByteArray());
    return {digest.isEmpty() ? QByteArrayLiteral("unknown") : digest};
}

} // namespace

Autosave::Autosave(StudioDocument& document, const QString& folder, QObject* parent)
    : QObject(parent), _document(document), _folder(folder)
{
    connect(&document, &StudioDocument::sceneChanged, this, [this] { _stale = true; });
    connect(&document, &StudioDocument::lightsChanged, this, [this] { _stale = true; });
    connect(&document, &StudioDocument::sceneReplaced, this, [this] { _stale = true; });
    connect(&document, &StudioDocument::stateChanged, this, &Autosave::documentChanged);
    connect(&_timer, &QTimer::timeout, this, &Autosave::tick);
    _timer.start(kIntervalSeconds * 1000);
}

Autosave::~Autosave()
{
    forget();
}

QString Autosave::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/recovery");
}

QList<LeftScene> Autosave::left() const
{
    QList<LeftScene> found;
    for (const QFileInfo& entry : QDir(_folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = entry.absoluteFilePath();
        if (folder == _own || !QFileInfo::exists(sceneOf(folder)))
            continue;
        QLockFile lock(lockOf(folder));
        lock.setStaleLockTime(0);
        if (!lock.tryLock())
            continue;
        const QSettings about(aboutOf(folder), QSettings::IniFormat);
        found.append({folder, about.value(kTitle).toString(), about.value(kSavedAs).toString(),
                      about.value(kTime).toDateTime(), stateIn(about)});
    }
    std::ranges::sort(found, std::greater(), &LeftScene::time);
    return found;
}

UT_Result<QStringList> Autosave::recover(const LeftScene& scene)
{
    UT_Result<SIO_LoadedScene> loaded = SIO_loadScene(sceneOf(scene.folder));
    if (!loaded)
        return loaded.error();
    _document.replaceScene(std::move(loaded->scene), scene.savedAs, true, scene.state);
    _document.setRecovered();
    if (scene.savedAs.isEmpty())
        _document.setNameOfDrawings(scene.title);
    // Kept anew under this process's name before the old copy goes.
    _stale = true;
    if (keepNow())
        discard(scene);
    return loaded->warnings;
}

void Autosave::discard(const LeftScene& scene)
{
    QDir(scene.folder).removeRecursively();
}

UT_Result<void> Autosave::keepNow()
{
    if (!_stale || !_document.holdsWork())
        return {};
    if (_own.isEmpty()) {
        const QString own = _folder + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces);
        if (!QDir().mkpath(own))
            return UT_Error{tr("The folder %1 cannot be made, so nothing can be recovered after a crash.").arg(own)};
        auto lock = std::make_unique<QLockFile>(lockOf(own));
        lock->setStaleLockTime(0);
        if (!lock->tryLock())
            return UT_Error{tr("The file %1 cannot be written.").arg(lockOf(own))};
        _own = own;
        _lock = std::move(lock);
    }
    if (const auto saved = SIO_saveScene(_document.scene(), sceneOf(_own)); !saved)
        return saved.error();
    QSettings about(aboutOf(_own), QSettings::IniFormat);
    about.setValue(kTitle, _document.title());
    about.setValue(kSavedAs, _document.folder());
    about.setValue(kState, _document.state().digest.toHex());
    about.setValue(kTime, QDateTime::currentDateTime());
    about.sync();
    _stale = false;
    return {};
}

void Autosave::tick()
{
    // Not in the middle of a movement of the mouse.
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    if (const auto kept = keepNow(); !kept)
        Q_EMIT failed(kept.error().sentence());
}

void Autosave::documentChanged()
{
    if (!_document.holdsWork())
        forget();
}

void Autosave::forget()
{
    if (_own.isEmpty())
        return;
    _lock.reset();
    QDir(_own).removeRecursively();
    _own.clear();
    _stale = true;
}
