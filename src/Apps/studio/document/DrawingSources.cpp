// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The watcher only says that something may have happened; what happened is found out by looking at the files.
#include "studio/document/DrawingSources.h"

#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/drawing/ObjectWords.h"
#include "jobs/import/DrawingDigest.h"
#include "jobs/import/FrameNumbers.h"
#include "jobs/import/ImportDrawings.h"
#include "jobs/import/SceneElements.h"
#include "jobs/import/UpdateDrawings.h"
#include "studio/document/StudioDocument.h"

#include <QFileInfo>
#include <QGuiApplication>

#include <algorithm>
#include <new>

struct DrawingSources::Reading
{
    Request request;
    std::vector<Stamp> stamps; // before the files were read
    bool isUnchanged = false;  // so they were not read
    UT_Result<ImportedScene> result = UT_Error{};
};

namespace {

QString nameOf(const QStringList& files)
{
    return QFileInfo(files.first()).fileName();
}

UT_Result<ImportedScene> readFiles(const QStringList& files, const QString& objects,
                                   const ReadingThread::GivenUp& givenUp)
{
    ImportSettings settings;
    settings.goOn = [givenUp](double) { return !*givenUp; };
    if (const qsizetype choice = objectChoiceWords().indexOf(objects); choice >= 0)
        settings.form.objects = static_cast<ObjectChoice>(choice);
    try {
        return importDrawings(files, settings);
    } catch (const std::bad_alloc&) {
        return UT_Error{DrawingSources::tr("There is not enough memory to open this.")};
    } catch (const std::exception& error) {
        return UT_Error{QString::fromUtf8(error.what())};
    }
}

} // namespace

DrawingSources::DrawingSources(StudioDocument& document, QObject* parent) : QObject(parent), _document(document)
{
    _quiet.setSingleShot(true);
    _quiet.setInterval(kQuiet);
    _again.setSingleShot(true);
    connect(&_quiet, &QTimer::timeout, this, &DrawingSources::look);
    connect(&_again, &QTimer::timeout, this, &DrawingSources::startNext);
    connect(&_watcher, &QFileSystemWatcher::fileChanged, this, [this] { _quiet.start(); });
    connect(&_watcher, &QFileSystemWatcher::directoryChanged, this, [this] { _quiet.start(); });
    connect(&_document, &StudioDocument::sceneReplaced, this, &DrawingSources::sceneReplaced);
    connect(&_document, &StudioDocument::sceneChanged, this, &DrawingSources::follow);
    connect(&_document, &StudioDocument::aboutToSave, this, &DrawingSources::noteKnownVersions);
}

DrawingSources::~DrawingSources() = default;

DrawingSources::Stamp DrawingSources::stampOf(const QString& file)
{
    const QFileInfo info(file);
    return info.isFile() ? Stamp{true, info.size(), info.lastModified()} : Stamp();
}

std::vector<DrawingSources::Stamp> DrawingSources::stampsOf(const QStringList& files) const
{
    std::vector<Stamp> stamps;
    for (const QString& file : files)
        stamps.push_back(stampOf(file));
    return stamps;
}

void DrawingSources::sceneReplaced()
{
    // What is read for a scene that is not open any more is of no use.
    _thread.giveUp();
    _held.reset();
    _again.stop();
    _queue.clear();
    _seen.clear();
    _read.clear();
    _told.clear();
    _sources.clear();
    follow();
    // Drawings that were just imported are as their files are.
    if (!_document.folder().isEmpty())
        lookForOlderChanges();
}

// A layer that is in no file any more keeps the digest of the files that it came from; one that knows the newest speaks
// for all.
void DrawingSources::lookForOlderChanges()
{
    for (const QStringList& files : _sources) {
        Request request{files, files};
        for (const MO_ElementModule* const element : elementsFrom(_document.scene(), files))
            if (const QString& digest = element->origin().digest; !digest.isEmpty())
                request.known << digest;
        if (!request.known.isEmpty())
            enqueue(request);
    }
}

// The scene's sources may be others after every change: elements come and go.
void DrawingSources::follow()
{
    const std::vector<QStringList> now = originsOf(_document.scene());
    if (now == _sources)
        return;
    _sources = now;
    if (!_sources.empty())
        _document.setNameOfDrawings(sequenceName(_sources.front()));
    for (const QStringList& files : _sources)
        for (const QString& file : files)
            if (!_seen.contains(file))
                _seen.insert(file, stampOf(file));
    watch();
}

// Folders too: they tell when a file that is gone is back.
void DrawingSources::watch()
{
    QStringList wanted;
    for (const QStringList& files : _sources)
        for (const QString& file : files)
            for (const QString& path : {file, QFileInfo(file).absolutePath()})
                if (!wanted.contains(path) && QFileInfo::exists(path))
                    wanted << path;
    const QStringList watched = _watcher.files() + _watcher.directories();
    QStringList superfluous = watched;
    superfluous.removeIf([&](const QString& path) { return wanted.contains(path); });
    wanted.removeIf([&](const QString& path) { return watched.contains(path); });
    if (!superfluous.isEmpty())
        _watcher.removePaths(superfluous);
    if (!wanted.isEmpty())
        _watcher.addPaths(wanted);
}

void DrawingSources::look()
{
    watch();
    for (const QStringList& files : _sources)
        if (std::ranges::any_of(files, [this](const QString& file) { return stampOf(file) != _seen.value(file); }))
            enqueue({files, files});
}

void DrawingSources::reloadAll()
{
    _told.clear();
    for (const QStringList& files : _sources)
        enqueue({files, files});
}

void DrawingSources::add(const QStringList& files)
{
    enqueue({{}, originPaths(files)});
}

void DrawingSources::replace(const QStringList& source, const QStringList& files)
{
    enqueue({source, originPaths(files)});
}

void DrawingSources::enqueue(const Request& request)
{
    const bool isWaiting = std::ranges::any_of(_queue, [&](const Request& waiting) {
        return waiting.source == request.source && waiting.files == request.files;
    });
    if (isWaiting && !request.source.isEmpty())
        return;
    _queue.push_back(request);
    startNext();
}

void DrawingSources::startNext()
{
    if (_thread.isReading() || _held || _queue.empty() || _again.isActive())
        return;
    auto reading = std::make_shared<Reading>();
    reading->request = _queue.front();
    _queue.erase(_queue.begin());
    const QStringList& files = reading->request.files;
    reading->stamps = stampsOf(files);
    const QString objects = objectsOf(reading->request.source);
    const auto read = [reading, objects](const ReadingThread::GivenUp& givenUp) {
        const QStringList& known = reading->request.known;
        // A file that is gone leaves the drawing as it is.
        if (const QString digest = known.isEmpty() ? QString() : drawingDigest(reading->request.files);
            !known.isEmpty() && (digest.isEmpty() || known.contains(digest)))
            reading->isUnchanged = true;
        else
            reading->result = readFiles(reading->request.files, objects, givenUp);
    };
    _thread.start(read, [this, reading] { finish(reading); });
}

void DrawingSources::finish(const std::shared_ptr<Reading>& reading)
{
    const Request& request = reading->request;
    if (reading->stamps != stampsOf(request.files)) {
        // It was written to meanwhile; what was read may be half of it.
        retry(request, tr("%1 is being written.").arg(nameOf(request.files)));
        return;
    }
    if (reading->isUnchanged) {
        startNext();
        return;
    }
    if (!reading->result) {
        retry(request, reading->result.error().sentence());
        return;
    }
    deliver(reading);
}

// The scene does not change under a hand that drags something. Nothing else is read meanwhile, so that what was read
// last is applied last.
void DrawingSources::deliver(const std::shared_ptr<Reading>& reading)
{
    if (QGuiApplication::mouseButtons() != Qt::NoButton) {
        _held = reading;
        QTimer::singleShot(kQuiet, this, [this, reading] {
            if (_held == reading)
                deliver(reading);
        });
        return;
    }
    _held.reset();
    apply(*reading);
    startNext();
}

void DrawingSources::apply(Reading& reading)
{
    const Request& request = reading.request;
    for (std::size_t i = 0; i < reading.stamps.size(); ++i) {
        const QString& file = request.files[static_cast<qsizetype>(i)];
        _seen.insert(file, reading.stamps[i]);
        _told.removeAll(file);
    }
    MO_Scene& scene = _document.scene();
    for (const MO_ElementModule* const element : elementsFrom(*reading.result->scene, request.files))
        _read.insert(request.files, element->origin().digest);
    const bool adds = request.source.isEmpty();
    const std::vector<MO_ElementModule*> elements =
        adds ? std::vector<MO_ElementModule*>() : elementsFrom(scene, request.source);
    // The drawing may have been deleted from the scene while it was read.
    if (!adds && elements.empty())
        return;
    const QString name = adds                              ? tr("Add %1").arg(nameOf(request.files))
                         : request.source == request.files ? tr("Reload %1").arg(nameOf(request.files))
                                                           : tr("Replace %1").arg(nameOf(request.source));
    const std::vector<MO_ElementModule*> before = elementsFrom(scene, request.files);
    DrawingUpdate update = updateDrawings(scene, elements, *reading.result->scene, name);
    // What was only looked at can still be left without a question: the drawing can be opened again.
    const bool wasUntouched = _document.folder().isEmpty() && !_document.holdsWork();
    Q_EMIT aboutToUpdate();
    const bool isDone = _document.execute(std::move(update.command));
    if (isDone && wasUntouched && request.source == request.files)
        _document.commands().setClean();
    if (isDone && adds)
        selectAdded(request.files, before);
    QStringList remarks = reading.result->warnings;
    if (!request.known.isEmpty())
        remarks.prepend(
            tr("%1 has changed since the scene was saved and was read again. Undo brings the older drawing back.")
                .arg(nameOf(request.files)));
    if (!update.vanished.isEmpty())
        remarks << tr("No longer in %1: %2. The settings are kept in case it comes back.")
                       .arg(nameOf(request.files), update.vanished.join(QStringLiteral(", ")));
    Q_EMIT updated(remarks.join(QLatin1Char('\n')));
}

// What was added lies on top of everything and is what a person goes on with.
void DrawingSources::selectAdded(const QStringList& files, const std::vector<MO_ElementModule*>& before)
{
    QList<MO_Module*> added;
    for (MO_ElementModule* const element : elementsFrom(_document.scene(), files))
        if (std::ranges::find(before, element) == before.end())
            added << element;
    _document.setSelection(added);
}

// Undo brought the older digests back with the older drawings.
void DrawingSources::noteKnownVersions() const
{
    for (const QStringList& files : _sources) {
        const QString digest = _read.value(files);
        if (digest.isEmpty())
            continue;
        const std::vector<MO_ElementModule*> elements = elementsFrom(_document.scene(), files);
        const bool isNoted =
            std::ranges::any_of(elements, [&](const MO_ElementModule* one) { return one->origin().digest == digest; });
        if (isNoted)
            continue;
        for (MO_ElementModule* const element : elements) {
            MO_DrawingOrigin origin = element->origin();
            origin.digest = digest;
            element->setOrigin(origin);
        }
    }
}

void DrawingSources::retry(const Request& request, const QString& error)
{
    if (request.attempt + 1 < kAttempts) {
        Request again = request;
        ++again.attempt;
        _queue.insert(_queue.begin(), again);
        _again.start(kQuiet << again.attempt);
        return;
    }
    // The next change of the file brings the next attempt.
    if (!request.source.isEmpty())
        for (const QString& file : request.files)
            _seen.insert(file, stampOf(file));
    const QString& first = request.files.first();
    if (!_told.contains(first) || request.source != request.files) {
        _told << first;
        const bool isWatched = request.source == request.files;
        Q_EMIT failed(isWatched ? tr("%1 The drawing stays as it was until the file can be read.").arg(error) : error);
    }
    startNext();
}

QString DrawingSources::objectsOf(const QStringList& source) const
{
    const std::vector<MO_ElementModule*> elements = elementsFrom(_document.scene(), source);
    return source.isEmpty() || elements.empty() ? QString() : elements.front()->origin().objects;
}

QStringList DrawingSources::current() const
{
    for (MO_Module* const module : _document.selection())
        if (const auto* const element = dynamic_cast<const MO_ElementModule*>(module))
            if (!element->origin().files.isEmpty())
                return element->origin().files;
    return _sources.size() == 1 ? _sources.front() : QStringList();
}
