// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A window with a drawing of two objects: a body of 320 x 160 pixels, and in its middle a head of 80 x 80, both with a
// narrow rim. Functions for finding and clicking them, for pulling handles, and for the bar.
#pragma once

#include "Apps/studio/window/WindowTesting.h"

#include "studio/objects/DocumentObjects.h"
#include "studio/objects/ObjectBar.h"
#include "studio/objects/ObjectHands.h"

#include <QAction>
#include <QMenu>
#include <QToolButton>

namespace studio_testing {

inline const char* const kParts = R"(<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100"
     xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape">
  <g inkscape:groupmode="layer" inkscape:label="Body"><rect x="20" y="10" width="160" height="80" fill="#3060c0"/></g>
  <g inkscape:groupmode="layer" inkscape:label="Head"><circle cx="100" cy="50" r="20" fill="#d0a020"/></g>
</svg>)";

class ObjectsTest : public WindowTest
{
protected:
    static constexpr QPointF kHead{200.5, 100.5};
    static constexpr QPointF kBody{60.5, 40.5};
    static constexpr QPointF kOutside{10.5, 10.5};

    /// Opens the drawing and gives all objects the values of a narrow rim.
    void openParts()
    {
        drop({write(QStringLiteral("parts.svg"), kParts)});
        ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text());
        NormalMapValues values;
        values.objects = {{1, 24.0, 1.0, 1.0}, {2, 24.0, 1.0, 1.0}};
        for (const SceneObject& each : window->objects().all()) {
            ASSERT_TRUE(NormalMapNode(*each.node).set(values).ok());
            break;
        }
        QCoreApplication::processEvents();
        ASSERT_TRUE(waitForPicture());
        viewer().fit();
        // Moves the light away from the clicked places.
        StudioLight light = window->lights().lights().front();
        light.place = QPointF(-1.9, -0.9);
        window->lights().setLight(0, light);
        document().commands().clear();
    }

    QStringList selected() const
    {
        QStringList names;
        for (const SceneObject& each : window->objects().selected())
            names << each.name;
        return names;
    }
    SceneObject object(const char* name) const
    {
        for (const SceneObject& each : window->objects().all())
            if (each.name == QLatin1String(name))
                return each;
        ADD_FAILURE() << "no object " << name;
        return {};
    }
    NormalMapObject valuesOf(const char* name) const { return object(name).values; }
    ObjectDefinition& definition(const char* name) const { return *object(name).definitions.front(); }

    /// The place in the view of a place of the full picture, 400 x 200.
    QPoint inView(const QPointF& picture) { return viewer().transform().toView(picture).toPoint(); }
    void click(const QPointF& picture, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(&viewer(), Qt::LeftButton, modifiers, inView(picture));
        QCoreApplication::processEvents();
    }
    void hover(const QPointF& picture)
    {
        moveMouse(viewer(), inView(picture));
        QCoreApplication::processEvents();
    }
    void dragIn(const QPointF& from, const QPointF& to)
    {
        QTest::mousePress(&viewer(), Qt::LeftButton, Qt::NoModifier, inView(from));
        moveMouse(viewer(), inView((from + to) / 2.0), Qt::LeftButton);
        moveMouse(viewer(), inView(to), Qt::LeftButton);
        QTest::mouseRelease(&viewer(), Qt::LeftButton, Qt::NoModifier, inView(to));
        QCoreApplication::processEvents();
    }

    ObjectBar& bar() const { return *window->findChild<ObjectBar*>(); }
    void pressOn(ObjectHandle handle)
    {
        ASSERT_FALSE(window->hands().handles().isEmpty());
        _handle = window->hands().handles().place(handle).toPoint();
        QTest::mousePress(&viewer(), Qt::LeftButton, Qt::NoModifier, _handle);
    }
    void pullTo(const QPoint& way)
    {
        moveMouse(viewer(), _handle + way / 2, Qt::LeftButton);
        moveMouse(viewer(), _handle + way, Qt::LeftButton);
    }
    void letGo(const QPoint& way) { QTest::mouseRelease(&viewer(), Qt::LeftButton, Qt::NoModifier, _handle + way); }
    void pull(ObjectHandle handle, const QPoint& way)
    {
        pressOn(handle);
        pullTo(way);
        letGo(way);
        QCoreApplication::processEvents();
    }
    /// The size of a scene unit in the view.
    double unit() { return 400.0 / 720.0 * viewer().transform().scale(); }
    void toggle(const char* name)
    {
        auto* const button = bar().findChild<QToolButton*>(QLatin1String(name));
        ASSERT_NE(button, nullptr) << name;
        ASSERT_TRUE(button->isVisible());
        QTest::mouseClick(button, Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    QMenu& menuOfBar()
    {
        QMenu* const menu = bar().findChild<QToolButton*>(QStringLiteral("bar-more"))->menu();
        Q_EMIT menu->aboutToShow();
        return *menu;
    }
    static QAction* entry(const QMenu& menu, const QString& text)
    {
        for (QAction* const action : menu.actions()) {
            if (action->text() == text)
                return action;
            if (action->menu())
                if (QAction* const inside = entry(*action->menu(), text))
                    return inside;
        }
        return nullptr;
    }

private:
    QPoint _handle;
};

} // namespace studio_testing
