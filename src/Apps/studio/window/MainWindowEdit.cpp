// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes of the selected modules, the help, and the text about the application.
#include "studio/window/MainWindow.h"

#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "studio/window/HelpDialog.h"
#include "studio/window/Icons.h"
#include "studio/window/MessageBar.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace {

std::vector<MO_Module*> modulesOf(const QList<MO_Module*>& selection)
{
    return {selection.begin(), selection.end()};
}

} // namespace

void MainWindow::deleteSelected()
{
    _document.execute(MO_removeModulesCmd(modulesOf(_document.selection())));
}

void MainWindow::duplicateSelected()
{
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
