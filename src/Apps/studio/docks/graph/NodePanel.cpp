// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The bar is made of plain tool buttons, each of which the Tab key reaches.
#include "studio/docks/graph/NodePanel.h"

#include <QBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

NodePanel::NodePanel(StudioDocument& document, QWidget* parent)
    : QWidget(parent), _view(new NodeView(document)), _actions(new NodeActions(*_view, *_view)), _way(new QWidget)
{
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(6, 4, 6, 4);
    bar->setSpacing(4);
    auto* add = new QPushButton(tr("Add"));
    add->setObjectName(QStringLiteral("AddNode"));
    add->setToolTip(tr("Add a node; it is linked to the selected one"));
    auto* kinds = new QMenu(add);
    _actions->fillAddMenu(*kinds);
    add->setMenu(kinds);
    bar->addWidget(add);
    _add = add;

    _wayLayout = new QHBoxLayout(_way);
    _wayLayout->setContentsMargins(6, 0, 0, 0);
    _wayLayout->setSpacing(0);
    bar->addWidget(_way);
    bar->addStretch();
    bar->addWidget(barButton(_actions->fit(), tr("Fit")));

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    // The tab order is the order in which the layout gives the children to the panel.
    rows->addLayout(bar);
    rows->addWidget(_view, 1);
    setFocusProxy(_view);
    connect(_view, &NodeView::groupChanged, this, &NodePanel::showWay);
    showWay();
}

QToolButton* NodePanel::barButton(QAction* action, const QString& text)
{
    auto* button = new QToolButton;
    button->setDefaultAction(action);
    button->setText(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

void NodePanel::showWay()
{
    QList<XUGroup*> way;
    for (XUGroup* group = &_view->group(); group; group = group->group())
        way.prepend(group);
    while (QLayoutItem* const old = _wayLayout->takeAt(0)) {
        // The signal of a button that was just pressed is still being handled.
        if (QWidget* widget = old->widget()) {
            widget->hide();
            widget->deleteLater();
        }
        delete old;
    }
    QWidget* before = _add;
    for (qsizetype i = 0; i < way.size(); ++i) {
        auto* step = new QToolButton;
        const QString name = i == 0 ? tr("Scene") : way[i]->instanceName();
        step->setText(i == 0 ? name : QStringLiteral("\u203a  %1").arg(name));
        step->setToolTip(tr("Show \"%1\"").arg(name));
        step->setAutoRaise(true);
        step->setFocusPolicy(Qt::StrongFocus);
        step->setEnabled(i + 1 < way.size());
        const auto levelsUp = way.size() - 1 - i;
        connect(step, &QToolButton::clicked, _view, [this, levelsUp] {
            for (qsizetype level = 0; level < levelsUp; ++level)
                _view->leave();
        });
        _wayLayout->addWidget(step);
        setTabOrder(before, step);
        before = step;
    }
}
