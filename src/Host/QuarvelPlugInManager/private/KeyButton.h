// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// KeyButton: shows whether an attribute has a key at the frame, and sets or removes it when it is pressed.
#pragma once

#include <QToolButton>

class AT_AnimatableAttr;

/// The button: a lozenge, full where there is a key, empty where the attribute is animated, small where it is not.
class KeyButton : public QToolButton
{
public:
    explicit KeyButton(QWidget* parent);
    ~KeyButton() override;

    /// Shows how things stand at a frame.
    void showStateOf(const AT_AnimatableAttr& attr, double frame);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Look
    {
        STILL,
        ANIMATED,
        KEY
    };

    Look _look = Look::STILL;
};
