// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameFileName: the name of each frame's file. The last of these in the file's own name is where the frame's number
// goes:
//
//     out/n.####.exr      out/n.0007.exr, out/n.-0007.exr, out/n.12345.exr
//     out/n.%04d.exr      the same, as also n.$F4.exr and n.<frame04>.exr
//     out/n.%d.exr        out/n.7.exr, as also n.$F.exr and n.<frame>.exr
//
// Folders are taken as they stand.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

/// The names of the files of several frames. A plain value.
class FrameFileName
{
public:
    /// @return an error when the name is empty or ends as no picture file does
    static UT_Result<FrameFileName> parse(const QString& pattern);

    /// Whether frames get different names.
    bool hasNumber() const { return _digits >= 0; }

    /// The file of a frame. Numbers are filled up with zeros, the sign stands before them.
    QString of(int frame) const;

    /// A pattern for a name that has none, to propose: "out/n.exr" gives "out/n.####.exr".
    static QString proposal(const QString& name);

private:
    QString _before;
    QString _after;
    int _digits = -1; // at least so many; -1: no number
};
