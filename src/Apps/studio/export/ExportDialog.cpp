// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// While frames are rendered the fields rest, and the button that closed the dialog stops the run.
#include "studio/export/ExportDialog.h"

#include "studio/preview/SceneSnapshot.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace {

enum Format
{
    PNG,
    EXR_FLOAT,
    EXR_HALF
};

QString suffixOf(int format)
{
    return format == PNG ? QStringLiteral("png") : QStringLiteral("exr");
}

// A field with something beside it, which the label's key leads to.
QWidget* rowOf(QWidget* field, QWidget* beside)
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    layout->addWidget(beside);
    row->setFocusProxy(field);
    return row;
}

void explain(QFormLayout& form, QWidget* field, const QString& toolTip)
{
    field->setToolTip(toolTip);
    if (QWidget* const label = form.labelForField(field))
        label->setToolTip(toolTip);
}

} // namespace

ExportDialog::ExportDialog(const MO_Scene& scene, const QString& name, const QString& folder, QWidget* parent)
    : QDialog(parent), _scene(scene), _name(name), _fields(new QWidget)
{
    setWindowTitle(tr("Export Frames"));
    auto* const form = new QFormLayout(_fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addWhat(*form);
    addForm(*form);
    addWhere(*form, folder);

    _message = new QLabel;
    _message->setWordWrap(true);
    _message->setTextFormat(Qt::PlainText);
    _message->setMinimumHeight(2 * fontMetrics().height());
    _message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    _progress = new QProgressBar;
    _progress->setRange(0, 1000);
    _progress->setValue(0);
    _buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* const start = _buttons->addButton(tr("E&xport"), QDialogButtonBox::AcceptRole);
    start->setObjectName(QStringLiteral("startExport"));
    start->setDefault(true);
    connect(start, &QPushButton::clicked, this, &ExportDialog::begin);
    connect(_buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(_fields);
    layout->addStretch(1);
    layout->addWidget(_message);
    layout->addWidget(_progress);
    layout->addWidget(_buttons);
    setMinimumWidth(520);
    nodeChanged();
}

void ExportDialog::addWhat(QFormLayout& form)
{
    _node = new QComboBox;
    _scene.root().forEachModule([this](const MO_Module& module) { _node->addItem(module.instanceName()); });
    if (const MO_Module* const shown = shownModule(_scene))
        _node->setCurrentText(shown->instanceName());
    form.addRow(tr("&Node"), _node);
    explain(form, _node, tr("Whose picture is written"));
    connect(_node, &QComboBox::currentIndexChanged, this, &ExportDialog::nodeChanged);
    _shown = new QComboBox;
    _shown->setObjectName(QStringLiteral("exportShown"));
    form.addRow(tr("&Picture"), _shown);
    explain(form, _shown, tr("What is written of it"));
    connect(_shown, &QComboBox::currentIndexChanged, this, &ExportDialog::update);
    _frames = new QLineEdit(QStringLiteral("%1-%2").arg(_scene.firstFrame()).arg(_scene.lastFrame()));
    if (_scene.firstFrame() == _scene.lastFrame())
        _frames->setText(QString::number(_scene.firstFrame()));
    _frames->setObjectName(QStringLiteral("exportFrames"));
    form.addRow(tr("&Frames"), _frames);
    explain(form, _frames, tr("For instance 1-24, 1-24x2 for every second one, or 1,5,9-12"));
    _width = new QSpinBox;
    _width->setObjectName(QStringLiteral("exportWidth"));
    _width->setRange(1, RD_RenderParameters::kMaxResolution);
    _width->setValue(1920);
    _width->setSuffix(tr(" pixels"));
    _size = new QLabel;
    auto* const row = rowOf(_width, _size);
    form.addRow(tr("&Width"), row);
    explain(form, row, tr("The height follows from the scene's shape"));
    connect(_width, &QSpinBox::valueChanged, this, &ExportDialog::update);
}

void ExportDialog::addForm(QFormLayout& form)
{
    _format = new QComboBox;
    _format->setObjectName(QStringLiteral("exportFormat"));
    _format->addItem(tr("PNG, 16 bits a channel"), PNG);
    _format->addItem(tr("OpenEXR, 32-bit float"), EXR_FLOAT);
    _format->addItem(tr("OpenEXR, 16-bit float"), EXR_HALF);
    form.addRow(tr("F&ormat"), _format);
    explain(form, _format, tr("OpenEXR holds normals, elevation and coverage as layers of one file"));
    connect(_format, &QComboBox::currentIndexChanged, this, [this] {
        const QString suffix = suffixOf(_format->currentData().toInt());
        const QString text = _file->text();
        const qsizetype dot = text.lastIndexOf(QLatin1Char('.'));
        _file->setText((dot < 0 ? text : text.left(dot)) + QLatin1Char('.') + suffix);
        update();
    });
    _layout = new QComboBox;
    _layout->addItem(tr("Tangent space, for engines and compositors"), QVariant::fromValue(NM_Layout::TANGENT));
    _layout->addItem(tr("The node's own channels"), QVariant::fromValue(NM_Layout::NODE));
    form.addRow(tr("&Layout"), _layout);
    explain(form, _layout, tr("What the four channels hold"));
    connect(_layout, &QComboBox::currentIndexChanged, this, &ExportDialog::update);
    _yAxis = new QComboBox;
    _yAxis->addItem(tr("Y up: green is bright towards the upper edge"), QVariant::fromValue(NM_YAxis::UP));
    _yAxis->addItem(tr("Y down: green is bright towards the lower edge"), QVariant::fromValue(NM_YAxis::DOWN));
    form.addRow(tr("O&rientation"), _yAxis);
    explain(form, _yAxis, tr("Which way the normals' y axis points; engines differ"));
    _pad = new QSpinBox;
    _pad->setRange(0, 256);
    _pad->setSuffix(tr(" pixels"));
    form.addRow(tr("Pa&dding"), _pad);
    explain(form, _pad, tr("How far colours grow past the silhouette, so that filtered edges stay clean"));
    _float = new QCheckBox(tr("Render in &32-bit float"));
    _float->setToolTip(
        tr("Everything in float, for twice the memory; without it only wide forms, where 16 bits would leave grain"));
    form.addRow(QString(), _float);
}

void ExportDialog::addWhere(QFormLayout& form, const QString& folder)
{
    _folder = new QLineEdit(QDir::toNativeSeparators(folder));
    _folder->setObjectName(QStringLiteral("exportFolder"));
    auto* const browse = new QToolButton;
    browse->setText(tr("Choose..."));
    browse->setToolTip(tr("Chooses the folder"));
    browse->setFocusPolicy(Qt::StrongFocus);
    connect(browse, &QToolButton::clicked, this, &ExportDialog::chooseFolder);
    auto* const row = rowOf(_folder, browse);
    form.addRow(tr("Fold&er"), row);
    explain(form, row, tr("Where the files go; the folder is made when it does not exist"));
    _file = new QLineEdit(
        _name + (_scene.firstFrame() == _scene.lastFrame() ? QStringLiteral("_n.png") : QStringLiteral("_n.####.png")));
    _file->setObjectName(QStringLiteral("exportFile"));
    form.addRow(tr("File na&me"), _file);
    explain(form, _file, tr("#### is where the frame's number goes"));
}

void ExportDialog::nodeChanged()
{
    MO_Module* const module = _scene.findModule(_node->currentText());
    const RenderedKind kind = module ? pictureSourceOf(*module).kind : RenderedKind::COLOURS;
    _shown->clear();
    if (kind == RenderedKind::NORMALS)
        _shown->addItem(tr("Normal map"), QVariant::fromValue(RenderedKind::NORMALS));
    if (kind != RenderedKind::COLOURS)
        _shown->addItem(tr("Elevation"), QVariant::fromValue(RenderedKind::ELEVATION));
    else
        _shown->addItem(tr("Colours"), QVariant::fromValue(RenderedKind::COLOURS));
    update();
}

void ExportDialog::update()
{
    const bool normals = _shown->currentData().value<RenderedKind>() == RenderedKind::NORMALS;
    const bool node = _layout && _layout->currentData().value<NM_Layout>() == NM_Layout::NODE;
    if (!_yAxis || !_size)
        return;
    _layout->setEnabled(normals);
    _yAxis->setEnabled(normals && !node);
    _pad->setEnabled(_format->currentData().toInt() == PNG && normals);
    const double height = _width->value() * _scene.frameHeight() / MO_SceneCommon::kFrameWidth;
    _size->setText(tr("x %1").arg(std::max(1, static_cast<int>(std::lround(height)))));
}

void ExportDialog::chooseFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder for the Pictures"), _folder->text());
    if (!folder.isEmpty())
        _folder->setText(QDir::toNativeSeparators(folder));
}

ExportChoices ExportDialog::choices() const
{
    ExportChoices chosen;
    chosen.node = _node->currentText();
    chosen.frames = _frames->text();
    chosen.width = _width->value();
    chosen.shown = _shown->currentData().value<RenderedKind>();
    chosen.layout = _layout->currentData().value<NM_Layout>();
    chosen.yAxis = _yAxis->currentData().value<NM_YAxis>();
    chosen.floatRender = _float->isChecked();
    chosen.half = _format->currentData().toInt() == EXR_HALF;
    chosen.pad = _pad->isEnabled() ? _pad->value() : 0;
    chosen.file = QDir(QDir::fromNativeSeparators(_folder->text())).absoluteFilePath(_file->text());
    chosen.sceneName = _name;
    return chosen;
}

QString ExportDialog::message() const
{
    return _message->text();
}

void ExportDialog::begin()
{
    if (_job)
        return;
    auto job = std::make_unique<ExportJob>();
    connect(job.get(), &ExportJob::progressed, this,
            [this](double share) { _progress->setValue(static_cast<int>(share * 1000.0)); });
    connect(job.get(), &ExportJob::ended, this, &ExportDialog::ended);
    if (const auto started = job->start(_scene, choices()); !started) {
        _message->setText(started.error().sentence());
        return;
    }
    _job = std::move(job);
    _message->setText(tr("Rendering %n frame(s)...", nullptr, _job->frameCount()));
    _progress->setValue(0);
    _fields->setEnabled(false);
    _buttons->button(QDialogButtonBox::Close)->setText(tr("Cancel"));
    findChild<QPushButton*>(QStringLiteral("startExport"))->setEnabled(false);
}

void ExportDialog::ended(const RenderFramesResult& result)
{
    QString text = tr("%n picture(s) written.", nullptr, result.written);
    if (result.stopped)
        text += QLatin1Char(' ') + tr("Stopped before the end.");
    if (result.failed > 0)
        text += QLatin1Char(' ') + tr("%n frame(s) failed.", nullptr, result.failed) + QLatin1Char('\n') +
                _job->failures().value(0);
    _message->setText(text);
    _job.release()->deleteLater();
    _fields->setEnabled(true);
    _buttons->button(QDialogButtonBox::Close)->setText(tr("Close"));
    findChild<QPushButton*>(QStringLiteral("startExport"))->setEnabled(true);
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
