// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DrawingSources: the files that the drawings of the open scene came from. They are watched: when one changes, it is
// read again in the background and the scene follows, as one step that can be undone (UpdateDrawings.h). Drawings are
// added and replaced in the same way.
//
// Editors save in many ways: they write into the file, which is short of its end for a while; or they write another
// file and rename it, so that the watched one is gone for a moment. So a change is looked at when it has been quiet for
// kQuiet, and a file that cannot be read is tried again kAttempts times, each time after twice as long. Until it can be
// read, the drawing stays as it is, and people are told once.
//
// When a scene is opened, files whose content is not what the scene was made of are read in the same way. A version of
// a file that was read and undone counts as known from the next save on: whoever keeps the older drawing keeps it.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "studio/document/ReadingThread.h"

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <vector>

struct ImportedScene;
class MO_ElementModule;
class StudioDocument;

class DrawingSources : public QObject
{
    Q_OBJECT

public:
    /// How long nothing has to happen to a file before it is read, in milliseconds.
    static constexpr int kQuiet = 150;
    static constexpr int kAttempts = 5;

    explicit DrawingSources(StudioDocument& document, QObject* parent = nullptr);
    ~DrawingSources() override;

    /// The files of each source of the scene; files that were read together are one source.
    const std::vector<QStringList>& all() const { return _sources; }
    /// Where the selected element's drawings came from; the only source where nothing of one is selected. Empty when it
    /// is not clear which one is meant.
    QStringList current() const;

    /// Whether files are read, or wait to be read, also for another attempt.
    bool isBusy() const { return _thread.isReading() || _held || !_queue.empty(); }

    /// Reads all sources again, changed or not.
    void reloadAll();
    /// Adds the drawings of other files to the scene.
    void add(const QStringList& files);
    /// Takes the drawings of other files in place of those of a source.
    void replace(const QStringList& source, const QStringList& files);

Q_SIGNALS:
    /// Files were read, and the scene follows them next.
    void aboutToUpdate();
    /// The scene follows its files now.
    void updated(const QString& remarks);
    /// A file cannot be read; the scene stays as it is.
    void failed(const QString& error);

private:
    /// What is known of a file without reading it.
    struct Stamp
    {
        bool exists = false;
        qint64 size = 0;
        QDateTime modified;

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };
    /// Files that are to be read.
    struct Request
    {
        QStringList source; ///< what their drawings take the place of; empty: nothing
        QStringList files;
        QStringList known = {}; ///< digests: files with one of them are not read
        int attempt = 0;
    };
    /// Files as they are read.
    struct Reading;

    static Stamp stampOf(const QString& file);
    std::vector<Stamp> stampsOf(const QStringList& files) const;
    void sceneReplaced();
    void lookForOlderChanges();
    void follow();
    void watch();
    void look();
    void enqueue(const Request& request);
    void startNext();
    void finish(const std::shared_ptr<Reading>& reading);
    void deliver(const std::shared_ptr<Reading>& reading);
    void apply(Reading& reading);
    void retry(const Request& request, const QString& error);
    QString objectsOf(const QStringList& source) const;
    void selectAdded(const QStringList& files, const std::vector<MO_ElementModule*>& before);
    void noteKnownVersions() const;

    StudioDocument& _document;
    std::vector<QStringList> _sources;
    QHash<QStringList, QString> _read; // the digest of each source's version that was read last
    QHash<QString, Stamp> _seen;       // of files as they were read, or were found when the scene was opened
    QFileSystemWatcher _watcher;
    QTimer _quiet;
    QTimer _again; // for the next attempt
    std::vector<Request> _queue;
    std::shared_ptr<Reading> _held; // until no mouse button is down
    ReadingThread _thread;
    QStringList _told; // files that people know cannot be read
};
