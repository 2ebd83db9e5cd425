// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExportJob: renders frames of a scene into files in the background, with the code that the command line uses.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/frames/RenderFrames.h"

#include <QObject>
#include <QStringList>

#include <atomic>
#include <memory>

class QThread;

/// What a person chose for an export.
struct ExportChoices
{
    QString node;     ///< the module whose picture is written
    QString frames;   ///< as a person writes a range; empty: all
    int width = 1920; ///< of the pictures, in pixels
    RenderedKind shown = RenderedKind::NORMALS;
    NM_Layout layout = NM_Layout::TANGENT;
    NM_YAxis yAxis = NM_YAxis::UP;
    bool floatRender = false;
    bool half = false;
    int pad = 0;
    QString file; ///< with the place of the frame's number, as in FrameFileName
    QString sceneName;
};

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
    /// Frames that are being written are finished.
    void stop() { _stop = true; }

    /// How many frames were asked for.
    int frameCount() const { return static_cast<int>(_settings.frames.size()); }
    /// What went wrong with single frames, a line each.
    const QStringList& failures() const { return _failures; }

Q_SIGNALS:
    void progressed(double done);
    void ended(const RenderFramesResult& result);

private:
    void finish(const RenderFramesResult& result);

    std::unique_ptr<MO_Scene> _scene;
    std::unique_ptr<ShownModule> _shown;
    RenderFramesSettings _settings;
    QStringList _failures;
    std::atomic<bool> _stop = false;
    QThread* _thread = nullptr;
};
