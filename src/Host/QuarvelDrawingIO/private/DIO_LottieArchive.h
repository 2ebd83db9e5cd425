// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the document of an animation in a .lottie file: a zip archive with a manifest, which lists the animations, and
// a document for each of them.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QByteArray>
#include <QStringList>

/// The document of an animation.
struct DIO_LottieArchive
{
    QByteArray document;
    QString warning; ///< which animations are left out; empty: there is one only
};

/// Whether these are the first bytes of an archive.
bool DIO_isLottieArchive(const QByteArray& bytes);

/// Reads the document of the first animation that the manifest lists.
///
/// @param path of the archive
/// @param most how many bytes the document may have when it is unpacked
/// @return an error when the archive is damaged, or without a manifest, animations, or the document. Its text does not
/// say which file
UT_Result<DIO_LottieArchive> DIO_readLottieArchive(const QString& path, qint64 most);
