// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Texts from files, on a terminal. The name of a layer or a file can hold anything, and a terminal interprets some of
// it: an escape sequence clears the screen or types words as if from the keyboard, a direction override shows one name
// and means another. Everything that the program writes for people goes through here.
#pragma once

#include <QString>

#include <cstdio>

/// The text with what a terminal would interpret written out: control characters but the line feed and the tabulator,
/// and the marks that change the direction of writing, as "\x1b" and "\u202e".
QString visibleText(const QString& text);

/// Writes a text to a stream, in UTF-8 on every system; as visibleText() where somebody watches the stream on a
/// terminal, or it is standard error, which is for people alone and is looked at on a terminal later.
void writeText(std::FILE* stream, const QString& text);
