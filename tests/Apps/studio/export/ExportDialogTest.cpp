// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The dialog of an export: what is proposed, what a target sets, how files are named, and what is remembered.
#include "Apps/studio/export/ExportTesting.h"

#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "jobs/targets/Targets.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {

using ExportDialogTest = studio_testing::ExportDialogFixture;

TEST_F(ExportDialogTest, ProposesTheDrawingsOwnSizeAndAMapForMostPrograms)
{
    open();
    const ExportChoices choices = dialog->choices();
    EXPECT_EQ(choices.width, 200);
    EXPECT_EQ(choices.form, kFormForMost);
    EXPECT_EQ(choices.pictures, QList<ExportPicture>{ExportPicture::MAP});
    EXPECT_EQ(choices.file, out() + QStringLiteral("/disc_n.png"));
}

TEST_F(ExportDialogTest, AsksForTheNodeOnlyWhereAPersonAddedOne)
{
    open();
    EXPECT_FALSE(field<QComboBox>("exportNode").isVisible());
    EXPECT_FALSE(dialog->findChild<QProgressBar*>()->isVisible()) << "nothing is on its way";
    dialog.reset();
    document().scene().root().emplace<MO_CompositeModule>().setInstanceName(QStringLiteral("Extra"));
    show();
    EXPECT_TRUE(field<QComboBox>("exportNode").isVisible());
    EXPECT_EQ(dialog->choices().node, QStringLiteral("Display"));
}

TEST_F(ExportDialogTest, SetsWhatATargetWantsUntilSomethingElseIsSet)
{
    open();
    chooseTarget(QStringLiteral("Unreal Engine"));
    ExportChoices choices = dialog->choices();
    EXPECT_EQ(choices.form, (*targetNamed(QStringLiteral("unreal")))->form);
    EXPECT_TRUE(choices.file.endsWith(QLatin1String("/disc_N.png"))) << choices.file.toStdString();
    chooseTarget(QStringLiteral("compositors"));
    EXPECT_TRUE(dialog->choices().file.endsWith(QLatin1String("/disc_n.exr")));
    chooseTarget(QStringLiteral("Phaser"));
    type("exportPad", QStringLiteral("9"));
    choices = dialog->choices();
    EXPECT_EQ(choices.form.pad, 9);
    EXPECT_EQ(choices.form.bits, 8) << "the rest stays";
    EXPECT_EQ(field<QComboBox>("exportTarget").currentText(), QStringLiteral("As set below"));
}

TEST_F(ExportDialogTest, NamesTheFileAfterTheFirstPicture)
{
    open();
    check("exportElevation", true);
    EXPECT_EQ(field<QLabel>("exportFiles").text(), QStringLiteral("disc_n.png, disc_e.png"));
    check("exportMap", false);
    EXPECT_EQ(field<QLineEdit>("exportFile").text(), QStringLiteral("disc_e.png"));
    check("exportElevation", false);
    EXPECT_FALSE(field<QPushButton>("startExport").isEnabled());
    check("exportMap", true);
    EXPECT_EQ(field<QLineEdit>("exportFile").text(), QStringLiteral("disc_n.png"));
}

TEST_F(ExportDialogTest, NamesTheFilesThatItWritesAlsoAfterATargetIsLeft)
{
    open();
    chooseTarget(QStringLiteral("Unreal Engine"));
    check("exportHeight", true);
    check("exportOcclusion", true);
    const auto named = [this] {
        QStringList names;
        for (const QString& file : dialog->choices().files())
            names << QFileInfo(file).fileName();
        return names.join(QStringLiteral(", "));
    };
    EXPECT_EQ(field<QLabel>("exportFiles").text(), named());
    type("exportPad", QStringLiteral("9"));
    EXPECT_EQ(field<QComboBox>("exportTarget").currentText(), QStringLiteral("As set below"));
    EXPECT_EQ(named(), QStringLiteral("disc_N.png, disc_height.png, disc_ao.png"));
    EXPECT_EQ(field<QLabel>("exportFiles").text(), named());
}

TEST_F(ExportDialogTest, AMaskOfGlossNeedsAGlossyColour)
{
    open();
    EXPECT_FALSE(field<QToolButton>("exportGlossColours").isEnabled());
    check("exportGloss", true);
    pressEnter();
    EXPECT_FALSE(dialog->isRunning());
    EXPECT_TRUE(dialog->message().contains(QStringLiteral("No colour is glossy"))) << dialog->message().toStdString();
    setGlossOf(QStringLiteral("#D02020"), 35);
    exportAll();
    EXPECT_TRUE(QFileInfo::exists(out() + QStringLiteral("/disc_gloss.png"))) << dialog->message().toStdString();
    // It is known for the next drawing with this colour.
    show();
    const GlossSettings gloss = dialog->choices().gloss;
    ASSERT_EQ(gloss.colours.size(), 1U);
    EXPECT_EQ(gloss.colours.front().gloss, 0.35);
}

TEST_F(ExportDialogTest, RemembersWhatWasChosenButNotTheName)
{
    open();
    chooseTarget(QStringLiteral("Unity"));
    check("exportElevation", true);
    field<QLineEdit>("exportFolder").setText(folder.filePath(QStringLiteral("elsewhere")));
    field<QLineEdit>("exportFile").setText(QStringLiteral("other_n.png"));
    exportAll();
    ASSERT_TRUE(QFileInfo::exists(folder.filePath(QStringLiteral("elsewhere/other_e.png"))));
    show();
    const ExportChoices choices = dialog->choices();
    EXPECT_EQ(field<QComboBox>("exportTarget").currentText(), QStringLiteral("Unity"));
    EXPECT_EQ(choices.pictures, (QList{ExportPicture::MAP, ExportPicture::ELEVATION}));
    EXPECT_EQ(choices.file, folder.filePath(QStringLiteral("elsewhere/disc_n.png")));
}

} // namespace
