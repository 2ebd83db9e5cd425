// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// All fields are made first and connected afterwards, so that no slot finds a field missing. While frames are rendered
// the fields are disabled, and the button that closes the dialog stops the run.
#include "studio/export/ExportDialog.h"

#include "jobs/targets/Targets.h"
#include "studio/preview/SceneSnapshot.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
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
    PNG_8,
    EXR_FLOAT,
    EXR_HALF
};

bool isPng(int format)
{
    return format == PNG || format == PNG_8;
}

QString endingOf(int format)
{
    return isPng(format) ? QStringLiteral("png") : QStringLiteral("exr");
}

// What the target's combo box holds beside the rows of the table.
enum OtherTarget
{
    AS_SET = -2,
    MOST = -1
};

const Target& targetAt(int row)
{
    return targets()[static_cast<std::size_t>(row)];
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

QComboBox* choiceNamed(const char* name)
{
    auto* const box = new QComboBox;
    box->setObjectName(QString::fromLatin1(name));
    // Long texts do not make the dialog wide.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(20);
    return box;
}

template<typename Value>
void choose(QComboBox& box, const Value& value)
{
    if (const int index = box.findData(QVariant::fromValue(value)); index >= 0)
        box.setCurrentIndex(index);
}

} // namespace

ExportDialog::ExportDialog(const MO_Scene& scene, const ExportOrigin& origin, QWidget* parent)
    : QDialog(parent), _scene(scene), _origin(origin), _fields(new QWidget)
{
    setWindowTitle(tr("Export Frames"));
    auto* const form = new QFormLayout(_fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addWhat(*form);
    addPictures(*form);
    addTarget(*form);
    addForm(*form);
    addWhere(*form);
    addButtons();
    setMinimumWidth(540);
    connectFields();
    nodeChanged();
    takeMemory();
}

void ExportDialog::addWhat(QFormLayout& form)
{
    _node = choiceNamed("exportNode");
    _scene.root().forEachModule([this](const MO_Module& module) { _node->addItem(module.instanceName()); });
    if (const MO_Module* const shown = shownModule(_scene))
        _node->setCurrentText(shown->instanceName());
    form.addRow(tr("&Node"), _node);
    explain(form, _node, tr("Whose pictures are written"));
    _frames = new QLineEdit(QStringLiteral("%1-%2").arg(_scene.firstFrame()).arg(_scene.lastFrame()));
    if (_scene.firstFrame() == _scene.lastFrame())
        _frames->setText(QString::number(_scene.firstFrame()));
    _frames->setObjectName(QStringLiteral("exportFrames"));
    form.addRow(tr("&Frames"), _frames);
    explain(form, _frames, tr("For instance 1-24, 1-24x2 for every second one, or 1,5,9-12"));
    _width = new QSpinBox;
    _width->setObjectName(QStringLiteral("exportWidth"));
    _width->setRange(1, RD_RenderParameters::kMaxResolution);
    _width->setValue(ownWidth(_scene));
    _width->setSuffix(tr(" pixels"));
    _size = new QLabel;
    auto* const row = rowOf(_width, _size);
    form.addRow(tr("&Width"), row);
    explain(form, row, tr("The height follows from the scene's shape"));
}

void ExportDialog::addPictures(QFormLayout& form)
{
    auto* const box = new QWidget;
    auto* const grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](ExportPicture picture, const char* name, const QString& text, const QString& toolTip) {
        auto* const check = new QCheckBox(text);
        check->setObjectName(QString::fromLatin1(name));
        check->setToolTip(toolTip);
        const auto place = static_cast<int>(_pictures.size());
        grid->addWidget(check, place / 2, place % 2);
        _pictures[picture] = check;
    };
    add(ExportPicture::MAP, "exportMap", tr("N&ormal map"), tr("Which way the surface faces"));
    add(ExportPicture::ELEVATION, "exportElevation", tr("Ele&vation"), tr("How high the surface is: white is highest"));
    add(ExportPicture::LIT, "exportLit", tr("L&it drawing"), tr("The drawing in the scene's light, as PNG"));
    add(ExportPicture::DRAWING, "exportDrawing", tr("&Drawing"), tr("The drawing in the size of the map"));
    form.addRow(tr("Pictures"), box);
}

void ExportDialog::addTarget(QFormLayout& form)
{
    _target = choiceNamed("exportTarget");
    _target->addItem(tr("Most programs"), MOST);
    for (std::size_t i = 0; i < targets().size(); ++i)
        _target->addItem(targets()[i].titleText(), static_cast<int>(i));
    _target->addItem(tr("As set below"), AS_SET);
    form.addRow(tr("Tar&get"), _target);
    explain(form, _target, tr("Sets format, orientation, alpha, padding and name as the program wants them"));
}

void ExportDialog::addForm(QFormLayout& form)
{
    _format = choiceNamed("exportFormat");
    _format->addItem(tr("PNG, 16 bits a channel"), PNG);
    _format->addItem(tr("PNG, 8 bits a channel, dithered"), PNG_8);
    _format->addItem(tr("OpenEXR, 32-bit float"), EXR_FLOAT);
    _format->addItem(tr("OpenEXR, 16-bit float"), EXR_HALF);
    form.addRow(tr("Forma&t"), _format);
    explain(form, _format, tr("OpenEXR holds the drawing, normals, elevation and coverage as layers of one file"));
    _layout = choiceNamed("exportLayout");
    _layout->addItem(tr("Tangent space, for engines and compositors"), QVariant::fromValue(NM_Layout::TANGENT));
    _layout->addItem(tr("The node's own channels"), QVariant::fromValue(NM_Layout::NODE));
    form.addRow(tr("&Layout"), _layout);
    explain(form, _layout, tr("What the four channels hold"));
    _yAxis = choiceNamed("exportYAxis");
    _yAxis->addItem(tr("Y up: green is bright towards the upper edge"), QVariant::fromValue(NM_YAxis::UP));
    _yAxis->addItem(tr("Y down: green is bright towards the lower edge"), QVariant::fromValue(NM_YAxis::DOWN));
    form.addRow(tr("O&rientation"), _yAxis);
    explain(form, _yAxis, tr("Which way the normals' y axis points; engines differ"));
    _alpha = choiceNamed("exportAlpha");
    _alpha->addItem(tr("Opaque: no engine bends the vectors at edges"), QVariant::fromValue(NM_Alpha::FULL));
    _alpha->addItem(tr("Coverage: how much of a pixel is covered"), QVariant::fromValue(NM_Alpha::COVERAGE));
    _alpha->addItem(tr("Hard: opaque where anything is covered"), QVariant::fromValue(NM_Alpha::HARD));
    form.addRow(tr("&Alpha"), _alpha);
    explain(form, _alpha, tr("What the alpha of the normal map holds"));
    _pad = new QSpinBox;
    _pad->setObjectName(QStringLiteral("exportPad"));
    _pad->setRange(0, 256);
    _pad->setSuffix(tr(" pixels"));
    form.addRow(tr("&Padding"), _pad);
    explain(form, _pad, tr("How far colours grow past the silhouette, so that filtered edges stay clean"));
    _float = new QCheckBox(tr("Render in &32-bit float"));
    _float->setToolTip(
        tr("Everything in float, for twice the memory; without it only wide forms, where 16 bits would leave grain"));
    form.addRow(QString(), _float);
}

void ExportDialog::addWhere(QFormLayout& form)
{
    _folder = new QLineEdit(QDir::toNativeSeparators(ExportMemory::folderFor(_origin.folder)));
    _folder->setObjectName(QStringLiteral("exportFolder"));
    auto* const browse = new QToolButton;
    browse->setText(tr("Choose..."));
    browse->setToolTip(tr("Chooses the folder"));
    browse->setFocusPolicy(Qt::StrongFocus);
    connect(browse, &QToolButton::clicked, this, &ExportDialog::chooseFolder);
    auto* const row = rowOf(_folder, browse);
    form.addRow(tr("Fold&er"), row);
    explain(form, row, tr("Where the files go; the folder is made when it does not exist"));
    const QString number = _scene.firstFrame() == _scene.lastFrame() ? QString() : QStringLiteral(".####");
    _file = new QLineEdit(_origin.name + QString::fromLatin1(kSuffixForMost) + number + QStringLiteral(".png"));
    _file->setObjectName(QStringLiteral("exportFile"));
    form.addRow(tr("File na&me"), _file);
    explain(form, _file, tr("#### is where the frame's number goes"));
    _files = new QLabel;
    _files->setObjectName(QStringLiteral("exportFiles"));
    _files->setTextFormat(Qt::PlainText);
    _files->setWordWrap(true);
    form.addRow(tr("Writes"), _files);
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
    _buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    _start = _buttons->addButton(tr("E&xport"), QDialogButtonBox::AcceptRole);
    _start->setObjectName(QStringLiteral("startExport"));
    connect(_start, &QPushButton::clicked, this, &ExportDialog::begin);
    connect(_buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(_fields);
    layout->addStretch(1);
    layout->addWidget(_message);
    layout->addWidget(_progress);
    layout->addWidget(_buttons);
    // Only a button that is in the dialog becomes the dialog's default.
    _start->setDefault(true);
}

void ExportDialog::connectFields()
{
    connect(_node, &QComboBox::currentIndexChanged, this, &ExportDialog::nodeChanged);
    connect(_width, &QSpinBox::valueChanged, this, &ExportDialog::update);
    for (const auto& [picture, check] : _pictures)
        connect(check, &QCheckBox::toggled, this, &ExportDialog::picturesChanged);
    connect(_target, &QComboBox::currentIndexChanged, this, &ExportDialog::takeTarget);
    connect(_format, &QComboBox::currentIndexChanged, this, &ExportDialog::formatChanged);
    connect(_layout, &QComboBox::currentIndexChanged, this, &ExportDialog::update);
    connect(_yAxis, &QComboBox::currentIndexChanged, this, &ExportDialog::forgetTarget);
    connect(_alpha, &QComboBox::currentIndexChanged, this, &ExportDialog::forgetTarget);
    connect(_pad, &QSpinBox::valueChanged, this, &ExportDialog::forgetTarget);
    connect(_file, &QLineEdit::textChanged, this, &ExportDialog::update);
}

void ExportDialog::takeMemory()
{
    const ExportMemory memory = ExportMemory::load();
    for (const auto& [picture, check] : _pictures)
        check->setChecked(memory.pictures.contains(picture));
    // A node that makes no normals has another first picture; something is always proposed.
    if (pictures().isEmpty())
        for (const auto& [picture, check] : _pictures)
            if (check->isEnabled()) {
                check->setChecked(true);
                break;
            }
    choose(*_layout, memory.layout);
    _float->setChecked(memory.floatRender);
    if (memory.asSet) {
        _target->setCurrentIndex(_target->findData(AS_SET));
        takeForm(memory.form, memory.ending == QLatin1String("exr"), memory.half);
        return;
    }
    const auto named = targetNamed(memory.target);
    const int row = named ? static_cast<int>(*named - targets().data()) : static_cast<int>(MOST);
    _target->setCurrentIndex(_target->findData(row));
    takeTarget();
}

ExportMemory ExportDialog::memory() const
{
    ExportMemory memory;
    const ExportChoices now = choices();
    const int target = _target->currentData().toInt();
    memory.pictures = now.pictures;
    memory.target = target >= 0 ? QString::fromLatin1(targetAt(target).name) : QString();
    memory.asSet = target == AS_SET;
    memory.form = now.form;
    memory.form.alpha = _alpha->currentData().value<NM_Alpha>();
    memory.form.pad = _pad->value();
    memory.layout = now.layout;
    memory.ending = endingOf(_format->currentData().toInt());
    memory.half = now.half;
    memory.floatRender = now.floatRender;
    return memory;
}

void ExportDialog::setChoices(const ExportChoices& choices)
{
    _node->setCurrentText(choices.node);
    _frames->setText(choices.frames);
    _width->setValue(choices.width);
    for (const auto& [picture, check] : _pictures)
        check->setChecked(choices.pictures.contains(picture));
    const QFileInfo file(choices.file);
    _folder->setText(QDir::toNativeSeparators(file.path()));
    _file->setText(file.fileName());
}

void ExportDialog::takeTarget()
{
    const int target = _target->currentData().toInt();
    if (target == AS_SET)
        return;
    const bool exr = target >= 0 && targetAt(target).endingText() == QLatin1String("exr");
    takeForm(target >= 0 ? targetAt(target).form : kFormForMost, exr, false);
    _file->setText(QFileInfo(withExportSuffix(_file->text(), _named, exportSuffix(_named, mapSuffix()))).fileName());
}

void ExportDialog::takeForm(const NM_MapForm& form, bool exr, bool half)
{
    _takesTarget = true;
    choose(*_yAxis, form.yAxis);
    choose(*_alpha, form.alpha);
    choose<int>(*_format, exr ? (half ? EXR_HALF : EXR_FLOAT) : form.bits == 8 ? PNG_8 : PNG);
    _pad->setValue(form.pad);
    _takesTarget = false;
    update();
}

void ExportDialog::forgetTarget()
{
    if (!_takesTarget)
        _target->setCurrentIndex(_target->findData(AS_SET));
}

void ExportDialog::formatChanged()
{
    const QString text = _file->text();
    const qsizetype dot = text.lastIndexOf(QLatin1Char('.'));
    _file->setText((dot < 0 ? text : text.left(dot)) + QLatin1Char('.') + endingOf(_format->currentData().toInt()));
    forgetTarget();
    update();
}

// The name is that of the first picture: when that is another one, the end of the name follows.
void ExportDialog::picturesChanged()
{
    const QList<ExportPicture> chosen = pictures();
    if (!chosen.isEmpty() && chosen.first() != _named) {
        const QString name = withExportSuffix(_file->text(), _named, exportSuffix(chosen.first(), mapSuffix()));
        _named = chosen.first();
        _file->setText(QFileInfo(name).fileName());
    }
    update();
}

QString ExportDialog::mapSuffix() const
{
    const int target = _target->currentData().toInt();
    return target >= 0 ? targetAt(target).suffixText() : QString::fromLatin1(kSuffixForMost);
}

void ExportDialog::nodeChanged()
{
    MO_Module* const module = _scene.findModule(_node->currentText());
    const QList<ExportPicture> possible =
        exportPicturesOf(module ? pictureSourceOf(*module).kind : RenderedKind::COLOURS);
    for (const auto& [picture, check] : _pictures)
        check->setEnabled(possible.contains(picture));
    picturesChanged();
}

QList<ExportPicture> ExportDialog::pictures() const
{
    QList<ExportPicture> chosen;
    for (const auto& [picture, check] : _pictures)
        if (check->isEnabled() && check->isChecked())
            chosen << picture;
    return chosen;
}

void ExportDialog::update()
{
    const bool normals = pictures().contains(ExportPicture::MAP);
    const bool node = _layout->currentData().value<NM_Layout>() == NM_Layout::NODE;
    const bool png = isPng(_format->currentData().toInt());
    _target->setEnabled(!normals || !node);
    _layout->setEnabled(normals);
    _yAxis->setEnabled(normals && !node);
    _alpha->setEnabled(normals && !node && png);
    _pad->setEnabled(normals && png);
    const double height = _width->value() * _scene.frameHeight() / MO_SceneCommon::kFrameWidth;
    _size->setText(tr("x %1").arg(std::max(1, static_cast<int>(std::lround(height)))));
    QStringList names;
    for (const QString& file : choices().files())
        names << QFileInfo(file).fileName();
    _files->setText(names.join(QStringLiteral(", ")));
    _start->setEnabled(!names.isEmpty());
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
    const int format = _format->currentData().toInt();
    chosen.node = _node->currentText();
    chosen.frames = _frames->text();
    chosen.width = _width->value();
    chosen.pictures = pictures();
    chosen.layout = _layout->currentData().value<NM_Layout>();
    chosen.form.yAxis = _yAxis->currentData().value<NM_YAxis>();
    chosen.form.alpha = isPng(format) ? _alpha->currentData().value<NM_Alpha>() : NM_Alpha::COVERAGE;
    chosen.form.bits = format == PNG_8 ? 8 : 16;
    chosen.form.pad = isPng(format) ? _pad->value() : 0;
    chosen.floatRender = _float->isChecked();
    chosen.half = format == EXR_HALF;
    chosen.file = QDir(QDir::fromNativeSeparators(_folder->text())).absoluteFilePath(_file->text());
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
                             : tr("%n file(s) exist already. Replace them?", nullptr, static_cast<int>(files.size()));
    return QMessageBox::question(this, tr("Export Frames"), what) == QMessageBox::Yes;
}

void ExportDialog::begin()
{
    if (_job || !_start->isEnabled() || !mayReplace())
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
    _message->setText(tr("Rendering %n picture(s)...", nullptr, _job->pictureCount()));
    _progress->setValue(0);
    setRunning(true);
}

void ExportDialog::setRunning(bool running)
{
    _fields->setEnabled(!running);
    _start->setEnabled(!running);
    _buttons->button(QDialogButtonBox::Close)->setText(running ? tr("Cancel") : tr("Close"));
}

void ExportDialog::ended()
{
    _message->setText(_job->report());
    _job.release()->deleteLater();
    setRunning(false);
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
