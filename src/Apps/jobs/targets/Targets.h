// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The programs that normal maps are made for, as a table: what each of them expects. A program more is a row more, here
// and in docs/targets.md, which says for every row how it was verified; a test compares the two.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelNormalMap/NM_MapForm.h"

#include <span>

/// A program, or a kind of programs, that takes normal maps.
struct Target
{
    const char* name;   ///< as it is typed after --for
    const char* title;  ///< as people write it
    NM_MapForm form;    ///< what is written for it
    const char* suffix; ///< what a map's name adds to the drawing's
    const char* ending; ///< of the map's file: png or exr
    bool takesCoverage; ///< it lights maps rightly whose alpha is the coverage

    QString titleText() const { return QString::fromUtf8(title); }
    QString suffixText() const { return QString::fromLatin1(suffix); }
    QString endingText() const { return QString::fromLatin1(ending); }
};

/// What is written when nobody names a program: right in as many of them as possible.
inline constexpr NM_MapForm kFormForMost{.yAxis = NM_YAxis::UP, .alpha = NM_Alpha::FULL, .bits = 16, .pad = 4};
/// What such a map's name adds to the drawing's.
inline constexpr const char* kSuffixForMost = "_n";

/// All rows, by name.
std::span<const Target> targets();

/// The row of that name, in any case, or an error that lists the names.
UT_Result<const Target*> targetNamed(const QString& name);

/// Whether the program lights a map of this form rightly, as a PNG file. More bits and other paddings than it asks for
/// do no harm.
bool lights(const Target& target, const NM_MapForm& form);

/// A map's form in words, for people: "y up, opaque, 16 bits, 4 pixels of padding".
QString wordsOf(const NM_MapForm& form);

/// Whom a PNG map of this form is right for and whom it is not, as one line for people.
QString fitsLine(const NM_MapForm& form);
