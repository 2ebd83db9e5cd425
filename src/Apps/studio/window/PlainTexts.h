// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PlainTexts: shows the names in tool tips and questions as they are. Names come from files, and Qt would take
// "<img src='//machine/picture'>" for a rich text and ask that machine for the picture.
#pragma once

#include <QObject>

/// While it lives, tool tips and message boxes of the application that name no format show plain text.
class PlainTexts : public QObject
{
public:
    explicit PlainTexts(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
