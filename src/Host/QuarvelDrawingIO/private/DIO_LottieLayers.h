// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_LottieLayers: the layers of an animation's document, rewritten for the library that paints them. See
// DIO_LottieDocument.h.
#pragma once

#include "QuarvelDrawingIO/private/DIO_LottieDocument.h"

#include <QByteArrayView>
#include <QJsonArray>
#include <QJsonObject>

class DIO_LottieLayers
{
public:
    /// The layers of the animation or of one of its compositions, uppermost first.
    ///
    /// @param layers what the text says
    /// @param text   an array
    QByteArray rewritten(const QJsonArray& layers, QByteArrayView text);

    /// What was found out about all layers so far.
    std::vector<DIO_LottieLayerFacts> takeFacts() { return std::move(_facts); }

    /// The names of the layers that are left out, because what cuts them cannot be painted.
    const QStringList& leftOut() const { return _leftOut; }

private:
    std::size_t note(const QJsonObject& layer);

    std::vector<DIO_LottieLayerFacts> _facts;
    QStringList _leftOut;
};
