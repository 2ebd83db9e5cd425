// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of the programs for which normal maps are made, with what each of them expects. A new program needs a row
// here and in docs/targets.md, which says for every row how it was verified; a test compares the two.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelNormalMap/NM_MapForm.h"

#include <span>

/// What is added to a drawing's name for the names of the pictures beside its map, and what a mask of gloss holds.
struct TargetCompanions
{
    const char* height = "_height";
    const char* occlusion = "_ao";
    const char* gloss = "_gloss";
    bool roughness = false; ///< it takes 1 - gloss
};

/// A program, or a kind of programs, that takes normal maps.
struct Target
{
    const char* name;   ///< its word after --for
    const char* title;  ///< its name for people
    NM_MapForm form;    ///< the form of its maps
    const char* suffix; ///< what is added to the drawing's name for the map's name
    const char* ending; ///< the suffix of the map's file: png or exr
    bool takesCoverage; ///< it lights maps correctly whose alpha is the coverage
    TargetCompanions beside = {};
    /// It draws sprites that lie turned on an atlas' page upright and takes their vectors as they are stored, so
    /// vectors on the page must not be turned with the pixels.
    bool leavesPackedVectors = false;

    QString titleText() const { return QString::fromUtf8(title); }
    QString suffixText() const { return QString::fromLatin1(suffix); }
    QString endingText() const { return QString::fromLatin1(ending); }
};

/// The form if no program is named: correct in as many programs as possible.
inline constexpr NM_MapForm kFormForMost{.yAxis = NM_YAxis::UP, .alpha = NM_Alpha::FULL, .bits = 16, .pad = 4};
/// What is added to the drawing's name for such a map's name.
inline constexpr const char* kSuffixForMost = "_n";

/// The form that a file's format can hold: with at most its bits. Unchanged for a name that ends in no known format.
NM_MapForm formInFile(NM_MapForm form, const QString& file);

/// All rows, by name.
std::span<const Target> targets();

/// The row of a program, with its name in upper or lower case, or an error that lists the names.
UT_Result<const Target*> targetNamed(const QString& name);

/// Whether the program lights a PNG map of this form correctly. Other bits and paddings than its own do not matter.
bool lights(const Target& target, const NM_MapForm& form);

/// A map's form in words, for people: "y up, opaque, 16 bits, 4 pixels of padding".
QString wordsOf(const NM_MapForm& form);

/// One line for people: for which programs a PNG map of this form is correct, and for which it is not. Where one was
/// named and the map is correct for it, the line names no other.
///
/// @param named null: none
QString fitsLine(const NM_MapForm& form, const Target* named = nullptr);
