// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where drawings came from is saved with the scene, by paths that hold when a folder is moved.
#include "Host/QuarvelSceneIO/TestScenes.h"

#include "QuarvelSceneIO/private/SIO_SourcePath.h"

using namespace test_scenes;

namespace {

MO_ElementModule& heroOf(const MO_Scene& scene)
{
    return dynamic_cast<MO_ElementModule&>(*scene.findModule(text("Hero \"1\" <\xc3\xa9>")));
}

QString mainFileOf(const QString& folder)
{
    QFile file(folder + text("/scene.xml"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

TEST(SceneSources, AreFoundWhereTheFolderWasMovedTo)
{
    const ScenePlace place;
    const QString drawings = QFileInfo(place.folder).absolutePath();
    const auto scene = makeScene(1);
    heroOf(*scene).setOrigin({{drawings + text("/hero.svg"), drawings + text("/more/hero.svg")}, text("Head")});
    save(*scene, place.folder);
    const QString written = mainFileOf(place.folder);
    EXPECT_TRUE(written.contains(text("<file path=\"../hero.svg\"/>"))) << qPrintable(written);
    EXPECT_TRUE(written.contains(text("source=\"1\"")));

    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded) << qPrintable(loaded.error().text);
    EXPECT_EQ(loaded->warnings, QStringList());
    EXPECT_EQ(heroOf(*loaded->scene).origin(), heroOf(*scene).origin());
    save(*loaded->scene, place.folder);
    EXPECT_EQ(mainFileOf(place.folder), written);

    const QString elsewhere = drawings + text("/moved");
    ASSERT_TRUE(QDir().mkpath(elsewhere));
    ASSERT_TRUE(QDir().rename(place.folder, elsewhere + text("/walk.scene")));
    const auto moved = SIO_loadScene(elsewhere + text("/walk.scene"));
    ASSERT_TRUE(moved);
    EXPECT_EQ(heroOf(*moved->scene).origin().files.value(0), elsewhere + text("/hero.svg"));
}

TEST(SceneSources, AreSharedByTheElementsOfTheSameFiles)
{
    const ScenePlace place;
    const auto scene = makeScene(1);
    std::vector<MO_ElementModule*> elements;
    scene->root().forEachModule([&](MO_Module& module) {
        if (auto* const element = dynamic_cast<MO_ElementModule*>(&module); element && element->hasFiles())
            elements.push_back(element);
    });
    ASSERT_GE(elements.size(), 2U);
    for (MO_ElementModule* const element : elements)
        element->setOrigin({{text("/drawings/hero.svg")}, element->instanceName()});
    save(*scene, place.folder);
    EXPECT_EQ(mainFileOf(place.folder).count(text("<source>")), 1);
}

TEST(SceneSources, SayWhatTheFilesHeldWhenTheyWereRead)
{
    const ScenePlace place;
    const auto scene = makeScene(1);
    MO_DrawingOrigin origin{{text("/drawings/hero.svg")}, text("Head")};
    origin.digest = text("9f86d081");
    heroOf(*scene).setOrigin(origin);
    save(*scene, place.folder);
    EXPECT_TRUE(mainFileOf(place.folder).contains(text("<source digest=\"9f86d081\">")));
    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->warnings, QStringList());
    EXPECT_EQ(heroOf(*loaded->scene).origin(), origin);
}

TEST(SceneSources, SayWhyTheDrawingsAreAnObject)
{
    const ScenePlace place;
    const auto scene = makeScene(1);
    MO_DrawingOrigin origin{{text("/drawings/hero.svg")}, text("Head")};
    origin.reason = text("a part over a part");
    heroOf(*scene).setOrigin(origin);
    save(*scene, place.folder);
    EXPECT_EQ(mainFileOf(place.folder).count(text(" reason=\"a part over a part\"")), 1);
    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->warnings, QStringList());
    EXPECT_EQ(heroOf(*loaded->scene).origin(), origin);
}

TEST(SceneSources, KeepTheReasonOfDrawingsFromNobodyKnowsWhere)
{
    const ScenePlace place;
    const auto scene = makeScene(1);
    MO_DrawingOrigin origin;
    origin.reason = text("a part by itself");
    heroOf(*scene).setOrigin(origin);
    save(*scene, place.folder);
    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(heroOf(*loaded->scene).origin(), origin);
}

TEST(SceneSources, OfNobodyKnowsWhereAreNotWritten)
{
    const ScenePlace place;
    save(*makeScene(1), place.folder);
    EXPECT_FALSE(mainFileOf(place.folder).contains(text("source")));
}

TEST(SceneSources, OnOtherMachinesAreIgnored)
{
    EXPECT_EQ(SIO_sourceFile(text("../hero.svg"), text("/art/walk.scene")), text("/art/hero.svg"));
    EXPECT_EQ(SIO_sourceFile(text("/art/hero.svg"), text("/art/walk.scene")), text("/art/hero.svg"));
    EXPECT_EQ(SIO_sourceFile(text("//server/share/hero.svg"), text("/art/walk.scene")), QString());
    EXPECT_EQ(SIO_sourceFile(text("\\\\server\\share\\hero.svg"), text("/art/walk.scene")), QString());
    EXPECT_EQ(SIO_sourceFile(QString(), text("/art/walk.scene")), QString());
}

} // namespace
