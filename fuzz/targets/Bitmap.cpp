// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Bitmaps of all kinds that are read: the kind follows from the content.
#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "Targets.h"
#include "form/ChooseObjects.h"

void fuzzBitmap(const QByteArray& input)
{
    const auto drawing = DIO_readBitmap(fuzzFile(QStringLiteral("fuzz.png"), input));
    if (!drawing) {
        FUZZ_CHECK(!drawing.error().text.isEmpty());
        return;
    }
    FUZZ_CHECK(drawing->layers.size() == 1 && !drawing->size.isEmpty());
    // Choosing takes time that follows from the number of pixels.
    constexpr double kMostPixels = 128.0 * 128.0;
    if (drawing->size.width() * drawing->size.height() > kMostPixels)
        return;
    const ChosenObjects chosen = chooseObjects(*drawing, ObjectChoice::AUTO);
    FUZZ_CHECK(chosen.objects.size() == chosen.drawing.layers.size());
}
