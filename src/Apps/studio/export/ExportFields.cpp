// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One function for each group of fields, from the top of the dialog to its bottom. Nothing is connected here.
#include "studio/export/ExportFields.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelNormalMap/NM_MapForm.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/targets/Targets.h"
#include "studio/export/ExportMemory.h"
#include "studio/export/ExportPlan.h"
#include "studio/preview/SceneSnapshot.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QSpinBox>
#include <QToolButton>

namespace {

// The texts have the dialog's context in translations.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ExportDialog)
};

// A row of a field and another widget. The label's mnemonic moves the focus to the field.
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
    // Without this, long texts would make the dialog wide.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(20);
    return box;
}

// Whether the scene has more to export than the map of its objects and the drawing: modules that a person added.
bool hasChoiceOfNodes(const MO_Scene& scene)
{
    QSet<QString> kinds;
    bool isChoice = false;
    scene.root().forEachModule([&](const MO_Module& module) {
        const bool isOfObjects =
            dynamic_cast<const MO_ElementModule*>(&module) || dynamic_cast<const ObjectDefinition*>(&module);
        isChoice = isChoice || (!isOfObjects && kinds.contains(module.keyword()));
        if (!isOfObjects)
            kinds.insert(module.keyword());
    });
    return isChoice;
}

void addWhat(ExportFields& fields, QFormLayout& form, const MO_Scene& scene)
{
    fields.node = choiceNamed("exportNode");
    scene.root().forEachModule([&](const MO_Module& module) { fields.node->addItem(module.instanceName()); });
    if (const MO_Module* const shown = shownModule(scene))
        fields.node->setCurrentText(shown->instanceName());
    form.addRow(Texts::tr("&Node"), fields.node);
    explain(form, fields.node, Texts::tr("Whose pictures are written"));
    form.setRowVisible(fields.node, hasChoiceOfNodes(scene));
    fields.frames = new QLineEdit(QStringLiteral("%1-%2").arg(scene.firstFrame()).arg(scene.lastFrame()));
    if (scene.firstFrame() == scene.lastFrame())
        fields.frames->setText(QString::number(scene.firstFrame()));
    fields.frames->setObjectName(QStringLiteral("exportFrames"));
    form.addRow(Texts::tr("&Frames"), fields.frames);
    explain(form, fields.frames, Texts::tr("For instance 1-24, 1-24x2 for every second one, or 1,5,9-12"));
    fields.width = new QSpinBox;
    fields.width->setObjectName(QStringLiteral("exportWidth"));
    fields.width->setRange(1, RD_RenderParameters::kMaxResolution);
    fields.width->setValue(ownWidth(scene));
    fields.width->setSuffix(Texts::tr(" pixels"));
    fields.size = new QLabel;
    auto* const row = rowOf(fields.width, fields.size);
    form.addRow(Texts::tr("&Width"), row);
    explain(form, row, Texts::tr("The height follows from the scene's shape"));
}

void addPictures(ExportFields& fields, QFormLayout& form)
{
    auto* const box = new QWidget;
    auto* const grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](ExportPicture picture, const char* name, const QString& text, const QString& toolTip,
                         QWidget* beside = nullptr) {
        auto* const check = new QCheckBox(text);
        check->setObjectName(QString::fromLatin1(name));
        check->setToolTip(toolTip);
        const auto place = static_cast<int>(fields.pictures.size());
        grid->addWidget(beside ? rowOf(check, beside) : check, place / 2, place % 2);
        fields.pictures[picture] = check;
    };
    add(ExportPicture::MAP, "exportMap", Texts::tr("N&ormal map"), Texts::tr("Which way the surface faces"));
    add(ExportPicture::ELEVATION, "exportElevation", Texts::tr("Ele&vation"),
        Texts::tr("How high each object's surface is by itself: white is highest"));
    add(ExportPicture::LIT, "exportLit", Texts::tr("L&it drawing"),
        Texts::tr("The drawing in the scene's light, as PNG"));
    add(ExportPicture::DRAWING, "exportDrawing", Texts::tr("&Drawing"),
        Texts::tr("The drawing in the size of the map"));
    add(ExportPicture::HEIGHT, "exportHeight", Texts::tr("&Height map"),
        Texts::tr("How high each place lies in all, objects on top of each other, for displacement and parallax"));
    add(ExportPicture::OCCLUSION, "exportOcclusion", Texts::tr("Ambient o&cclusion"),
        Texts::tr("How much light from all sides reaches each place: corners are dark"));
    add(ExportPicture::NUMBERS, "exportNumbers", Texts::tr("O&bject numbers"),
        Texts::tr("The number of each place's object, as a value rather than a colour"));
    fields.gloss = new QToolButton;
    fields.gloss->setObjectName(QStringLiteral("exportGlossColours"));
    fields.gloss->setText(Texts::tr("Colours..."));
    fields.gloss->setToolTip(Texts::tr("Sets how glossy each colour of the drawing is"));
    fields.gloss->setFocusPolicy(Qt::StrongFocus);
    add(ExportPicture::GLOSS, "exportGloss", Texts::tr("Gloss mas&k"),
        Texts::tr("How glossy each place is; roughness where the target takes that"), fields.gloss);
    form.addRow(Texts::tr("Pictures"), box);
    fields.white = new QDoubleSpinBox;
    fields.white->setObjectName(QStringLiteral("exportWhite"));
    fields.white->setRange(0.0, kHighestWhite);
    fields.white->setDecimals(3);
    fields.white->setSuffix(Texts::tr(" pixels"));
    fields.white->setSpecialValueText(Texts::tr("the highest place of all frames"));
    form.addRow(Texts::tr("White &stands for"), fields.white);
    explain(form, fields.white,
            Texts::tr("The height that white stands for in PNG files of the height map, the same in all frames; "
                      "OpenEXR files hold heights in pixels"));
}

void addTarget(ExportFields& fields, QFormLayout& form)
{
    fields.target = choiceNamed("exportTarget");
    fields.target->addItem(Texts::tr("Most programs"), EXPORT_FOR_MOST);
    for (std::size_t i = 0; i < targets().size(); ++i)
        fields.target->addItem(targets()[i].titleText(), static_cast<int>(i));
    fields.target->addItem(Texts::tr("As set below"), EXPORT_AS_SET);
    form.addRow(Texts::tr("Tar&get"), fields.target);
    explain(form, fields.target,
            Texts::tr("Sets format, orientation, alpha, padding and name as the program wants them"));
}

void addForm(ExportFields& fields, QFormLayout& form)
{
    fields.format = choiceNamed("exportFormat");
    fields.format->addItem(Texts::tr("PNG, 16 bits a channel"), QVariant::fromValue(ExportFormat::PNG));
    fields.format->addItem(Texts::tr("PNG, 8 bits a channel, dithered"), QVariant::fromValue(ExportFormat::PNG_8));
    fields.format->addItem(Texts::tr("OpenEXR, 32-bit float"), QVariant::fromValue(ExportFormat::EXR_FLOAT));
    fields.format->addItem(Texts::tr("OpenEXR, 16-bit float"), QVariant::fromValue(ExportFormat::EXR_HALF));
    form.addRow(Texts::tr("Forma&t"), fields.format);
    explain(form, fields.format,
            Texts::tr("OpenEXR holds the drawing, normals, elevation and coverage as layers of one file"));
    fields.layout = choiceNamed("exportLayout");
    fields.layout->addItem(Texts::tr("Tangent space, for engines and compositors"),
                           QVariant::fromValue(NM_Layout::TANGENT));
    fields.layout->addItem(Texts::tr("The node's own channels"), QVariant::fromValue(NM_Layout::NODE));
    form.addRow(Texts::tr("&Layout"), fields.layout);
    explain(form, fields.layout, Texts::tr("What the four channels hold"));
    fields.yAxis = choiceNamed("exportYAxis");
    fields.yAxis->addItem(Texts::tr("Y up: green is bright towards the upper edge"), QVariant::fromValue(NM_YAxis::UP));
    fields.yAxis->addItem(Texts::tr("Y down: green is bright towards the lower edge"),
                          QVariant::fromValue(NM_YAxis::DOWN));
    form.addRow(Texts::tr("O&rientation"), fields.yAxis);
    explain(form, fields.yAxis, Texts::tr("Which way the normals' y axis points; engines differ"));
    fields.alpha = choiceNamed("exportAlpha");
    fields.alpha->addItem(Texts::tr("Opaque: no engine bends the vectors at edges"),
                          QVariant::fromValue(NM_Alpha::FULL));
    fields.alpha->addItem(Texts::tr("Coverage: how much of a pixel is covered"),
                          QVariant::fromValue(NM_Alpha::COVERAGE));
    fields.alpha->addItem(Texts::tr("Hard: opaque where anything is covered"), QVariant::fromValue(NM_Alpha::HARD));
    form.addRow(Texts::tr("&Alpha"), fields.alpha);
    explain(form, fields.alpha, Texts::tr("What the alpha of the normal map holds"));
    fields.pad = new QSpinBox;
    fields.pad->setObjectName(QStringLiteral("exportPad"));
    fields.pad->setRange(0, 256);
    fields.pad->setSuffix(Texts::tr(" pixels"));
    form.addRow(Texts::tr("&Padding"), fields.pad);
    explain(form, fields.pad, Texts::tr("How far colours grow past the silhouette, so that filtered edges stay clean"));
    fields.renderInFloat = new QCheckBox(Texts::tr("Render in &32-bit float"));
    fields.renderInFloat->setToolTip(Texts::tr(
        "Everything in float, for twice the memory; without it only wide forms, where 16 bits would leave grain"));
    form.addRow(QString(), fields.renderInFloat);
}

void addWhere(ExportFields& fields, QFormLayout& form, const MO_Scene& scene, const ExportOrigin& origin)
{
    fields.folder = new QLineEdit(QDir::toNativeSeparators(ExportMemory::folderFor(origin.folder)));
    fields.folder->setObjectName(QStringLiteral("exportFolder"));
    fields.browse = new QToolButton;
    fields.browse->setText(Texts::tr("Choose..."));
    fields.browse->setToolTip(Texts::tr("Chooses the folder"));
    fields.browse->setFocusPolicy(Qt::StrongFocus);
    auto* const row = rowOf(fields.folder, fields.browse);
    form.addRow(Texts::tr("Fold&er"), row);
    explain(form, row, Texts::tr("Where the files go; the folder is made when it does not exist"));
    const QString number = scene.firstFrame() == scene.lastFrame() ? QString() : QStringLiteral(".####");
    fields.file = new QLineEdit(origin.name + QString::fromLatin1(kSuffixForMost) + number + QStringLiteral(".png"));
    fields.file->setObjectName(QStringLiteral("exportFile"));
    form.addRow(Texts::tr("File na&me"), fields.file);
    explain(form, fields.file, Texts::tr("#### is where the frame's number goes"));
    fields.files = new QLabel;
    fields.files->setObjectName(QStringLiteral("exportFiles"));
    fields.files->setTextFormat(Qt::PlainText);
    fields.files->setWordWrap(true);
    form.addRow(Texts::tr("Writes"), fields.files);
}

} // namespace

ExportFields makeExportFields(const MO_Scene& scene, const ExportOrigin& origin)
{
    ExportFields fields;
    fields.widget = new QWidget;
    auto* const form = new QFormLayout(fields.widget);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addWhat(fields, *form, scene);
    addPictures(fields, *form);
    addTarget(fields, *form);
    addForm(fields, *form);
    addWhere(fields, *form, scene, origin);
    return fields;
}
