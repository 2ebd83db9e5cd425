// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where the node's editor layout is read from.
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "node/Vallorin.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// A plug-in's folder, known to the host while the test runs.
class VallorinEditorLayout : public testing::Test
{
protected:
    VallorinEditorLayout()
    {
        PLUG_Services::setPluginPath(QStringLiteral("Vallorin"), folder.path());
        EXPECT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("resources")));
    }
    ~VallorinEditorLayout() override { PLUG_Services::setPluginPath(QStringLiteral("Vallorin"), QString()); }

    QString path() const { return folder.path() + QStringLiteral("/resources/Vallorin.xml"); }

    void install(const char* text) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_GT(file.write(text), 0);
    }

    QTemporaryDir folder;
    Vallorin node;
};

TEST_F(VallorinEditorLayout, IsTheFileNamedAfterTheKeywordAmongTheResources)
{
    install("<layout title=\"Normal Map\"><attr name=\"BlurScale\"/></layout>");
    const QDomElement layout = node.obtainEditorLayout();
    ASSERT_FALSE(layout.isNull());
    EXPECT_EQ(layout.tagName(), QStringLiteral("layout"));
    EXPECT_EQ(layout.attribute(QStringLiteral("title")), QStringLiteral("Normal Map"));
    EXPECT_EQ(layout.firstChildElement().attribute(QStringLiteral("name")), QStringLiteral("BlurScale"));
}

TEST_F(VallorinEditorLayout, IsNullWithoutTheFile)
{
    EXPECT_TRUE(node.obtainEditorLayout().isNull());
    install("<layout/>");
    ASSERT_FALSE(node.obtainEditorLayout().isNull());
    ASSERT_TRUE(QFile::remove(path()));
    EXPECT_TRUE(node.obtainEditorLayout().isNull());
}

TEST_F(VallorinEditorLayout, IsNullForAFileThatDoesNotParse)
{
    install("<layout><unclosed></layout>");
    EXPECT_TRUE(node.obtainEditorLayout().isNull());
}

TEST_F(VallorinEditorLayout, IsReadAfreshEachTime)
{
    install("<first/>");
    EXPECT_EQ(node.obtainEditorLayout().tagName(), QStringLiteral("first"));
    install("<second/>");
    EXPECT_EQ(node.obtainEditorLayout().tagName(), QStringLiteral("second"));
}

} // namespace
