// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MessageBar: tells people what went wrong, or what was left out, above the picture, without stopping them.
#pragma once

#include <QFrame>

class QLabel;
class QToolButton;

/// A line or a few of text that can be put away. Hidden as long as there is nothing to say.
class MessageBar : public QFrame
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    /// Something did not work; stays until it is put away or the next message comes.
    void showError(const QString& text);
    /// Something is worth knowing.
    void showNotice(const QString& text);
    /// What is said; empty when nothing is.
    QString text() const;
    bool isError() const { return _error; }

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): what precedes are no slots
    void clear();

private:
    void show(const QString& text, bool error);
    void paintEvent(QPaintEvent* event) override;

    QLabel* _label;
    QToolButton* _close;
    bool _error = false;
};
