// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The copy is written as scenes are: whole or not at all. The window's thread only captures what the scene is; the
// other thread makes a scene of that and saves it.
#include "studio/document/Autosave.h"

#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "studio/document/StudioDocument.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QUuid>

#include <atomic>

namespace {

// How long after a movement of the mouse is looked again, in milliseconds.
constexpr int kAfterMouse = 1000;

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

// What about.ini says besides the time.
struct Autosave::About
{
    QString title;
    QString savedAs;
    QByteArray digest;

    // Saves a scene into a recovery folder, and what there is to know about it.
    UT_Result<void> keep(const MO_Scene& scene, const QString& folder, const SIO_Progress& goOn = {}) const
    {
        if (const auto saved = SIO_saveScene(scene, sceneOf(folder), goOn); !saved)
            return saved.error();
        QSettings file(aboutOf(folder), QSettings::IniFormat);
        file.setValue(kTitle, title);
        file.setValue(kSavedAs, savedAs);
        file.setValue(kState, digest.toHex());
        file.setValue(kTime, QDateTime::currentDateTime());
        file.sync();
        return {};
    }
};

// A copy that another thread stores.
struct Autosave::Copy
{
    Copy(const MO_Scene& scene, About known, QString into)
        : capture(scene), about(std::move(known)), folder(std::move(into))
    {}

    void keep()
    {
        kept = UT_withinMemory({}, {}, [this]() -> UT_Result<void> {
            const auto scene = capture.makeScene();
            if (!scene)
                return scene.error();
            return about.keep(**scene, folder, [this](double) { return !isGivenUp; });
        });
    }

    MO_SceneCapture capture;
    About about;
    QString folder;
    std::atomic<bool> isGivenUp = false;
    UT_Result<void> kept; // of the other thread, until it has ended
};

Autosave::Autosave(StudioDocument& document, const QString& folder, QObject* parent)
    : QObject(parent), _document(document), _folder(folder)
{
    connect(&document, &StudioDocument::sceneChanged, this, [this] { _stale = true; });
    connect(&document, &StudioDocument::lightsChanged, this, [this] { _stale = true; });
    connect(&document, &StudioDocument::sceneReplaced, this, [this] { _stale = true; });
    connect(&document, &StudioDocument::stateChanged, this, &Autosave::documentChanged);
    connect(&_timer, &QTimer::timeout, this, &Autosave::tick);
    _timer.setObjectName(QStringLiteral("autosaveTimer"));
    _timer.setParent(this);
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

bool Autosave::isDue() const
{
    return _stale && _document.holdsWork();
}

Autosave::About Autosave::about() const
{
    return {_document.title(), _document.folder(), _document.state().digest};
}

// This process's recovery folder, if it has none yet.
UT_Result<void> Autosave::makeFolder()
{
    if (!_own.isEmpty())
        return {};
    const QString own = _folder + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!QDir().mkpath(own))
        return UT_Error{tr("The folder %1 cannot be made, so nothing can be recovered after a crash.").arg(own)};
    auto lock = std::make_unique<QLockFile>(lockOf(own));
    lock->setStaleLockTime(0);
    if (!lock->tryLock())
        return UT_Error{tr("The file %1 cannot be written.").arg(lockOf(own))};
    _own = own;
    _lock = std::move(lock);
    return {};
}

UT_Result<void> Autosave::keepNow()
{
    stopKeeping();
    if (!isDue())
        return {};
    if (auto made = makeFolder(); !made)
        return made;
    if (auto kept = about().keep(_document.scene(), _own); !kept)
        return kept;
    _stale = false;
    return {};
}

void Autosave::keepSoon()
{
    if (isKeeping() || !isDue())
        return;
    if (const auto made = makeFolder(); !made) {
        Q_EMIT failed(made.error().sentence());
        return;
    }
    const auto copy = std::make_shared<Copy>(_document.scene(), about(), _own);
    _copy = copy;
    _stale = false;
    _thread.reset(QThread::create([copy] { copy->keep(); }));
    connect(_thread.get(), &QThread::finished, this, [this, copy] { finish(copy); });
    _thread->start();
}

// The news of an end may be on its way already when the copy is given up.
void Autosave::finish(const std::shared_ptr<Copy>& copy)
{
    if (copy != _copy)
        return;
    _thread->wait();
    _thread.reset();
    _copy.reset();
    if (copy->kept)
        return;
    _stale = true;
    Q_EMIT failed(copy->kept.error().sentence());
}

// Afterwards the folder is nobody's but this thread's.
void Autosave::stopKeeping()
{
    if (!isKeeping())
        return;
    _copy->isGivenUp = true;
    _thread->wait();
    _thread.reset();
    _stale = _stale || !_copy->kept;
    _copy.reset();
}

void Autosave::tick()
{
    // Not in the middle of a movement of the mouse, but soon after it.
    const bool isMoving = QGuiApplication::mouseButtons() != Qt::NoButton;
    _timer.start(isMoving ? kAfterMouse : kIntervalSeconds * 1000);
    if (!isMoving)
        keepSoon();
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
    stopKeeping();
    _lock.reset();
    QDir(_own).removeRecursively();
    _own.clear();
    _stale = true;
}
