// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Actions of menus have the menu's place, whatever else they were added to. All others work where the widget is that
// they were added to.
#include "studio/window/Shortcuts.h"

#include <QAction>
#include <QCoreApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

namespace {

QString withoutMnemonic(const QString& text)
{
    // A doubled ampersand stands for a visible one.
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('&') && i + 1 < text.size())
            ++i;
        plain += text[i];
    }
    return plain.remove(QStringLiteral("..."));
}

QString keysOf(const QAction& action)
{
    QStringList keys;
    for (const QKeySequence& sequence : action.shortcuts())
        if (!sequence.isEmpty())
            keys << sequence.toString(QKeySequence::NativeText);
    return keys.join(QStringLiteral(", "));
}

// The title of the panel around a widget, or the widget's own name.
QString placeOf(const QWidget& widget)
{
    for (const QWidget* each = &widget; each; each = each->parentWidget())
        if (const auto* const dock = qobject_cast<const QDockWidget*>(each))
            return dock->windowTitle();
    if (!widget.accessibleName().isEmpty())
        return widget.accessibleName();
    return QCoreApplication::translate("Shortcuts", "Everywhere");
}

class Collection
{
public:
    void addMenu(const QMenu& menu, const QString& place)
    {
        for (QAction* const action : menu.actions()) {
            add(*action, place);
            if (action->menu())
                addMenu(*action->menu(), place);
        }
    }
    void add(const QAction& action, const QString& place)
    {
        const QString keys = keysOf(action);
        if (keys.isEmpty() || _known.contains(&action))
            return;
        _known.insert(&action);
        _shortcuts.push_back({place, withoutMnemonic(action.text()), keys});
    }
    std::vector<Shortcut> take() { return std::move(_shortcuts); }

private:
    QSet<const QAction*> _known;
    std::vector<Shortcut> _shortcuts;
};

} // namespace

std::vector<Shortcut> shortcutsOf(const QMainWindow& window)
{
    Collection found;
    for (const QAction* const top : window.menuBar()->actions())
        if (top->menu())
            found.addMenu(*top->menu(), withoutMnemonic(top->text()));
    QList<const QWidget*> widgets{&window};
    for (const QWidget* const widget : window.findChildren<QWidget*>())
        widgets << widget;
    // The window's own actions last: panels add some of theirs to it, so that the keys work everywhere.
    widgets.move(0, widgets.size() - 1);
    for (const QWidget* const widget : std::as_const(widgets))
        for (const QAction* const action : widget->actions())
            found.add(*action, placeOf(*widget));
    return found.take();
}
