// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Godot 4's CanvasTexture: a resource that joins a drawing with its normal map, so that sprites take it as one texture.
#pragma once

#include <QByteArray>
#include <QString>

/// The files of a CanvasTexture, absolute or relative to the working folder.
struct CanvasTextureFiles
{
    QString resource; ///< the .tres file itself
    QString drawing;
    QString normals;
    QString gloss; ///< empty: none
};

/// The text of the resource. It names the others by their paths from its own folder, so the files can be moved
/// together.
QByteArray canvasTexture(const CanvasTextureFiles& files);
