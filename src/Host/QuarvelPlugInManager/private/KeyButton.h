// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// KeyButton: shows whether an attribute has a key at the frame; pressing it sets or removes the key.
#pragma once

#include <QToolButton>

class AT_AnimatableAttr;

/// The button: a lozenge, filled where there is a key, empty where the attribute is animated, small where it is not.
class KeyButton : public QToolButton
{
public:
    explicit KeyButton(QWidget* parent);
    ~KeyButton() override;

    /// Shows the attribute's state at a frame.
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
