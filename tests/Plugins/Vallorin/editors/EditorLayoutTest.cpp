// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The layout that the plug-in brings, its widgets, and its texts in another language.
#include "Plugins/Vallorin/editors/EditorTesting.h"

#include "QuarvelPlugInManager/PLUG_EditorWidgets.h"
#include "QuarvelPlugInManager/PLUG_Manager.h"

#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QTemporaryDir>

namespace {

using testing::ElementsAre;

/// Records the registered factories.
class NotingRegistry : public PLUG_WidgetFactoryRegistry
{
public:
    NotingRegistry() : _before(PLUG_Services::getWidgetFactoryRegistry())
    {
        PLUG_Services::setWidgetFactoryRegistry(this);
    }
    ~NotingRegistry() override { PLUG_Services::setWidgetFactoryRegistry(_before); }

    void registerFactory(PLUG_WidgetFactory* factory) override { registered.push_back(factory); }
    QWidget* loadLayout(const QString& path, QWidget*) override
    {
        loaded.append(path);
        return nullptr;
    }

    std::vector<PLUG_WidgetFactory*> registered;
    QStringList loaded;

private:
    PLUG_WidgetFactoryRegistry* _before;
};

class EditorLayout : public EditorTest
{
protected:
    static QString pluginFolder() { return PLUG_Services::getPluginPath(QStringLiteral("Vallorin")); }
};

TEST_F(EditorLayout, IsTheFileNamedAfterTheKeywordAmongTheResourcesOfThePlugIn)
{
    EXPECT_TRUE(QFile::exists(pluginFolder() + QStringLiteral("/resources/Vallorin.xml")));
    EXPECT_EQ(node.obtainEditorLayout().tagName(), QStringLiteral("layout"));
}

TEST_F(EditorLayout, RegistersTheSameFactoryEachTimeItIsAskedFor)
{
    NotingRegistry registry;
    node.obtainEditorLayout();
    node.obtainEditorLayout();
    ASSERT_EQ(registry.registered.size(), 2U);
    ASSERT_NE(registry.registered[0], nullptr);
    EXPECT_EQ(registry.registered[0], registry.registered[1]);
}

TEST_F(EditorLayout, RegistersNothingInAHostWithoutEditors)
{
    PLUG_WidgetFactoryRegistry* const registry = PLUG_Services::getWidgetFactoryRegistry();
    PLUG_Services::setWidgetFactoryRegistry(nullptr);
    EXPECT_FALSE(node.obtainEditorLayout().isNull());
    PLUG_Services::setWidgetFactoryRegistry(registry);
}

TEST_F(EditorLayout, IsNullWithoutTheFileAndTheFactoryIsRegisteredAllTheSame)
{
    const QString folder = pluginFolder();
    const QTemporaryDir empty;
    NotingRegistry registry;
    PLUG_Services::setPluginPath(QStringLiteral("Vallorin"), empty.path());
    EXPECT_TRUE(node.obtainEditorLayout().isNull());
    PLUG_Services::setPluginPath(QStringLiteral("Vallorin"), folder);
    EXPECT_EQ(registry.registered.size(), 1U);
}

TEST_F(EditorLayout, FactoryKeepsTheFirstFolder)
{
    node.obtainEditorLayout();
    const QString folder = pluginFolder();
    const QTemporaryDir other;
    NotingRegistry registry;
    PLUG_Services::setPluginPath(QStringLiteral("Vallorin"), other.path());
    node.obtainEditorLayout();
    PLUG_Services::setPluginPath(QStringLiteral("Vallorin"), folder);
    ASSERT_EQ(registry.registered.size(), 1U);
    QWidget parent;
    EXPECT_EQ(registry.registered[0]->create(QStringLiteral("VallorinObjectList"), &parent, "name"), nullptr);
    EXPECT_EQ(registry.loaded, QStringList(folder + QStringLiteral("/resources/objectList.ui")));
}

TEST_F(EditorLayout, FactoryMakesNothingOfOtherNamesAndOfLayoutsThatFailToLoad)
{
    NotingRegistry registry;
    node.obtainEditorLayout();
    ASSERT_EQ(registry.registered.size(), 1U);
    PLUG_WidgetFactory& factory = *registry.registered[0];
    QWidget parent;
    EXPECT_EQ(factory.create(QStringLiteral("vallorinObjectList"), &parent, "name"), nullptr);
    EXPECT_EQ(factory.create(QString(), &parent, "name"), nullptr);
    EXPECT_TRUE(registry.loaded.isEmpty());
    EXPECT_EQ(factory.create(QStringLiteral("VallorinVolumetricColorDefinition"), &parent, "name"), nullptr);
    EXPECT_EQ(factory.create(QStringLiteral("VallorinObjectList"), &parent, "name"), nullptr);
    EXPECT_EQ(registry.loaded.size(), 2);
    EXPECT_TRUE(parent.findChildren<QObject*>().isEmpty()) << "no editor was left behind";
    const QWidget* const table = factory.create(QStringLiteral("VallorinColorTableView"), &parent, "name");
    EXPECT_NE(qobject_cast<const QTableWidget*>(table), nullptr);
    EXPECT_EQ(table->parentWidget(), &parent);
}

TEST_F(EditorLayout, ShowsAllTenAttributesInGroups)
{
    open();
    EXPECT_TRUE(panel->warnings().isEmpty());
    std::vector<std::string> titles;
    for (const QGroupBox* const box : panel->content()->findChildren<QGroupBox*>())
        titles.push_back(box->title().toStdString());
    EXPECT_THAT(titles, ElementsAre("Objects", "Bevel and Elevation", "Output"));
    QStringList shown;
    for (const QLabel* const label : panel->content()->findChildren<QLabel*>())
        shown.append(label->text());
    for (const QCheckBox* const box : panel->content()->findChildren<QCheckBox*>())
        shown.append(box->text());
    for (const AT_Attr* const each : node.attrs())
        EXPECT_TRUE(shown.contains(each->label())) << each->label().toStdString();
    EXPECT_EQ(node.attrs().size(), 10U);
}

TEST_F(EditorLayout, PutsTheEditorsOnWidgetsOfTheNamesThatItGives)
{
    open();
    EXPECT_NE(component("ObjectListEditor"), nullptr);
    EXPECT_NE(component("ColorInformationEditor"), nullptr);
}

TEST(EditorWidgets, KeepAFactoryOnceAndLoadNothingFromAFileThatIsNotThere)
{
    class Maker : public PLUG_WidgetFactory
    {
    public:
        QWidget* create(const QString& className, QWidget* parent, const char* objectName) override
        {
            if (className != QStringLiteral("Knob"))
                return nullptr;
            auto* made = new QWidget(parent);
            made->setObjectName(QString::fromUtf8(objectName));
            return made;
        }
    };
    Maker maker;
    PLUG_EditorWidgets widgets;
    widgets.registerFactory(&maker);
    widgets.registerFactory(&maker);
    widgets.registerFactory(nullptr);
    EXPECT_EQ(widgets.factories().size(), 1U);
    QWidget parent;
    EXPECT_EQ(widgets.loadLayout(QStringLiteral("/nowhere/at.all.ui"), &parent), nullptr);
    EXPECT_EQ(widgets.create(QStringLiteral("Handle"), &parent, QStringLiteral("left")), nullptr);
    const QWidget* const knob = widgets.create(QStringLiteral("Knob"), &parent, QStringLiteral("left"));
    ASSERT_NE(knob, nullptr);
    EXPECT_EQ(knob->objectName(), QStringLiteral("left"));
}

class GermanEditor : public EditorLayout
{
protected:
    GermanEditor() { translated = PLUG_Manager::installTranslations(QLocale(QStringLiteral("de_DE"))); }
    ~GermanEditor() override { PLUG_Manager::installTranslations(QLocale::c()); }
    QStringList translated;
};

TEST_F(GermanEditor, SpeaksGermanButForTheNumbersOfObjects)
{
    ASSERT_EQ(translated, QStringList(QStringLiteral("Vallorin")));
    define(1);
    attr("ObjectList")->setLocalValue(QStringLiteral("2"));
    open();
    EXPECT_EQ(colours()->horizontalHeaderItem(0)->text(), QStringLiteral("Abtragen <------> Auftragen"));
    EXPECT_EQ(button("addColorButton")->text(), QStringLiteral("Farben"));
    EXPECT_THAT(entries(openMenu("addColorButton")), ElementsAre("-", "[Ausgewählte Farben entfernen]"));
    button("addColorButton")->menu()->close();
    EXPECT_THAT(entries(openMenu("addObjectButton")), ElementsAre("Alle definierten Objekte hinzufügen", "-",
                                                                  "Object 1", "-", "[Ausgewählte Objekte entfernen]"));
    EXPECT_EQ(rowHeader(0), QStringLiteral("< Nicht gefunden >"));
    EXPECT_EQ(objects()->model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Kante"));
    EXPECT_EQ(panel->content()->findChildren<QGroupBox*>().first()->title(), QStringLiteral("Objekte"));
    EXPECT_EQ(node.findAttr(QStringLiteral("BlurScale"))->label(), QStringLiteral("Faktor für Kanten"));
}

TEST_F(GermanEditor, HasNoTranslationForLanguagesThatNobodySpoke)
{
    EXPECT_TRUE(PLUG_Manager::installTranslations(QLocale(QStringLiteral("ja_JP"))).isEmpty());
    open();
    EXPECT_EQ(button("addColorButton")->text(), QStringLiteral("Colours"));
}

} // namespace
