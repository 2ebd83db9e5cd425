// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DialogFolders: where the dialogs for files begin: where people were when they chose something in them last. Kept in
// the application's settings.
#pragma once

#include <QString>

/// The dialogs that remember a folder, each one of its own.
enum class FileDialogKind
{
    DRAWINGS,
    SCENES
};

/// The folder of the last choice, or else that of the person's documents, or else the person's own: the first that
/// exists.
QString dialogFolder(FileDialogKind kind);

/// Something was chosen in a dialog.
///
/// @param path a drawing, or a scene's folder; the folder that it lies in is remembered
void rememberDialogFolder(FileDialogKind kind, const QString& path);
