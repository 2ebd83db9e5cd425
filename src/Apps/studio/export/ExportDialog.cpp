// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// All fields are made before any is connected, so that no slot finds a field missing. While frames are rendered, the
// fields are disabled, and the button that closes the dialog stops the run.
#include "studio/export/ExportDialog.h"

#include "jobs/targets/Targets.h"
#include "studio/export/GlossDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

bool isPng(ExportFormat format)
{
    return format == ExportFormat::PNG || format == ExportFormat::PNG_8;
}

QString endingOf(ExportFormat format)
{
    return isPng(format) ? QStringLiteral("png") : QStringLiteral("exr");
}

template<typename Value>
void choose(QComboBox& box, const Value& value)
{
    if (const int index = box.findData(QVariant::fromValue(value)); index >= 0)
        box.setCurrentIndex(index);
}

} // namespace

ExportDialog::ExportDialog(const MO_Scene& scene, const ExportOrigin& origin, QWidget* parent)
    : QDialog(parent)
    , _scene(scene)
    , _origin(origin)
    , _colours(drawnColours(scene))
    , _fields(makeExportFields(scene, origin))
{
    setWindowTitle(tr("Export Frames"));
    addButtons();
    setMinimumWidth(540);
    connectFields();
    nodeChanged();
    takeMemory();
}

void ExportDialog::addButtons()
{
    _message = new QLabel;
    _message->setWordWrap(true);
    _message->setTextFormat(Qt::PlainText);
    _message->setMinimumHeight(2 * fontMetrics().height());
    _message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    _progress = new QProgressBar;
    _progress->setRange(0, 1000);
    _progress->setValue(0);
    // Nothing moves when it appears.
    QSizePolicy place = _progress->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    _progress->setSizePolicy(place);
    _progress->hide();
    _buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    _start = _buttons->addButton(tr("E&xport"), QDialogButtonBox::AcceptRole);
    _start->setObjectName(QStringLiteral("startExport"));
    connect(_start, &QPushButton::clicked, this, &ExportDialog::begin);
    connect(_buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(_fields.widget);
    layout->addStretch(1);
    layout->addWidget(_message);
    layout->addWidget(_progress);
    layout->addWidget(_buttons);
    // setDefault() has an effect only after the button was added to the dialog.
    _start->setDefault(true);
    _start->setToolTip(tr("Writes the pictures"));
    QPushButton* const close = _buttons->button(QDialogButtonBox::Close);
    // Qt translates its own text only where its translations are installed.
    close->setText(tr("Close"));
    close->setToolTip(tr("Closes the dialog; while pictures are written, stops that"));
    // The order of the buttons depends on the desktop.
    const bool isStartFirst = _buttons->layout()->indexOf(_start) < _buttons->layout()->indexOf(close);
    setTabOrder(isStartFirst ? _start : close, isStartFirst ? close : _start);
}

void ExportDialog::connectFields()
{
    connect(_fields.browse, &QToolButton::clicked, this, &ExportDialog::chooseFolder);
    connect(_fields.node, &QComboBox::currentIndexChanged, this, &ExportDialog::nodeChanged);
    connect(_fields.width, &QSpinBox::valueChanged, this, &ExportDialog::update);
    for (const auto& [picture, check] : _fields.pictures)
        connect(check, &QCheckBox::toggled, this, &ExportDialog::picturesChanged);
    connect(_fields.gloss, &QToolButton::clicked, this, &ExportDialog::setGloss);
    connect(_fields.target, &QComboBox::currentIndexChanged, this, &ExportDialog::takeTarget);
    connect(_fields.format, &QComboBox::currentIndexChanged, this, &ExportDialog::formatChanged);
    connect(_fields.layout, &QComboBox::currentIndexChanged, this, &ExportDialog::update);
    connect(_fields.yAxis, &QComboBox::currentIndexChanged, this, &ExportDialog::forgetTarget);
    connect(_fields.alpha, &QComboBox::currentIndexChanged, this, &ExportDialog::forgetTarget);
    connect(_fields.pad, &QSpinBox::valueChanged, this, &ExportDialog::forgetTarget);
    connect(_fields.file, &QLineEdit::textChanged, this, &ExportDialog::update);
}

void ExportDialog::takeMemory()
{
    const ExportMemory memory = ExportMemory::load();
    for (const auto& [picture, check] : _fields.pictures)
        check->setChecked(memory.pictures.contains(picture));
    // The stored choice may not fit the node: then its first possible picture is chosen.
    if (pictures().isEmpty())
        for (const auto& [picture, check] : _fields.pictures)
            if (check->isEnabled()) {
                check->setChecked(true);
                break;
            }
    choose(*_fields.layout, memory.layout);
    _fields.renderInFloat->setChecked(memory.floatRender);
    _gloss = glossOf(_colours, memory.gloss);
    if (memory.asSet) {
        _fields.target->setCurrentIndex(_fields.target->findData(EXPORT_AS_SET));
        takeForm(memory.form, memory.ending == QLatin1String("exr"), memory.half);
        return;
    }
    const auto named = targetNamed(memory.target);
    const int row = named ? static_cast<int>(*named - targets().data()) : static_cast<int>(EXPORT_FOR_MOST);
    _fields.target->setCurrentIndex(_fields.target->findData(row));
    takeTarget();
}

ExportMemory ExportDialog::memory() const
{
    ExportMemory memory;
    const ExportChoices now = choices();
    memory.pictures = now.pictures;
    memory.target = now.target ? QString::fromLatin1(now.target->name) : QString();
    memory.asSet = _fields.target->currentData().toInt() == EXPORT_AS_SET;
    memory.form = now.form;
    memory.form.alpha = _fields.alpha->currentData().value<NM_Alpha>();
    memory.form.pad = _fields.pad->value();
    memory.layout = now.layout;
    memory.ending = endingOf(format());
    memory.half = now.half;
    memory.floatRender = now.floatRender;
    memory.gloss = withGloss(ExportMemory::load().gloss, _colours, _gloss);
    return memory;
}

void ExportDialog::setChoices(const ExportChoices& choices)
{
    _fields.node->setCurrentText(choices.node);
    _fields.frames->setText(choices.frames);
    _fields.width->setValue(choices.width);
    for (const auto& [picture, check] : _fields.pictures)
        check->setChecked(choices.pictures.contains(picture));
    _fields.white->setValue(choices.white);
    const QFileInfo file(choices.file);
    _fields.folder->setText(QDir::toNativeSeparators(file.path()));
    _fields.file->setText(file.fileName());
}

void ExportDialog::takeTarget()
{
    // The pictures beside the map have the endings of a target, or those of none.
    if (_fields.target->currentData().toInt() == EXPORT_AS_SET)
        return update();
    const Target* const named = target();
    takeForm(named ? named->form : kFormForMost, named && named->endingText() == QLatin1String("exr"), false);
    _fields.file->setText(
        QFileInfo(withExportSuffix(_fields.file->text(), _named, exportSuffix(_named, named))).fileName());
}

void ExportDialog::takeForm(const NM_MapForm& form, bool exr, bool half)
{
    _takesTarget = true;
    choose(*_fields.yAxis, form.yAxis);
    choose(*_fields.alpha, form.alpha);
    choose(*_fields.format, exr              ? (half ? ExportFormat::EXR_HALF : ExportFormat::EXR_FLOAT)
                            : form.bits == 8 ? ExportFormat::PNG_8
                                             : ExportFormat::PNG);
    _fields.pad->setValue(form.pad);
    _takesTarget = false;
    update();
}

void ExportDialog::forgetTarget()
{
    if (!_takesTarget)
        _fields.target->setCurrentIndex(_fields.target->findData(EXPORT_AS_SET));
}

void ExportDialog::formatChanged()
{
    _fields.file->setText(withExportEnding(_fields.file->text(), endingOf(format())));
    forgetTarget();
    update();
}

// The file name is that of the first chosen picture, so its suffix follows the choice.
void ExportDialog::picturesChanged()
{
    const QList<ExportPicture> chosen = pictures();
    if (!chosen.isEmpty() && chosen.first() != _named) {
        const QString name = withExportSuffix(_fields.file->text(), _named, exportSuffix(chosen.first(), target()));
        _named = chosen.first();
        _fields.file->setText(QFileInfo(name).fileName());
    }
    update();
}

const Target* ExportDialog::target() const
{
    const int row = _fields.target->currentData().toInt();
    return row >= 0 ? &targets()[static_cast<std::size_t>(row)] : nullptr;
}

void ExportDialog::nodeChanged()
{
    MO_Module* const module = _scene.findModule(_fields.node->currentText());
    const QList<ExportPicture> possible =
        exportPicturesOf(module ? pictureSourceOf(*module).kind : RenderedKind::COLOURS);
    for (const auto& [picture, check] : _fields.pictures)
        check->setEnabled(possible.contains(picture));
    picturesChanged();
}

QList<ExportPicture> ExportDialog::pictures() const
{
    QList<ExportPicture> chosen;
    for (const auto& [picture, check] : _fields.pictures)
        if (check->isEnabled() && check->isChecked())
            chosen << picture;
    return chosen;
}

void ExportDialog::update()
{
    const QList<ExportPicture> chosen = pictures();
    const bool normals = chosen.contains(ExportPicture::MAP);
    const bool isPadded = normals || chosen.contains(ExportPicture::OCCLUSION) || chosen.contains(ExportPicture::GLOSS);
    const bool node = _fields.layout->currentData().value<NM_Layout>() == NM_Layout::NODE;
    const bool png = isPng(format());
    _fields.target->setEnabled(!normals || !node);
    _fields.layout->setEnabled(normals);
    _fields.yAxis->setEnabled(normals && !node);
    _fields.alpha->setEnabled(normals && !node && png);
    _fields.pad->setEnabled(isPadded && png);
    _fields.gloss->setEnabled(chosen.contains(ExportPicture::GLOSS));
    _fields.white->setEnabled(chosen.contains(ExportPicture::HEIGHT) && png);
    _fields.size->setText(tr("x %1").arg(_scene.heightInPixels(_fields.width->value())));
    QStringList names;
    for (const QString& file : choices().files())
        names << QFileInfo(file).fileName();
    _fields.files->setText(names.join(QStringLiteral(", ")));
    _start->setEnabled(!names.isEmpty());
}

void ExportDialog::chooseFolder()
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Folder for the Pictures"), _fields.folder->text());
    if (!folder.isEmpty())
        _fields.folder->setText(QDir::toNativeSeparators(folder));
}

void ExportDialog::setGloss()
{
    GlossDialog dialog(_colours, _gloss, this);
    if (dialog.exec() == QDialog::Accepted)
        _gloss = dialog.gloss();
}

ExportFormat ExportDialog::format() const
{
    return _fields.format->currentData().value<ExportFormat>();
}

ExportChoices ExportDialog::choices() const
{
    ExportChoices chosen;
    const ExportFormat written = format();
    chosen.node = _fields.node->currentText();
    chosen.frames = _fields.frames->text();
    chosen.width = _fields.width->value();
    chosen.pictures = pictures();
    chosen.target = target();
    chosen.white = _fields.white->value();
    if (chosen.pictures.contains(ExportPicture::GLOSS))
        chosen.gloss = _gloss;
    chosen.layout = _fields.layout->currentData().value<NM_Layout>();
    chosen.form.yAxis = _fields.yAxis->currentData().value<NM_YAxis>();
    chosen.form.alpha = isPng(written) ? _fields.alpha->currentData().value<NM_Alpha>() : NM_Alpha::COVERAGE;
    chosen.form.bits = written == ExportFormat::PNG_8 ? 8 : 16;
    chosen.form.pad = isPng(written) ? _fields.pad->value() : 0;
    chosen.floatRender = _fields.renderInFloat->isChecked();
    chosen.half = written == ExportFormat::EXR_HALF;
    chosen.file = QDir(QDir::fromNativeSeparators(_fields.folder->text())).absoluteFilePath(_fields.file->text());
    chosen.sceneName = _origin.sceneName;
    return chosen;
}

QString ExportDialog::message() const
{
    return _message->text();
}

bool ExportDialog::mayReplace()
{
    const QStringList files = filesToReplace(_scene, choices());
    if (files.isEmpty())
        return true;
    const QString what = files.size() == 1
                             ? tr("%1 exists already. Replace it?").arg(QFileInfo(files.front()).fileName())
                             : tr("%n files exist already. Replace them?", nullptr, static_cast<int>(files.size()));
    return QMessageBox::question(this, tr("Export Frames"), what) == QMessageBox::Yes;
}

void ExportDialog::begin()
{
    if (_job || !_start->isEnabled())
        return;
    // Nobody is asked whether to replace what must not be replaced.
    if (const auto mayWrite = checkExportFiles(_scene, choices()); !mayWrite)
        return _message->setText(mayWrite.error().sentence());
    if (!mayReplace())
        return;
    auto job = std::make_unique<ExportJob>();
    connect(job.get(), &ExportJob::progressed, this,
            [this](double share) { _progress->setValue(static_cast<int>(share * 1000.0)); });
    connect(job.get(), &ExportJob::ended, this, &ExportDialog::ended);
    const ExportChoices chosen = choices();
    if (const auto started = job->start(_scene, chosen); !started) {
        _message->setText(started.error().sentence());
        return;
    }
    _job = std::move(job);
    _exported = chosen;
    memory().store();
    ExportMemory::rememberFolder(_origin.folder, QFileInfo(chosen.file).absolutePath());
    const int count = _job->pictureCount();
    _message->setText(count == 1 ? tr("Rendering 1 picture...") : tr("Rendering %n pictures...", nullptr, count));
    _progress->setValue(0);
    _progress->show();
    setRunning(true);
}

void ExportDialog::setRunning(bool running)
{
    _fields.widget->setEnabled(!running);
    _start->setEnabled(!running);
    _buttons->button(QDialogButtonBox::Close)->setText(running ? tr("Cancel") : tr("Close"));
}

void ExportDialog::ended()
{
    _message->setText(_job->report());
    const bool isDone = !_job->isIncomplete();
    _job.release()->deleteLater();
    setRunning(false);
    // Another Enter does not write again what was just written, but from a field it does.
    QPushButton* const next = isDone ? _buttons->button(QDialogButtonBox::Close) : _start;
    next->setFocus();
}

void ExportDialog::done(int result)
{
    if (_job) {
        _job->stop();
        _message->setText(tr("Stopping..."));
        return;
    }
    QDialog::done(result);
}
