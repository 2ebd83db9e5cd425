// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A drawing is a page of sprites, a tile that repeats, or a picture of its own.
#include "DrawingRun.h"

#include "GlossOption.h"
#include "InputAdvice.h"
#include "KeptMaps.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelDrawingIO/DIO_LayeredReader.h"
#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "RenderedDrawing.h"
#include "SheetRun.h"
#include "WritePictures.h"
#include "jobs/drawing/DescribeObjects.h"
#include "jobs/drawing/ReadDrawing.h"
#include "jobs/targets/CanvasTexture.h"

#include <algorithm>

namespace {

// How much of a drawing's time its steps take, roughly.
constexpr double kReadEnds = 0.05;
constexpr double kRenderEnds = 0.75;

// Whether a larger map of a drawing would show more of it.
bool isVector(const QString& path)
{
    const DIO_DrawingKind* const kind = DIO_drawingKindOf(path);
    const auto isLayered = [&](const DIO_LayeredKind& layered) { return layered.name == kind->name; };
    return kind && !kind->isBitmap && std::ranges::none_of(DIO_layeredKinds(), isLayered);
}

class DrawingRun
{
public:
    DrawingRun(const NormalMapOptions& options, const DrawingTask& task, RunProgress& progress)
        : _options(options)
        , _task(task)
        , _progress(progress)
        , _drawing(options.drawings[static_cast<qsizetype>(task.index)])
    {}

    UT_Result<void> run(const OutputFiles& files, const std::vector<SheetRegion>& regions)
    {
        show(0.0);
        if (UT_Result<void> made = makeFolders(files); !made)
            return made;
        _digest = digestOfMaps(_options, _drawing, files);
        _isKept = _options.resume && areMapsOnDisk(_options, files, _digest);
        if (UT_Result<void> done = _isKept ? UT_Result<void>() : makeMaps(files, regions); !done)
            return done;
        return files.canvas.isEmpty() ? UT_Result<void>() : writeCanvas(files);
    }

    const QString& chosen() const { return _chosen; }
    const QStringList& warnings() const { return _warnings; }
    bool isKept() const { return _isKept; }
    int ownSide() const { return _ownSide; }

private:
    UT_Result<void> makeMaps(const OutputFiles& files, const std::vector<SheetRegion>& regions)
    {
        return _options.cells || !regions.empty() ? runPage(files, regions) : runDrawing(files);
    }

    PictureOrigin origin() const { return {_drawing, _digest}; }

    UT_Result<void> writeCanvas(const OutputFiles& files) const
    {
        const QString& drawing = files.drawing.isEmpty() ? _drawing : files.drawing;
        return IIO_writeFile(files.canvas, canvasTexture({files.canvas, drawing, files.normalMap, files.gloss}));
    }

    UT_Result<void> runPage(const OutputFiles& files, const std::vector<SheetRegion>& regions)
    {
        const UT_Result<SheetResult> done = runSheet(origin(), regions, _options, files, part(0.0, 1.0));
        if (!done)
            return done.error();
        _warnings = done->warnings;
        _chosen = QStringLiteral("sprites: %1").arg(done->sprites);
        return {};
    }

    UT_Result<void> runDrawing(const OutputFiles& files)
    {
        if (const UT_Result<void> readable = checkIsDrawing(_drawing); !readable)
            return readable.error();
        const UT_Result<ReadDrawing> read = readDrawing(_drawing, formSettings(), _options.tiling);
        if (!read)
            return read.error();
        _warnings = read->warnings;
        show(kReadEnds);
        return _options.tiling.isAny() ? renderTiled(read->drawing, files) : renderAlone(read->drawing, files);
    }

    // A tile repeats beyond its border, whatever the picture's shape is.
    FormSettings formSettings() const
    {
        FormSettings form = _options.settings.form;
        const std::optional<QSize>& size = _options.settings.size;
        if (size && size->height() > 0 && !_options.tiling.isAny())
            form.aspect = static_cast<double>(size->width()) / size->height();
        return form;
    }

    UT_Result<void> renderAlone(const LayeredDrawing& drawing, const OutputFiles& files)
    {
        _chosen = chosenFor(drawing);
        const auto rendered = render(drawing, _options.settings, files);
        if (!rendered)
            return rendered.error();
        if (isVector(_drawing) && !_options.settings.size)
            _ownSide = std::max(rendered->frame.window.width(), rendered->frame.window.height());
        return writePictures(*rendered, _options, files, origin(), part(kRenderEnds, 1.0));
    }

    UT_Result<void> renderTiled(LayeredDrawing drawing, const OutputFiles& files)
    {
        const Tiling& tiling = _options.tiling;
        shrinkGivenForms(drawing, tiling, _options.settings.form.shape);
        auto rendered = render(drawing, settingsForTiles(_options.settings, drawing.size, tiling), files);
        if (!rendered)
            return rendered.error();
        rendered->frame.window = middleOf(rendered->frame.window, tiling);
        return writePictures(*rendered, _options, files, origin(), part(kRenderEnds, 1.0));
    }

    UT_Result<RenderedDrawing> render(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                      const OutputFiles& files)
    {
        auto rendered = renderDrawing(drawing, settings, _options, files, part(kReadEnds, kRenderEnds), _task.atOnce);
        if (!rendered)
            return rendered;
        if (rendered->showsNothing)
            _warnings << QStringLiteral("all objects are hidden or cut out, so nothing shows");
        if (const QString warning = glossWarning(rendered->gloss.missing); !warning.isEmpty())
            _warnings << warning;
        return rendered;
    }

    QString chosenFor(const LayeredDrawing& drawing) const
    {
        constexpr std::size_t kFitScreen = 24;
        const QString heading = QStringLiteral("chosen: ");
        if (drawing.layers.size() > kFitScreen)
            return heading +
                   QStringLiteral("%1 objects; quarvel inspect %2 lists them").arg(drawing.layers.size()).arg(_drawing);
        // A line for each, which shells join when all are pasted.
        const QString next = QStringLiteral(" \\\n") + QString(heading.size(), u' ');
        return heading + objectOptions(drawing, _options.settings).join(next);
    }

    void show(double done) { _progress.show(_task.index, done, _drawing); }

    JobProgress part(double from, double to)
    {
        return [this, from, to](double done) {
            show(from + (to - from) * done);
            return !_task.stops();
        };
    }

    const NormalMapOptions& _options;
    const DrawingTask& _task;
    RunProgress& _progress;
    const QString& _drawing;
    QByteArray _digest;
    bool _isKept = false;
    int _ownSide = 0;
    QString _chosen;
    QStringList _warnings;
};

} // namespace

DrawingEnd runDrawing(const NormalMapOptions& options, const DrawingTask& task, const OutputFiles& files,
                      const std::vector<SheetRegion>& regions, RunProgress& progress)
{
    DrawingRun run(options, task, progress);
    const auto done = UT_withinMemory(QStringLiteral("this drawing"), QStringLiteral("choose a smaller size"),
                                      [&] { return run.run(files, regions); });
    return {done, run.chosen(), run.warnings(), run.isKept(), run.ownSide()};
}
