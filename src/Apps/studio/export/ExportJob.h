// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExportJob: renders frames of a scene into files in the background, with the code that the command line uses.
#pragma once

#include "studio/export/ExportPlan.h"

#include <QObject>

#include <atomic>

class QThread;

/// One export. Start it once.
class ExportJob : public QObject
{
    Q_OBJECT

public:
    explicit ExportJob(QObject* parent = nullptr);
    /// Stops and waits.
    ~ExportJob() override;

    /// Makes a copy of the scene and begins.
    ///
    /// @return an error, and nothing has begun, when the choices do not fit the scene
    UT_Result<void> start(const MO_Scene& scene, const ExportChoices& choices);
    /// Stops after the files that are being written. Other files stay unchanged.
    void stop() { _stop = true; }

    /// The number of pictures to write.
    int pictureCount() const;
    /// The files that were written, each of them complete.
    const QStringList& written() const { return _written; }
    /// Whether a picture failed or the job was stopped.
    bool isIncomplete() const { return _stopped || _failed > 0; }
    /// A text for people that says how the job ended.
    QString report() const;

Q_SIGNALS:
    void progressed(double done);
    void ended();

private:
    void run();
    RenderFramesResult runOne(std::size_t run);
    /// Finds the height that white stands for where nobody set one.
    UT_Result<void> measure(std::size_t run);
    void tellProgress(std::size_t run, double done);
    void tellFailure(const QString& reason);
    RenderFramesWatcher watcherOf(std::size_t run);
    void finish();

    ExportPlan _plan;
    QStringList _written;
    QStringList _failures; ///< a line for each of them
    int _failed = 0;
    bool _stopped = false;
    std::atomic<bool> _stop = false;
    QThread* _thread = nullptr;
};
