// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the program that reads animations may write when a file has taken it over: a script writes the input in its
// place.
#include "QuarvelDrawingIO/DIO_LottieReader.h"
#include "Targets.h"

#include <QFile>

namespace {

constexpr const char* kDocument = R"({"v":"5.5.2","fr":10,"ip":0,"op":2,"w":100,"h":100,"layers":[]})";

QString program()
{
    const QString path = fuzzFile(QStringLiteral("reader"), "#!/bin/sh\nexec cat \"${0%/*}/stream\"\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

} // namespace

void fuzzLottieStream(const QByteArray& input)
{
    static const QString reader = program();
    static const QString document = fuzzFile(QStringLiteral("stream.json"), kDocument);
    fuzzFile(QStringLiteral("stream"), input);
    DIO_LottieLimits limits;
    limits.program = reader;
    limits.seconds = 10;
    const auto animation = DIO_readLottie(document, limits);
    if (!animation) {
        FUZZ_CHECK(!animation.error().text.isEmpty());
        return;
    }
    for (const DIO_AnimatedLayer& layer : animation->layers) {
        FUZZ_CHECK(layer.shown.size() == static_cast<std::size_t>(animation->frames));
        for (const int drawing : layer.shown)
            FUZZ_CHECK(drawing >= -1 && drawing < static_cast<int>(layer.drawings.size()));
    }
}
