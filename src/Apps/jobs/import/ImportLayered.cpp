// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Drawings with layers of their own, such as SVG drawings: one a frame.
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "form/ChooseObjects.h"
#include "jobs/drawing/OwnValues.h"
#include "jobs/import/ImportKinds.h"
#include "jobs/import/RepeatedWarnings.h"
#include "jobs/import/SequenceBuilder.h"

namespace {

bool showsTheSamePlace(const DrawingSequence& sequence, const DIO_Drawing& drawing)
{
    return drawing.viewBox == sequence.frame && drawing.size == sequence.size;
}

} // namespace

UT_Result<DrawingSequence> readLayeredSequence(const QStringList& files, const ImportSettings& settings)
{
    const UT_Result<std::vector<NumberedFile>> numbered = numberFrames(files);
    if (!numbered)
        return numbered.error();
    SequenceBuilder builder(sequenceName(files));
    RepeatedWarnings warnings;
    DrawingSequence place;
    QString placedBy; // the file whose place counts
    const ObjectChoice objects = settings.form.objects;
    double read = 0.0;
    for (const NumberedFile& file : *numbered) {
        if (settings.goOn && !settings.goOn(read++ / static_cast<double>(numbered->size())))
            return UT_stopped();
        UT_Result<DIO_Drawing> drawing = DIO_readDrawing(file.path, groupingFor(objects), DIO_Blank::ACCEPTED);
        if (!drawing)
            return drawing.error();
        takeValuesFromNames(*drawing);
        if (place.frame.isEmpty()) {
            place.frame = drawing->viewBox;
            place.size = drawing->size;
            placedBy = file.path;
        }
        const bool hasPlace = !drawing->viewBox.isEmpty();
        if (hasPlace && !showsTheSamePlace(place, *drawing))
            drawing->warnings.append(
                QStringLiteral("its size or place differs from that of %1, which counts").arg(placedBy));
        warnings.add(file.path, drawing->warnings);
        // Objects found in each drawing separately would not correspond from frame to frame.
        if (numbered->size() == 1)
            builder.addFrame(file.frame, chooseObjects(*drawing, objects));
        else
            builder.addFrame(file.frame, *drawing);
    }
    DrawingSequence sequence = builder.take();
    if (sequence.layers.empty())
        return UT_Error{
            QStringLiteral("%1: nothing is filled or stroked in any of the drawings").arg(numbered->front().path)};
    sequence.frame = place.frame;
    sequence.size = place.size;
    sequence.firstFrame = numbered->front().frame;
    sequence.lastFrame = numbered->back().frame;
    sequence.warnings += warnings.lines();
    if (numbered->size() > 1 && objects == ObjectChoice::SHAPES)
        sequence.warnings.append(
            QStringLiteral("the objects are the layers that the drawings have in common; shapes are "
                           "chosen in single drawings alone"));
    return sequence;
}
