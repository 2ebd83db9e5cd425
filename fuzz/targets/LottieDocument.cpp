// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Animations, read by the program that does so: it may fail, but not this one.
#include "QuarvelDrawingIO/DIO_LottieReader.h"
#include "Targets.h"

void fuzzLottieDocument(const QByteArray& input)
{
    DIO_LottieLimits limits;
    limits.seconds = 10;
    limits.bytes = 16 << 20;
    const auto animation = DIO_readLottie(fuzzFile(QStringLiteral("fuzz.json"), input), limits);
    FUZZ_CHECK(animation ? animation->frames > 0 : !animation.error().text.isEmpty());
}
