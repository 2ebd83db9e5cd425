// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The module's widget factory by itself: what it makes for each name.
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "editors/ColorTableView.h"
#include "editors/VolumetricColorEditor.h"
#include "editors/VolumetricEditorFactory.h"
#include "editors/VolumetricObjectListEditor.h"

#include <QPointer>
#include <QWidget>

#include <gtest/gtest.h>

/// Functions that Qt calls for every object that is created and destroyed, meant for debugging tools.
extern Q_DECL_IMPORT quintptr qtHookData[];

namespace {

/// Loads empty widgets, or fails.
class Registry : public PLUG_WidgetFactoryRegistry
{
public:
    Registry() { PLUG_Services::setWidgetFactoryRegistry(this); }
    ~Registry() override { PLUG_Services::setWidgetFactoryRegistry(nullptr); }

    void registerFactory(PLUG_WidgetFactory*) override {}
    QWidget* loadLayout(const QString& path, QWidget* parent) override
    {
        loaded = path;
        return fails ? nullptr : new QWidget(parent);
    }

    bool fails = false;
    QString loaded;
};

/// Counts the objects that are created during its lifetime.
class ObjectsMade
{
public:
    ObjectsMade() : _before(qtHookData[kAddObject])
    {
        s_count = 0;
        qtHookData[kAddObject] = reinterpret_cast<quintptr>(&note);
    }
    ~ObjectsMade() { qtHookData[kAddObject] = _before; }
    ObjectsMade(const ObjectsMade&) = delete;
    ObjectsMade& operator=(const ObjectsMade&) = delete;

    static int count() { return s_count; }

private:
    static constexpr int kAddObject = 3;

    static void note(QObject*) { ++s_count; }

    static inline int s_count = 0;
    quintptr _before;
};

class EditorFactory : public testing::Test
{
protected:
    QWidget* make(const char* className) { return factory.create(QString::fromLatin1(className), &parent, "Name"); }

    Registry registry;
    VolumetricEditorFactory factory{QStringLiteral("/folder/")};
    QWidget parent;
};

TEST_F(EditorFactory, PutsAnEditorOfTheGivenNameOnWhatItLoads)
{
    const QWidget* const colors = make("VallorinVolumetricColorDefinition");
    ASSERT_NE(colors, nullptr);
    EXPECT_EQ(registry.loaded, QStringLiteral("/folder/volumetricDefinition.ui"));
    EXPECT_NE(dynamic_cast<VolumetricColorEditor*>(colors->findChild<QObject*>(QStringLiteral("Name"))), nullptr);
    const QWidget* const objects = make("VallorinObjectList");
    ASSERT_NE(objects, nullptr);
    EXPECT_EQ(registry.loaded, QStringLiteral("/folder/objectList.ui"));
    EXPECT_NE(dynamic_cast<VolumetricObjectListEditor*>(objects->findChild<QObject*>(QStringLiteral("Name"))), nullptr);
}

TEST_F(EditorFactory, CreatesNoEditorWhereALayoutFailsToLoad)
{
    {
        const ObjectsMade made;
        ASSERT_NE(make("VallorinObjectList"), nullptr);
        ASSERT_EQ(ObjectsMade::count(), 2) << "a widget and its editor";
    }
    registry.fails = true;
    const ObjectsMade made;
    EXPECT_EQ(make("VallorinVolumetricColorDefinition"), nullptr);
    EXPECT_EQ(make("VallorinObjectList"), nullptr);
    EXPECT_EQ(ObjectsMade::count(), 0);
}

TEST_F(EditorFactory, MakesTheColourTable)
{
    const QWidget* const table = make("VallorinColorTableView");
    EXPECT_NE(dynamic_cast<const ColorTableView*>(table), nullptr);
    EXPECT_EQ(table->parentWidget(), &parent);
}

TEST_F(EditorFactory, ComparesNamesExactly)
{
    const ObjectsMade made;
    for (const char* const name : {"", "vallorinObjectList", "VallorinObjectList ", "ColorTableView"})
        EXPECT_EQ(make(name), nullptr) << name;
    EXPECT_EQ(ObjectsMade::count(), 0);
}

} // namespace
