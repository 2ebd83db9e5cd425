// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The words of "quarvel render", turned into settings. Pure: it looks at no file. A wrong word gives an error that says
// what was expected.
#pragma once

#include "LightOption.h"
#include "MapFormOptions.h"
#include "QuarvelBaseCore/UT_Result.h"
#include "RenderProgress.h"
#include "jobs/shown/GlossDrawing.h"
#include "jobs/shown/RenderedKind.h"

#include <QSize>
#include <QStringList>

#include <optional>
#include <utility>

/// The whole command line of one run.
struct RenderOptions
{
    QString scene;
    QString output;
    QString preview; ///< empty: none is made
    QString lit;     ///< empty: none are written
    QString drawing; ///< the same
    QString page;    ///< for browsers; empty: none is made
    QString height;  ///< empty: none are written
    QString occlusion;
    QString numbers;
    QString glossFile;
    QString frames; ///< empty: all of the scene
    QString node;   ///< empty: the scene's output

    std::optional<QSize> resolution; ///< in pixels; a height of 0 follows from the scene's shape
    int proxy = 1;                   ///< both sides are divided by this
    bool renderInFloat = false;

    std::optional<double> heightRange; ///< pixels that white stands for in files of integers
    GlossSettings gloss;

    std::optional<RenderedKind> shown; ///< what the node's picture is taken for
    NM_Layout layout = NM_Layout::TANGENT;
    MapFormOptions form;

    int jobs = 0;        ///< frames at once; 0: as many as the job may use threads (JobLimits.h)
    double memory = 0.0; ///< bytes; 0: half of what the job may use
    bool resume = false;
    std::pair<int, int> shard{1, 1};       ///< the first of, say, four: 1, 4
    std::optional<double> framesPerSecond; ///< of the preview; nothing: the scene's
    std::optional<LightAngles> light;      ///< nothing: the scene's own lights

    RenderProgressStyle progress = RenderProgressStyle::AUTOMATIC;
    bool quiet = false;
    bool help = false;
};

/// Reads the words after "render".
UT_Result<RenderOptions> parseRenderOptions(const QStringList& words);

/// The size of the pictures: what the options ask for, or 1920 pixels wide in the scene's shape, divided by the proxy.
///
/// @param frameHeight the height of the scene's frame, whose width is 720
/// @return each side at least 1
std::pair<int, int> renderResolution(const RenderOptions& options, double frameHeight);

/// What "quarvel help render" prints.
QString renderHelp();
