// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Messages are plain text, so characters in a file's name are never taken for markup.
#include "studio/window/MessageBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

MessageBar::MessageBar(QWidget* parent) : QFrame(parent), _label(new QLabel(this)), _close(new QToolButton(this))
{
    setObjectName(QStringLiteral("messageBar"));
    _label->setWordWrap(true);
    _label->setTextFormat(Qt::PlainText);
    _label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    _close->setText(tr("Close"));
    _close->setToolTip(tr("Puts this message away"));
    _close->setAutoRaise(true);
    connect(_close, &QToolButton::clicked, this, &MessageBar::clear);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(14, 6, 8, 6);
    row->addWidget(_label, 1);
    row->addWidget(_close, 0, Qt::AlignTop);
    hide();
}

void MessageBar::showError(const QString& text)
{
    show(text, true);
}

void MessageBar::showNotice(const QString& text)
{
    show(text, false);
}

QString MessageBar::text() const
{
    return isHidden() ? QString() : _label->text();
}

void MessageBar::clear()
{
    hide();
}

void MessageBar::show(const QString& text, bool error)
{
    // A file may cause a thousand remarks; they must not fill the window.
    constexpr qsizetype kMostLines = 6;
    QStringList lines = text.split(QLatin1Char('\n'));
    const qsizetype more = lines.size() - kMostLines;
    if (more > 0)
        lines = lines.first(kMostLines) << tr("... and %n more", nullptr, static_cast<int>(more));
    _error = error;
    _label->setText(lines.join(QLatin1Char('\n')));
    setVisible(true);
    update();
}

void MessageBar::paintEvent(QPaintEvent*)
{
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    const QColor mark = _error ? QColor(0xd0, 0x3a, 0x3a) : QColor(0xd8, 0x9a, 0x1e);
    QColor ground = mark;
    ground.setAlpha(dark ? 70 : 44);
    QPainter painter(this);
    painter.fillRect(rect(), ground);
    painter.fillRect(QRect(0, 0, 4, height()), mark);
}
