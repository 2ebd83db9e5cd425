// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The translation context of the module's texts: the name of the class that shows them.
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "QuarvelSceneCore/graph/MO_NodeEditorComponentInterface.h"
#include "editors/VolumetricColorEditor.h"
#include "editors/VolumetricObjectListEditor.h"
#include "node/Vallorin.h"
#include "parameters/NormalQuality.h"

#include <QAction>
#include <QCoreApplication>
#include <QDomDocument>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

/// Translates every text into its context and the text itself.
class ContextTranslator : public QTranslator
{
public:
    ContextTranslator() { QCoreApplication::installTranslator(this); }
    ~ContextTranslator() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QStringLiteral("%1/%2").arg(QString::fromLatin1(context), QString::fromLatin1(text));
    }
};

class Owner : public MO_NodeEditorComponentInterfaceOwner
{
public:
    MO_Module* module() override { return &node; }
    void componentChanged() override {}

    Vallorin node;
};

class TranslationContext : public testing::Test
{
protected:
    /// The texts of a menu's entries.
    static QStringList textsOf(const QMenu& menu)
    {
        QStringList texts;
        for (const QAction* const action : menu.actions())
            if (!action->isSeparator())
                texts.append(action->text());
        return texts;
    }

    ContextTranslator translator;
    Owner owner;
};

TEST_F(TranslationContext, OfTheNodeIsItsClass)
{
    EXPECT_EQ(owner.node.baseDisplayName(), QStringLiteral("Vallorin/Normal-Map"));
    EXPECT_EQ(Vallorin::tr("Text"), QStringLiteral("Vallorin/Text"));
    EXPECT_EQ(Vallorin::trUtf8("Text"), QStringLiteral("Vallorin/Text"));
}

TEST_F(TranslationContext, OfTheQualitiesIsTheAttributesClass)
{
    Vallorin::NormalQuality quality(AT_AttrMeta(QStringLiteral("NormalQuality"), QString()));
    // Labels are translated once for each version of the format, so this needs an unused version.
    QDomDocument document;
    ASSERT_TRUE(document.setContent(QStringLiteral("<NormalQuality val=\"MEDIUM_NORMAL_QUALITY\" version=\"4711\"/>")));
    ASSERT_TRUE(quality.parseXml(document.documentElement(), nullptr));
    EXPECT_EQ(quality.displayText(0.0), QStringLiteral("Vallorin::NormalQuality/Medium"));
}

TEST_F(TranslationContext, OfTheColourEditorIsItsClass)
{
    EXPECT_EQ(VolumetricColorEditor::getHeaderTitles(),
              QStringList(QStringLiteral("VolumetricColorEditor/Carving <------> Adding")));
    QWidget widget;
    QTableWidget table(&widget);
    table.setObjectName(QStringLiteral("colorList"));
    QPushButton button(&widget);
    button.setObjectName(QStringLiteral("addColorButton"));
    VolumetricColorEditor editor(&widget);
    editor.setOwner(&owner);
    editor.synchronize();
    EXPECT_EQ(table.findChild<QLabel*>()->text(), QStringLiteral("VolumetricColorEditor/Name"));
    editor.refreshMenu();
    EXPECT_EQ(textsOf(*button.menu()), QStringList(QStringLiteral("VolumetricColorEditor/Remove Selected Colours")));
    delete button.menu();
}

TEST_F(TranslationContext, OfTheObjectEditorIsItsClass)
{
    using Editor = VolumetricObjectListEditor;
    EXPECT_EQ(Editor::getHeaderTitle(0), QStringLiteral("VolumetricObjectListEditor/ID"));
    EXPECT_EQ(Editor::getHeaderTitle(3), QStringLiteral("VolumetricObjectListEditor/Elevation Smoothness"));
    for (int id = 0; id < 6; ++id)
        EXPECT_TRUE(Editor::getString(static_cast<Editor::eStringId>(id))
                        .startsWith(QStringLiteral("VolumetricObjectListEditor/")))
            << id;
    QWidget widget;
    QTableView table(&widget);
    table.setObjectName(QStringLiteral("objectList"));
    QPushButton button(&widget);
    button.setObjectName(QStringLiteral("addObjectButton"));
    VolumetricObjectListEditor editor(&widget);
    editor.setOwner(&owner);
    editor.synchronize();
    EXPECT_EQ(table.findChild<QLabel*>()->text(), QStringLiteral("VolumetricObjectListEditor/Name"));
    editor.refreshMenu();
    EXPECT_EQ(textsOf(*button.menu()),
              QStringList({QStringLiteral("VolumetricObjectListEditor/Add all Defined Objects"),
                           QStringLiteral("VolumetricObjectListEditor/Remove Selected Objects")}));
    delete button.menu();
}

} // namespace
