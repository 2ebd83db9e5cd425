// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MessageBar: shows errors and notices above the picture, without interrupting people.
#pragma once

#include <QFrame>

class QLabel;
class QToolButton;

/// A few lines of text with a button that hides them. Hidden while there is no message.
class MessageBar : public QFrame
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    /// Shows an error until it is closed or the next message comes.
    void showError(const QString& text);
    /// Shows a notice.
    void showNotice(const QString& text);
    /// The message; empty if there is none.
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
