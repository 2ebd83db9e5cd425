// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Scenes are folders and are opened as files are; dialogs begin where people were last.
#include "Apps/studio/window/WindowTesting.h"

#include "studio/document/DialogFolders.h"
#include "studio/document/SceneDialog.h"

#include <QDir>
#include <QLineEdit>

namespace {

class SceneDialogTest : public studio_testing::WindowTest
{
protected:
    void SetUp() override
    {
        openDisc();
        ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("art")));
        scene = folder.filePath(QStringLiteral("art/disc.scene"));
        ASSERT_TRUE(window->saveTo(scene));
        dialog = std::make_unique<SceneDialog>(folder.path());
        dialog->show();
    }
    void type(const QString& name)
    {
        auto* const field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(field, nullptr);
        field->setText(name);
        QTest::keyClick(field, Qt::Key_Return);
    }

    QString scene;
    std::unique_ptr<SceneDialog> dialog;
};

TEST_F(SceneDialogTest, EntersFoldersAndOpensScenes)
{
    type(QStringLiteral("art"));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->directory().absolutePath(), folder.filePath(QStringLiteral("art")));
    type(QStringLiteral("disc.scene"));
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(dialog->scene(), scene);
}

TEST_F(SceneDialogTest, OpensASceneThatIsEntered)
{
    Q_EMIT dialog->directoryEntered(folder.filePath(QStringLiteral("art")));
    EXPECT_TRUE(dialog->isVisible());
    Q_EMIT dialog->directoryEntered(scene);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(dialog->scene(), scene);
}

TEST_F(SceneDialogTest, BeginsWhereTheLastSceneWas)
{
    EXPECT_EQ(dialogFolder(FileDialogKind::SCENES), folder.filePath(QStringLiteral("art")));
    EXPECT_EQ(dialogFolder(FileDialogKind::DRAWINGS), folder.path());
    renew();
    EXPECT_EQ(dialogFolder(FileDialogKind::SCENES), folder.filePath(QStringLiteral("art")));
    ASSERT_TRUE(QDir(folder.filePath(QStringLiteral("art"))).removeRecursively());
    const QString instead = dialogFolder(FileDialogKind::SCENES);
    EXPECT_NE(instead, folder.filePath(QStringLiteral("art")));
    EXPECT_TRUE(QFileInfo(instead).isDir())
        << instead.toStdString() << ", whether there is a folder for documents or not";
}

} // namespace
