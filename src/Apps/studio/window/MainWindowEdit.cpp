// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes of the selected modules, the help, and the text about the application.
#include "studio/window/MainWindow.h"

#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "studio/docks/graph/NodePanel.h"
#include "studio/window/HelpDialog.h"
#include "studio/window/Icons.h"
#include "studio/window/MessageBar.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QStatusBar>

namespace {

constexpr int kRemark = 5000; // milliseconds

std::vector<MO_Module*> modulesOf(const QList<MO_Module*>& selection)
{
    return {selection.begin(), selection.end()};
}

} // namespace

void MainWindow::deleteSelected()
{
    _document.execute(MO_removeModulesCmd(modulesOf(_document.selection())));
}

// Copies of nodes are not linked to anything, so they are of use in the graph only: in the picture a copy of an object
// would never be seen.
void MainWindow::duplicateSelected()
{
    if (!findChild<NodePanel*>()->isAncestorOf(focusWidget()))
        return statusBar()->showMessage(tr("Nodes are duplicated in the graph: click one there first"), kRemark);
    std::vector<MO_Module*> copies;
    UT_Result<MO_EditCommand> command = MO_duplicateModulesCmd(modulesOf(_document.selection()), &copies);
    if (!command)
        return _messages->showError(command.error().text);
    if (_document.execute(std::move(*command)))
        _document.setSelection({copies.begin(), copies.end()});
}

void MainWindow::showHelp()
{
    if (!_help)
        _help = new HelpDialog(*this);
    _help->refresh();
    _help->show();
    _help->raise();
    _help->activateWindow();
}

void MainWindow::showAbout()
{
    QMessageBox about(this);
    about.setWindowTitle(tr("About Quarvel Studio"));
    about.setIconPixmap(applicationIcon().pixmap(QSize(96, 96), devicePixelRatioF()));
    about.setTextFormat(Qt::RichText);
    about.setText(tr("<h3>Quarvel Studio %1</h3>Volume for flat drawings: elevation, normal maps, light.")
                      .arg(QCoreApplication::applicationVersion().toHtmlEscaped()));
    about.setInformativeText(tr("Copyright 2026 The Vallorin developers. Free software under the Apache License 2.0."));
    about.exec();
}
