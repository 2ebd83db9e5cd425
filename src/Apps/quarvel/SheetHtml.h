// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The page for browsers (LitPageFile) of a sheet: sprites that are all frames of one animation play; others are shown
// where they lie.
#pragma once

#include "NormalMapOptions.h"
#include "jobs/page/LitPageFile.h"
#include "jobs/sheets/Sheet.h"
#include "jobs/shown/ShownFrame.h"

#include <QSize>

#include <memory>
#include <optional>

/// A page that is written sprite by sprite. It appears whole with finish(), or not at all. For one thread at a time.
class SheetHtml
{
public:
    /// @param file   the page; empty: none is wanted, and nothing happens
    /// @param source the sheet, after which the page is called
    /// @param size   of the sheet
    SheetHtml(const NormalMapOptions& options, const QString& file, const QString& source, const QSize& size);

    /// Adds a sprite, with its drawing and its elevation.
    UT_Result<void> add(const ShownFrame& sprite, const SheetRegion& region);

    /// Writes the page.
    UT_Result<void> finish();

private:
    bool plays() const { return _options.animation; }
    UT_Result<void> addFrame(const LitPageFrame& frame);
    UT_Result<void> lay(LitPageFrame sprite, const SheetRegion& region);
    UT_Result<void> begin(const LitPageFrame& sprite);

    const NormalMapOptions& _options;
    QString _file;
    LitPageSettings _settings;
    QSize _size;
    NM_MapForm _form;
    std::unique_ptr<LitPageFile> _page;  // from the first frame on
    std::optional<LitPageFrame> _layout; // the sheet, if nothing plays
    int _frames = 0;
};
