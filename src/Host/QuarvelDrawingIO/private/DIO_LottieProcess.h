// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Runs the program that reads animations, and collects what it writes.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_LottieReader.h"

#include <QByteArray>

#include <functional>

/// Runs the program on a document.
///
/// @param path    what messages call the document
/// @param written gets what the program writes, as it comes
/// @param goOn    called now and then, at least five times a second, while the program runs; returns whether to go on
/// @return an error when the program fails, crashes or goes beyond a limit, or goOn said to stop
UT_Result<void> DIO_runLottieProgram(const QByteArray& document, const QString& path, const DIO_LottieLimits& limits,
                                     QByteArray& written, const std::function<bool()>& goOn);
