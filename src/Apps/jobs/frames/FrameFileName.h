// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameFileName: the name of each frame's file. The last sign for a number in the file's own name is replaced by the
// frame's number:
//
//     out/n.####.exr      out/n.0007.exr, out/n.-0007.exr, out/n.12345.exr
//     out/n.%04d.exr      the same; so do n.$F4.exr and n.<frame04>.exr
//     out/n.%d.exr        out/n.7.exr; so do n.$F.exr and n.<frame>.exr
//
// Folders' names are used unchanged.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

/// The names of the files of several frames. A plain value.
class FrameFileName
{
public:
    /// @return an error if the name does not end in the suffix of a picture format
    static UT_Result<FrameFileName> parse(const QString& pattern);

    /// Whether frames get different names.
    bool hasNumber() const { return _digits >= 0; }

    /// The file of a frame. The number is padded with zeros; a minus sign precedes them.
    QString of(int frame) const;

    /// A pattern to propose for a name without such a sign: "out/n.####.exr" for "out/n.exr".
    static QString proposal(const QString& name);

private:
    QString _before;
    QString _after;
    int _digits = -1; // the least number of digits; -1: no number
};
