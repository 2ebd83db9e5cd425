// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExportMemory: what a person chose in the export dialog last, kept in the application's settings: pictures, target and
// form, and for each drawing's folder the one that its pictures went to. Size, frames, heights and names belong to each
// drawing and are proposed anew.
#pragma once

#include "QuarvelNormalMap/NM_MapForm.h"
#include "studio/export/ExportChoices.h"
#include "studio/export/GlossColours.h"

/// What is remembered. A plain value.
struct ExportMemory
{
    QList<ExportPicture> pictures = {ExportPicture::MAP};
    QString target;     ///< as after --for; empty: no single program
    bool asSet = false; ///< the form below was set by hand, for no target
    NM_MapForm form;
    NM_Layout layout = NM_Layout::TANGENT;
    QString ending = QStringLiteral("png");
    bool half = false;
    bool floatRender = false;
    GlossSettings gloss; ///< of all colours for which it was ever set

    /// Reads the settings; missing values get the defaults of a new installation.
    static ExportMemory load();
    void store() const;

    /// The folder for pictures of drawings in a folder: the one of the last export of such a drawing, otherwise the
    /// drawings' own folder.
    static QString folderFor(const QString& drawings);
    static void rememberFolder(const QString& drawings, const QString& pictures);
};
