// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Opening, saving and leaving.
#include "studio/window/MainWindow.h"

#include "studio/document/DialogFolders.h"
#include "studio/document/SceneDialog.h"
#include "studio/export/ExportDialog.h"
#include "studio/export/ExportMemory.h"
#include "studio/window/BusyBar.h"
#include "studio/window/MessageBar.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStandardPaths>
#include <QStatusBar>

namespace {

QStringList pathsOf(const QMimeData& data)
{
    QStringList paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths << url.toLocalFile();
    return paths;
}

QString withSuffix(const QString& folder)
{
    return QFileInfo(folder).suffix() == QLatin1String("scene") ? folder : folder + QStringLiteral(".scene");
}

// Beside the drawing, if that is a place for files of this person; else where scenes were saved last.
QString folderForFirstSave(const std::vector<QStringList>& sources)
{
    const QString beside = sources.empty() ? QString() : QFileInfo(sources.front().first()).absolutePath();
    return !beside.isEmpty() && QFileInfo(beside).isWritable() ? beside : dialogFolder(FileDialogKind::SCENES);
}

} // namespace

QString MainWindow::examplePath()
{
    const QString path =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/quarvel/examples/hero.svg"));
    return QFileInfo::exists(path) ? path : QString();
}

bool MainWindow::confirmLeaving()
{
    if (!_document.holdsWork())
        return true;
    QMessageBox question(QMessageBox::Warning, tr("Unsaved Changes"),
                         tr("\"%1\" has changes that are not saved.").arg(_document.title()),
                         QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    question.setInformativeText(tr("Do you want to save them? Discarded changes cannot be restored."));
    // Qt's own texts have no letters to press.
    question.button(QMessageBox::Save)->setText(tr("&Save"));
    question.button(QMessageBox::Discard)->setText(tr("&Discard"));
    question.setDefaultButton(QMessageBox::Save);
    switch (question.exec()) {
    case QMessageBox::Save:
        return save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

void MainWindow::newScene()
{
    if (!confirmLeaving())
        return;
    _messages->clear();
    _document.replaceScene(std::make_unique<MO_Scene>(), {}, false);
    showStart(false);
}

void MainWindow::askForScene()
{
    SceneDialog dialog(dialogFolder(FileDialogKind::SCENES), this);
    if (dialog.exec() == QDialog::Accepted)
        openPaths({dialog.scene()});
}

QStringList MainWindow::chooseDrawings(const QString& title)
{
    return QFileDialog::getOpenFileNames(
        this, title, dialogFolder(FileDialogKind::DRAWINGS),
        tr("Drawings (%1);;All files (*)").arg(OpenRequest::drawingPatterns().join(QLatin1Char(' '))));
}

void MainWindow::askForDrawings()
{
    const QStringList files = chooseDrawings(tr("Import Drawings"));
    if (!files.isEmpty())
        openPaths(files);
}

void MainWindow::addDrawings()
{
    const QStringList files = chooseDrawings(tr("Add Drawings"));
    if (files.isEmpty())
        return;
    rememberDialogFolder(FileDialogKind::DRAWINGS, files.first());
    _sources.add(files);
}

void MainWindow::replaceDrawing()
{
    const QStringList source = _sources.current();
    if (source.isEmpty()) {
        _messages->showNotice(_sources.all().empty()
                                  ? tr("The scene does not say which file its drawings came from.")
                                  : tr("The scene has several drawings; select one of them in the elements first."));
        return;
    }
    const QStringList files = chooseDrawings(tr("Replace %1").arg(QFileInfo(source.first()).fileName()));
    if (files.isEmpty())
        return;
    rememberDialogFolder(FileDialogKind::DRAWINGS, files.first());
    _sources.replace(source, files);
}

void MainWindow::makeSources()
{
    connect(&_sources, &DrawingSources::updated, this, [this](const QString& remarks) {
        _messages->clear();
        if (!remarks.isEmpty())
            _messages->showNotice(remarks);
    });
    connect(&_sources, &DrawingSources::aboutToUpdate, &_lastExport, &LastExport::noteSize);
    connect(&_sources, &DrawingSources::updated, &_lastExport, &LastExport::followSize);
    connect(&_sources, &DrawingSources::failed, _messages, &MessageBar::showError);
}

void MainWindow::openExample()
{
    const QString example = examplePath();
    if (example.isEmpty())
        _messages->showError(tr("The example is not installed beside the program."));
    else
        openPaths({example});
}

void MainWindow::openRecent(const QString& path)
{
    if (!QFileInfo::exists(path)) {
        _recent.remove(path);
        _messages->showError(tr("%1 does not exist any more. Was it moved or renamed?").arg(path));
        return;
    }
    openPaths({path});
}

void MainWindow::openPaths(const QStringList& paths)
{
    const UT_Result<OpenRequest> request = OpenRequest::of(paths);
    if (!request) {
        _messages->showError(request.error().sentence());
        return;
    }
    if (!confirmLeaving())
        return;
    _messages->clear();
    _files.open(*request);
}

void MainWindow::opened(const OpenRequest& request, const QString& remarks)
{
    const bool isImport = request.scene.isEmpty();
    if (const QString path = request.path(); path != examplePath()) {
        _recent.add(path);
        rememberDialogFolder(isImport ? FileDialogKind::DRAWINGS : FileDialogKind::SCENES,
                             isImport ? request.drawings.first() : path);
    }
    if (!remarks.isEmpty())
        _messages->showNotice(remarks);
    showStart(false);
    selectWhatMatters();
}

bool MainWindow::save()
{
    return _document.folder().isEmpty() ? saveAs() : saveTo(_document.folder());
}

bool MainWindow::saveAs()
{
    const QString name = _document.title() + QStringLiteral(".scene");
    const QString proposed =
        _document.folder().isEmpty() ? QDir(folderForFirstSave(_sources.all())).filePath(name) : _document.folder();
    const QString folder = QFileDialog::getSaveFileName(this, tr("Save the Scene"), proposed, tr("Scenes (*.scene)"),
                                                        nullptr, QFileDialog::DontConfirmOverwrite);
    if (folder.isEmpty())
        return false;
    const QString target = withSuffix(folder);
    if (target != _document.folder() && QFileInfo::exists(target) &&
        QMessageBox::question(this, tr("Save the Scene"), tr("%1 exists already. Replace it?").arg(target)) !=
            QMessageBox::Yes)
        return false;
    return saveTo(target);
}

bool MainWindow::confirmReplacingOthers()
{
    QMessageBox question(QMessageBox::Warning, tr("The Scene Changed"),
                         tr("Another program saved \"%1\" after it was opened here.").arg(_document.title()),
                         QMessageBox::NoButton, this);
    question.setInformativeText(
        tr("Replace that scene by this one? To keep both, cancel and save this one as another."));
    const QPushButton* const replace = question.addButton(tr("&Replace"), QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    question.exec();
    return question.clickedButton() == replace;
}

bool MainWindow::saveTo(const QString& folder)
{
    auto saved = _document.saveUnlessOthersDid(folder);
    if (saved && !*saved) {
        if (!confirmReplacingOthers())
            return false;
        const auto replaced = _document.save(folder);
        saved = replaced ? UT_Result<bool>(true) : replaced.error();
    }
    if (!saved) {
        _messages->showError(tr("The scene was not saved: %1").arg(saved.error().sentence()));
        return false;
    }
    _messages->clear();
    _recent.add(folder);
    rememberDialogFolder(FileDialogKind::SCENES, folder);
    return true;
}

// The folder of the drawing, otherwise that of the scene; if it cannot be written, the person's folder for pictures.
QString MainWindow::drawingFolder() const
{
    const QString& scene = _document.folder();
    const QString folder = !_sources.all().empty() ? QFileInfo(_sources.all().front().first()).absolutePath()
                           : scene.isEmpty()       ? QDir::homePath()
                                                   : QFileInfo(scene).absolutePath();
    return QFileInfo(folder).isWritable() ? folder : QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

void MainWindow::exportFrames()
{
    const QString& scene = _document.folder();
    const QString name = _document.title();
    ExportOrigin origin{name, drawingFolder(), scene.isEmpty() ? name : QFileInfo(scene).fileName()};
    if (_document.scene().firstFrame() != _document.scene().lastFrame())
        origin.folder += QLatin1Char('/') + name + QStringLiteral("_frames");
    ExportDialog dialog(_document.scene(), origin, this);
    if (_lastExport.choices())
        dialog.setChoices(*_lastExport.choices());
    dialog.exec();
    if (dialog.exported())
        _lastExport.setChoices(*dialog.exported());
}

void MainWindow::repeatExport()
{
    if (!_lastExport.choices())
        return exportFrames();
    _messages->clear();
    _lastExport.repeat();
}

void MainWindow::sharePage()
{
    const QString drawings = drawingFolder();
    QFileDialog dialog(this, tr("Share"), ExportMemory::folderFor(drawings), tr("Pages (*.html)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("html"));
    dialog.selectFile(_document.title() + QStringLiteral(".html"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString file = dialog.selectedFiles().value(0);
    ExportMemory::rememberFolder(drawings, QFileInfo(file).absolutePath());
    _messages->clear();
    _pageShare.start(file, _document.title());
}

void MainWindow::makeBusyBars()
{
    auto* const opening =
        new BusyBar(QStringLiteral("cancelOpening"), tr("Opening"), tr("Cancels opening; what is open now stays"));
    connect(opening, &BusyBar::cancelled, &_files, &SceneFiles::cancel);
    connect(&_files, &SceneFiles::busyChanged, opening, [this, opening] { opening->setBusy(_files.isBusy()); });
    connect(&_files, &SceneFiles::progressed, opening, &BusyBar::showProgress);
    auto* const exporting = new BusyBar(QStringLiteral("cancelExport"), tr("Exporting"),
                                        tr("Stops the export; files that are complete stay"));
    connect(exporting, &BusyBar::cancelled, &_lastExport, &LastExport::stop);
    connect(&_lastExport, &LastExport::runningChanged, exporting, &BusyBar::setBusy);
    connect(&_lastExport, &LastExport::progressed, exporting, &BusyBar::showProgress);
    connect(&_lastExport, &LastExport::ended, this, [this](const QString& report, bool isError) {
        if (isError)
            _messages->showError(report);
        else
            statusBar()->showMessage(report);
    });
    auto* const sharing = new BusyBar(QStringLiteral("cancelShare"), tr("Sharing"), tr("Gives up the page"));
    connect(sharing, &BusyBar::cancelled, &_pageShare, &PageShare::stop);
    connect(&_pageShare, &PageShare::runningChanged, sharing, &BusyBar::setBusy);
    connect(&_pageShare, &PageShare::progressed, sharing, &BusyBar::showProgress);
    connect(&_pageShare, &PageShare::ended, this, [this](const QString& report, bool isError) {
        if (isError)
            _messages->showError(report);
        else
            _messages->showNotice(report);
    });
    for (BusyBar* const bar : {opening, exporting, sharing})
        statusBar()->addPermanentWidget(bar);
}

bool MainWindow::offerRecovery()
{
    for (const LeftScene& left : _autosave.left()) {
        QMessageBox question(QMessageBox::Question, tr("Recovery"),
                             tr("The application ended unexpectedly while \"%1\" had unsaved changes.").arg(left.title),
                             QMessageBox::NoButton, this);
        const QString when = QLocale().toString(left.time, QLocale::ShortFormat);
        question.setInformativeText(left.savedAs.isEmpty()
                                        ? tr("A copy of %1 is there. The scene was never saved.").arg(when)
                                        : tr("A copy of %1 is there. The scene itself is in %2, as it was last saved.")
                                              .arg(when, left.savedAs));
        const QPushButton* const recover = question.addButton(tr("&Recover"), QMessageBox::AcceptRole);
        const QPushButton* const discard = question.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
        question.addButton(tr("&Later"), QMessageBox::RejectRole);
        question.exec();
        if (question.clickedButton() == discard)
            _autosave.discard(left);
        if (question.clickedButton() != recover)
            continue;
        const auto recovered = _autosave.recover(left);
        if (!recovered) {
            _messages->showError(tr("\"%1\" cannot be recovered: %2").arg(left.title, recovered.error().sentence()));
            continue;
        }
        showStart(false);
        _messages->showNotice(tr("Recovered \"%1\" as it was at %2. It is not saved yet.").arg(left.title, when));
        return true;
    }
    return false;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!confirmLeaving()) {
        event->ignore();
        return;
    }
    storeLayout();
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!pathsOf(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    openPaths(pathsOf(*event->mimeData()));
}
