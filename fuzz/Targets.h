// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is fuzzed: one function for each reader of input that comes from strangers. Two programs call them: libFuzzer's
// (Fuzzer.cpp, one program a target, ./dev fuzz) and one that replays the kept inputs and some changes of them in the
// ordinary tests (Replay.cpp).
#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <span>
#include <utility>
#include <vector>

/// Tries one input. A property that does not hold ends the program (FUZZ_CHECK); whatever else ends it is found, too.
using FuzzFunction = void (*)(const QByteArray& input);

/// A reader under test. Its kept inputs are in corpus/NAME, its words in dictionaries/NAME.dict.
struct FuzzTarget
{
    const char* name;
    FuzzFunction run;
};

/// All of them.
std::span<const FuzzTarget> fuzzTargets();
/// Null when there is none of that name.
const FuzzTarget* findFuzzTarget(const char* name);

/// Makes what the targets need: an application that can paint, and the plug-ins of the build. Ends the program where
/// that fails.
void prepareFuzzing(int& argc, char** argv);

/// The folder in which a target keeps its files; it goes with the program.
QString fuzzFolder();
/// Writes a file in that folder, in new folders where its name has some.
QString fuzzFile(const QString& name, const QByteArray& content);

/// The files of an input that holds several: they follow each other, each behind a line "=== " and its name.
std::vector<std::pair<QString, QByteArray>> fuzzFilesIn(const QByteArray& input);

/// Ends the program with the property that does not hold.
#define FUZZ_CHECK(property) ((property) ? void() : fuzzFailed(#property, __FILE__, __LINE__))
[[noreturn]] void fuzzFailed(const char* property, const char* file, int line);

void fuzzAtlas(const QByteArray& input);
void fuzzBitmap(const QByteArray& input);
void fuzzFrame(const QByteArray& input);
void fuzzLayered(const QByteArray& input);
void fuzzLottieDocument(const QByteArray& input);
void fuzzLottieStream(const QByteArray& input);
void fuzzScene(const QByteArray& input);
void fuzzSceneFile(const QByteArray& input);
void fuzzSetWords(const QByteArray& input);
void fuzzSvg(const QByteArray& input);
void fuzzTables(const QByteArray& input);
