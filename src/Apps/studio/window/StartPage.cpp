// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A column in the middle with the ways to begin and the recent files.
#include "studio/window/StartPage.h"

#include "studio/document/RecentFiles.h"
#include "studio/window/HelpDialog.h"
#include "studio/window/Icons.h"

#include <QCommandLinkButton>
#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

QString shortened(const QString& path)
{
    const QFileInfo file(path);
    return StartPage::tr("%1  -  in %2").arg(file.fileName(), file.absolutePath());
}

} // namespace

StartPage::StartPage(RecentFiles& recent, QWidget* parent)
    : QWidget(parent), _recent(recent), _recentTitle(new QLabel(tr("Recent"))), _list(new QListWidget)
{
    setObjectName(QStringLiteral("startPage"));
    auto* const column = new QWidget;
    column->setMaximumWidth(560);
    auto* const layout = new QVBoxLayout(column);
    layout->setSpacing(4);
    layout->addWidget(heading());
    layout->addSpacing(14);
    addChoices(*layout);
    layout->addSpacing(14);
    QFont bold = _recentTitle->font();
    bold.setBold(true);
    addTour(*layout, bold);
    layout->addSpacing(14);
    _recentTitle->setFont(bold);
    addRecent(*layout);

    auto* const page = new QWidget;
    auto* const all = new QHBoxLayout(page);
    auto* const middle = new QVBoxLayout;
    middle->addStretch(1);
    middle->addWidget(column);
    middle->addStretch(2);
    all->addStretch(1);
    all->addLayout(middle, 6);
    all->addStretch(1);
    addScrolled(*page);
    connect(&recent, &RecentFiles::changed, this, &StartPage::refill);
    refill();
    refreshIcons();
}

// Otherwise a window that has long shown a drawing could not be lower than this page.
void StartPage::addScrolled(QWidget& page)
{
    auto* const scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setAccessibleName(QCoreApplication::applicationName());
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidgetResizable(true);
    scroll->setWidget(&page);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll);
}

void StartPage::addChoices(QVBoxLayout& layout)
{
    const auto add = [&](const char* name, const QString& title, const QString& text, void (StartPage::*requested)()) {
        auto* const button = new QCommandLinkButton(title, text);
        button->setObjectName(QLatin1String(name) + QStringLiteral("Choice"));
        button->setIconSize(QSize(28, 28));
        connect(button, &QCommandLinkButton::clicked, this, requested);
        layout.addWidget(button);
        _choices.append({button, QLatin1String(name)});
    };
    add("import", tr("&Import drawings"), tr("SVG, PNG, PSD, Krita, Aseprite or Lottie, one file or many"),
        &StartPage::importRequested);
    add("open", tr("&Open a scene"), tr("One that was saved before"), &StartPage::openRequested);
    add("example", tr("Look at the &example"), tr("A drawing with volume, and a light to move over it"),
        &StartPage::exampleRequested);
}

void StartPage::addRecent(QVBoxLayout& layout)
{
    layout.addWidget(_recentTitle);
    _list->setObjectName(QStringLiteral("recentList"));
    _list->setAccessibleName(_recentTitle->text());
    _list->setFrameShape(QFrame::NoFrame);
    _list->setTextElideMode(Qt::ElideMiddle);
    _list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    _list->setMaximumHeight(190);
    _list->viewport()->setAutoFillBackground(false);
    layout.addWidget(_list);
    // Not by the list's own activation, which a double click causes as well as a click.
    connect(_list, &QListWidget::itemClicked, this, &StartPage::request);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const enter = new QShortcut(key, _list, nullptr, nullptr, Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, this, [this] { request(_list->currentItem()); });
    }
}

void StartPage::request(const QListWidgetItem* item)
{
    if (item)
        Q_EMIT recentRequested(item->data(Qt::UserRole).toString());
}

QWidget* StartPage::heading()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    auto* const icon = new QLabel;
    icon->setPixmap(applicationIcon().pixmap(QSize(72, 72), devicePixelRatioF()));
    auto* const text = new QLabel(tr("<span style='font-size:20pt; font-weight:600'>Quarvel Studio</span><br>"
                                     "Volume for flat drawings. Drop a drawing here to begin."));
    text->setWordWrap(true);
    layout->addWidget(icon);
    layout->addWidget(text, 1);
    return row;
}

void StartPage::addTour(QVBoxLayout& layout, const QFont& titleFont)
{
    auto* const title = new QLabel(tr("First steps"));
    title->setFont(titleFont);
    layout.addWidget(title);
    auto* const steps =
        new QLabel(HelpDialog::firstSteps() + QStringLiteral("<a href=\"help\">%1</a>").arg(tr("More help")));
    steps->setObjectName(QStringLiteral("firstSteps"));
    steps->setAccessibleName(title->text());
    steps->setTextFormat(Qt::RichText);
    steps->setWordWrap(true);
    steps->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(steps, &QLabel::linkActivated, this, &StartPage::helpRequested);
    layout.addWidget(steps);
}

void StartPage::refill()
{
    _list->clear();
    for (const QString& path : _recent.paths()) {
        auto* const item = new QListWidgetItem(shortened(path), _list);
        item->setData(Qt::UserRole, path);
        item->setToolTip(path);
    }
    _list->setVisible(_list->count() > 0);
    _recentTitle->setVisible(_list->count() > 0);
}

void StartPage::refreshIcons()
{
    for (const auto& [button, icon] : _choices)
        button->setIcon(studioIcon(icon, palette()));
}

void StartPage::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        refreshIcons();
}
