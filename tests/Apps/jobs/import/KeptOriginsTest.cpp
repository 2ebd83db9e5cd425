// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The files that a scene was made of are known under every name.
#include "Files.h"

#include "jobs/import/KeptOrigins.h"

#include <QDir>

#include <filesystem>

using namespace files;

namespace {

class KeptOriginsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const QString body = folder.write(QStringLiteral("body.svg"), svg(svgLayer("Body", 10)));
        auto imported = importDrawings({body}, {});
        ASSERT_TRUE(imported) << imported.error().text.toStdString();
        scene = std::move(imported->scene);
    }
    QString written(const QString& name) const { return originAmong(*scene, {folder.path(name)}).value_or(QString()); }

    Folder folder;
    std::unique_ptr<MO_Scene> scene;
};

TEST_F(KeptOriginsTest, FindsAnOriginAmongOtherFiles)
{
    const QString other = folder.write(QStringLiteral("body_n.png"), "a map");
    EXPECT_EQ(originAmong(*scene, {other, folder.path(QStringLiteral("body.svg"))}),
              folder.path(QStringLiteral("body.svg")));
    EXPECT_FALSE(originAmong(*scene, {other, folder.path(QStringLiteral("not there.png"))}));
}

TEST_F(KeptOriginsTest, FindsItUnderOtherSpellingsAndThroughLinks)
{
    ASSERT_TRUE(QDir().mkpath(folder.path(QStringLiteral("maps"))));
    EXPECT_EQ(written(QStringLiteral("maps/../body.svg")), folder.path(QStringLiteral("maps/../body.svg")));
    std::filesystem::create_symlink("../body.svg", folder.path(QStringLiteral("maps/file.png")).toStdString());
    EXPECT_EQ(written(QStringLiteral("maps/file.png")), folder.path(QStringLiteral("maps/file.png")));
    std::filesystem::create_directory_symlink("..", folder.path(QStringLiteral("maps/up")).toStdString());
    EXPECT_EQ(written(QStringLiteral("maps/up/body.svg")), folder.path(QStringLiteral("maps/up/body.svg")));
}

TEST_F(KeptOriginsTest, AFileThatIsGoneIsNobodysOrigin)
{
    ASSERT_TRUE(QFile::remove(folder.path(QStringLiteral("body.svg"))));
    EXPECT_FALSE(originAmong(*scene, {folder.path(QStringLiteral("body.svg"))}));
    EXPECT_FALSE(originAmong(*scene, {folder.path(QStringLiteral("other.svg"))}));
}

} // namespace
