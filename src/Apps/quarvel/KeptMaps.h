// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which drawings of a run are done already (--resume). Every picture that is made of a drawing holds a digest of all
// that determines it: the drawing, the values that its folder gives, the atlas, the options, the names of the files and
// the code. A drawing is done if all its files hold the digest that they would get now, whatever the times of files
// are.
#pragma once

#include "NormalMapOptions.h"
#include "OutputFiles.h"
#include "Report.h"
#include "WritePictures.h"

/// The digest of all that determines the files of a drawing: 64 hexadecimal digits. Folders do not count, so that maps
/// may be moved.
///
/// @return empty for a single drawing without --resume, so that its files do not depend on how the command was spelt;
/// and if a file that counts cannot be read, or only once, as a pipe can
QByteArray digestOfMaps(const NormalMapOptions& options, const QString& drawing, const OutputFiles& files);

/// The digest that a picture of this kind holds.
///
/// @param maps the digest of the drawing's files; empty: none
QByteArray digestOfPicture(const QByteArray& maps, PictureKind kind);

/// Whether all pictures of a drawing are complete and hold the digest. False if a file that cannot hold one is wanted,
/// such as a page for browsers.
bool areMapsOnDisk(const NormalMapOptions& options, const OutputFiles& files, const QByteArray& digest);

/// Warns of wanted files that cannot hold a digest, because of which --resume makes everything again.
void warnOfFilesWithoutDigest(const NormalMapOptions& options, const OutputFiles& files, Report& report);
