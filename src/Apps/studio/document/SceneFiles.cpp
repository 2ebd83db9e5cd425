// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The scene is made on the thread that reads the files and handed over whole.
#include "studio/document/SceneFiles.h"

#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "jobs/import/ImportDrawings.h"
#include "studio/document/StudioDocument.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

namespace {

// Between two looks at whether the scene may be replaced, in milliseconds.
constexpr int kPause = 50;

} // namespace

bool OpenRequest::isScene(const QFileInfo& folder)
{
    return folder.isDir() && (folder.suffix() == QLatin1String("scene") || SIO_holdsScene(folder.filePath()));
}

QStringList OpenRequest::drawingPatterns()
{
    QStringList patterns;
    for (const QString& suffix : importableSuffixes())
        patterns << QStringLiteral("*.") + suffix;
    return patterns;
}

UT_Result<OpenRequest> OpenRequest::of(const QStringList& paths)
{
    OpenRequest request;
    for (const QString& path : paths) {
        const QFileInfo file(path);
        if (!file.exists())
            return UT_Error{SceneFiles::tr("%1 does not exist. Is its path right?").arg(path)};
        if (file.fileName() == QLatin1String("scene.xml"))
            request.scene = file.absolutePath();
        else if (isScene(file))
            request.scene = file.absoluteFilePath();
        else if (file.isDir()) {
            const QDir folder(path);
            for (const QString& name : folder.entryList(drawingPatterns(), QDir::Files))
                request.drawings << folder.absoluteFilePath(name);
        } else
            request.drawings << file.absoluteFilePath();
    }
    if (!request.scene.isEmpty() && (paths.size() > 1))
        return UT_Error{SceneFiles::tr("Open one scene at a time, or drawings without a scene.")};
    if (request.scene.isEmpty() && request.drawings.isEmpty())
        return UT_Error{SceneFiles::tr("There is nothing to open: neither a scene nor drawings (%1).")
                            .arg(drawingPatterns().join(QStringLiteral(", ")))};
    return request;
}

QString OpenRequest::path() const
{
    if (!scene.isEmpty() || drawings.size() == 1)
        return scene.isEmpty() ? drawings.first() : scene;
    const QString folder = QFileInfo(drawings.first()).absolutePath();
    UT_Result<OpenRequest> whole = of({folder});
    if (!whole)
        return drawings.first();
    QStringList these = drawings;
    these.sort();
    whole->drawings.sort();
    return whole->drawings == these ? folder : drawings.first();
}

SceneFiles::SceneFiles(StudioDocument& document, QObject* parent) : QObject(parent), _document(document)
{
    connect(&document, &StudioDocument::stateChanged, this, [this] { _changed = true; });
    connect(&document, &StudioDocument::sceneReplaced, this, &SceneFiles::cancel);
}

SceneFiles::~SceneFiles() = default;

void SceneFiles::cancel()
{
    if (!isBusy())
        return;
    _reading.giveUp();
    _read.reset();
    Q_EMIT busyChanged();
}

void SceneFiles::open(const OpenRequest& request)
{
    _read.reset();
    _changed = false;
    _heldAtFirst = QGuiApplication::mouseButtons();
    auto outcome = std::make_shared<Outcome>();
    const auto read = [this, request, outcome](const ReadingThread::GivenUp& givenUp) {
        *outcome = load(request, [this, givenUp](double done) {
            QMetaObject::invokeMethod(
                this,
                [this, givenUp, done] {
                    if (!*givenUp)
                        Q_EMIT progressed(done);
                },
                Qt::QueuedConnection);
            return !*givenUp;
        });
    };
    _reading.start(read, [this, outcome] { finish(outcome); });
    Q_EMIT busyChanged();
}

SceneFiles::Outcome SceneFiles::load(const OpenRequest& request, const std::function<bool(double)>& goOn)
{
    try {
        if (!request.scene.isEmpty()) {
            auto loaded = SIO_loadScene(request.scene);
            if (!loaded)
                return {request, nullptr, {}, loaded.error().sentence()};
            return {request, std::move(loaded->scene), loaded->warnings, {}, loaded->state};
        }
        ImportSettings settings;
        settings.goOn = goOn;
        auto imported = importDrawings(request.drawings, settings);
        if (!imported)
            return {request, nullptr, {}, imported.error().sentence()};
        return {request, std::move(imported->scene), imported->warnings, {}};
    } catch (const std::bad_alloc&) {
        return {request, nullptr, {}, tr("There is not enough memory to open this.")};
    } catch (const std::exception& error) {
        return {request, nullptr, {}, QString::fromUtf8(error.what())};
    }
}

void SceneFiles::finish(const std::shared_ptr<Outcome>& outcome)
{
    if (!outcome->scene) {
        Q_EMIT busyChanged();
        Q_EMIT failed(outcome->error);
        return;
    }
    _read = outcome;
    deliver(outcome);
}

bool SceneFiles::isSceneHeld() const
{
    return QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
           (QGuiApplication::mouseButtons() & ~_heldAtFirst) != Qt::NoButton;
}

void SceneFiles::deliver(const std::shared_ptr<Outcome>& outcome)
{
    if (_read != outcome)
        return;
    if (isSceneHeld()) {
        QTimer::singleShot(kPause, this, [this, outcome] { deliver(outcome); });
        return;
    }
    const bool mayReplace = !_changed || !_mayReplace || _mayReplace();
    // It may have been cancelled during the question.
    if (_read != outcome)
        return;
    _read.reset();
    Q_EMIT busyChanged();
    if (!mayReplace)
        return;
    const OpenRequest& request = outcome->request;
    const bool isImport = request.scene.isEmpty();
    _document.replaceScene(std::move(outcome->scene), request.scene, isImport, outcome->state);
    Q_EMIT opened(request, outcome->warnings.join(QLatin1Char('\n')));
}
