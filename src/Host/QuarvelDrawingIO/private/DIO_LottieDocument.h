// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Checks an animation's document before anything else reads it: whether it is one, and what in it cannot be kept.
//
// The library that paints animations does not say everything that it knows of a layer, and pairs a layer with the one
// that cuts it by their places alone, where layers that it cannot paint have none. So it gets a document
// without ambiguity: layers have numbers for names, by which the rest is looked up, and a layer that is cut comes
// right after what cuts it.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

/// What the document says of a layer and the stream does not.
struct DIO_LottieLayerFacts
{
    struct Mask
    {
        bool isInverted; ///< what counts is outside its path
        bool isOff;      ///< it does nothing
    };

    QString name;
    std::vector<Mask> masks;
};

/// A document that was checked.
struct DIO_LottieDocument
{
    QByteArray bytes;                         ///< the document, for the library
    std::vector<DIO_LottieLayerFacts> layers; ///< a layer that is named "7" in bytes is number 7 here
    QStringList warnings;                     ///< what is left out or simplified: a line, or none
};

/// Checks a document and prepares it.
///
/// @return an error when the document is no animation. Its text does not say which file
UT_Result<DIO_LottieDocument> DIO_prepareLottieDocument(const QByteArray& document);
