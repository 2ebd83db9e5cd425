// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Runs the program that reads animations, and collects what it writes.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_LottieReader.h"

#include <QByteArray>

/// What the program writes about a document; an error when it fails, crashes, or goes beyond a limit.
///
/// @param path what messages call the document
UT_Result<QByteArray> DIO_runLottieProgram(const QByteArray& document, const QString& path,
                                           const DIO_LottieLimits& limits);
