// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "Share" as people use it in the window: the page is that of the command line, and what does not work is said.
#include "Apps/studio/window/WindowTesting.h"

#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QProcess>
#include <QToolButton>

namespace {

class PageShareTest : public studio_testing::WindowTest
{
protected:
    QAction& share() { return *window->findChild<QAction*>(QStringLiteral("sharePage")); }
    bool isSharing()
    {
        const auto* const cancel = window->findChild<QToolButton*>(QStringLiteral("cancelShare"));
        return cancel && cancel->isVisible();
    }

    // Chooses the menu's entry and accepts the dialog, with another name if one is given. @return what it proposed
    QString shareAs(const QString& file = {})
    {
        QString proposed;
        QTimer typist;
        QObject::connect(&typist, &QTimer::timeout, &typist, [&] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            auto* const field = dialog ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
            if (!field)
                return;
            typist.stop();
            proposed = dialog->selectedFiles().value(0);
            if (!file.isEmpty())
                field->setText(file);
            QTest::keyClick(field, Qt::Key_Return);
        });
        typist.start(10);
        share().trigger();
        return proposed;
    }

    // What the command line makes of the saved scene.
    QByteArray ofCommandLine(const QString& scene)
    {
        const QString page = folder.filePath(QStringLiteral("line.html"));
        QProcess program;
        program.start(QStringLiteral(QUARVEL_PROGRAM), {QStringLiteral("render"), scene, QStringLiteral("--html"), page,
                                                        QStringLiteral("--resolution"), QStringLiteral("200")});
        EXPECT_TRUE(program.waitForFinished(studio_testing::kPatience));
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().constData();
        return bytesOfFile(page);
    }
};

TEST_F(PageShareTest, WritesThePageOfTheCommandLine)
{
    EXPECT_FALSE(share().isEnabled());
    openDisc();
    const QString scene = folder.filePath(QStringLiteral("disc.scene"));
    ASSERT_TRUE(window->saveTo(scene));
    EXPECT_EQ(shareAs(), folder.filePath(QStringLiteral("disc.html")));
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_FALSE(window->messages().isError()) << qPrintable(window->messages().text());
    EXPECT_TRUE(window->messages().text().contains(QStringLiteral("disc.html")));
    EXPECT_EQ(bytesOfFile(folder.filePath(QStringLiteral("disc.html"))), ofCommandLine(scene));
}

TEST_F(PageShareTest, OnePageIsWrittenAtATime)
{
    openDisc();
    const QString first = folder.filePath(QStringLiteral("first.html"));
    shareAs(first);
    EXPECT_FALSE(share().isEnabled());
    PageShare sharing(document());
    QStringList said;
    QObject::connect(&sharing, &PageShare::ended, &sharing, [&](const QString& report, bool) { said << report; });
    sharing.start(folder.filePath(QStringLiteral("second.html")), QStringLiteral("second"));
    ASSERT_TRUE(sharing.isRunning());
    sharing.start(folder.filePath(QStringLiteral("third.html")), QStringLiteral("third"));
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_TRUE(share().isEnabled());
    ASSERT_TRUE(studio_testing::waitUntil([&] { return !sharing.isRunning(); }));
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said.first().contains(QStringLiteral("second.html"))) << said.first().toStdString();
    EXPECT_EQ(QDir(folder.path()).entryList({QStringLiteral("*.html*")}, QDir::Files | QDir::Hidden, QDir::Name),
              QStringList({QStringLiteral("first.html"), QStringLiteral("second.html")}));
}

TEST_F(PageShareTest, AllFramesOfAnAnimationPlayInTheScenesLight)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("walk")));
    const QString first = write(QStringLiteral("walk/walk_1.svg"), studio_testing::kDisc);
    write(QStringLiteral("walk/walk_2.svg"), QByteArray(studio_testing::kDisc).replace("100\" cy", "90\" cy"));
    drop({folder.filePath(QStringLiteral("walk"))});
    ASSERT_TRUE(waitForPicture());
    StudioLight light = window->lights().lights().front();
    light.place = {0.2, 0.7};
    window->lights().setLight(0, light);
    const QString scene = folder.filePath(QStringLiteral("moving.scene"));
    ASSERT_TRUE(window->saveTo(scene));
    const QString page = folder.filePath(QStringLiteral("moving"));
    shareAs(page);
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_EQ(bytesOfFile(page + QStringLiteral(".html")), ofCommandLine(scene));
}

TEST_F(PageShareTest, ASceneWithoutNormalsIsNotShared)
{
    openDisc();
    MO_Module* node = nullptr;
    document().scene().root().forEachModule([&](MO_Module& module) {
        if (module.keyword() == QLatin1String("Vallorin"))
            node = &module;
    });
    ASSERT_TRUE(document().execute(MO_removeModulesCmd({node})));
    shareAs();
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_TRUE(window->messages().isError());
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("disc.html"))));
    EXPECT_FALSE(isSharing());
}

TEST_F(PageShareTest, APageThatCannotBeWrittenIsSaidAndLeavesNothing)
{
    openDisc();
    const QString file = write(QStringLiteral("occupied"), "a file");
    PageShare sharing(document());
    QString said;
    QObject::connect(&sharing, &PageShare::ended, &sharing, [&](const QString& report, bool isError) {
        EXPECT_TRUE(isError);
        said = report;
    });
    sharing.start(file + QStringLiteral("/disc.html"), QStringLiteral("disc"));
    ASSERT_TRUE(studio_testing::waitUntil([&] { return !said.isEmpty(); }));
    EXPECT_FALSE(sharing.isRunning());
    EXPECT_EQ(bytesOfFile(file), "a file");
    EXPECT_EQ(QDir(folder.path()).entryList({QStringLiteral("*.html*")}, QDir::Files | QDir::Hidden), QStringList());
}

} // namespace
