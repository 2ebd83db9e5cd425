// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads animations in the Lottie format: documents (JSON), and archives of them (.lottie), of which the first animation
// is read.
//
// The library that renders animations may crash on a broken file. It therefore runs in a program of its own,
// quarvel-lottie-reader, with limits on memory and time and without the right to open anything, and what that program
// writes is checked like any untrusted input. A bad file costs a message.
//
// Top-level layers become layers. Fills become areas, strokes their outlines, both cut by clips, masks (of every mode,
// inverted, of any opacity) and mattes (by coverage or brightness, inverted). Solid paints become palette colours,
// gradients their average. What is left out or simplified (pictures, texts, effects, expressions) is named once, in one
// warning; so are the layers that are left out because a text or a picture cuts them.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_Animation.h"

#include <functional>

/// What the reading may cost.
struct DIO_LottieLimits
{
    QString program;                          ///< that reads; empty: quarvel-lottie-reader beside the running program
    int seconds = 120;                        ///< of waiting for it
    qint64 bytes = qint64{512} * 1024 * 1024; ///< that it may write
    /// Called now and then with how much is done, 0 to 1; returning false stops the reading. May be empty.
    std::function<bool(double done)> goOn = {};
};

/// Reads an animation of up to 64 MiB, unpacked. What kind the file is follows from its contents. Any thread may call
/// it; it waits for the other program.
///
/// @return an error of the kind STOPPED when limits.goOn said to stop
QUARVELDRAWINGIO_EXPORT UT_Result<DIO_Animation> DIO_readLottie(const QString& path,
                                                                const DIO_LottieLimits& limits = {});
