// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The application's window with drawings made for tests, and ways to wait for what happens in the background.
#pragma once

#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "TestFolder.h"
#include "studio/preview/Viewer.h"
#include "studio/window/MainWindow.h"
#include "studio/window/MessageBar.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace studio_testing {

inline constexpr int kPatience = 60000;

/// Lets the window work until something is so.
template<typename Condition>
bool waitUntil(const Condition& condition, int patience = kPatience)
{
    return QTest::qWaitFor(condition, patience);
}

/// Moves the mouse over a widget. QTest::mouseMove() goes by way of the screen's cursor, which may lag behind.
inline void moveMouse(QWidget& widget, const QPoint& to, Qt::MouseButtons buttons = Qt::NoButton)
{
    QMouseEvent event(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

/// A drawing of 200 x 100 with a red disc of radius 40 in its middle.
inline const char* const kDisc = R"(<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100">
  <circle cx="100" cy="50" r="40" fill="#d02020"/></svg>)";

/// A Lottie animation in which a rectangle slides for a number of frames.
inline QByteArray slide(int frames)
{
    return QByteArray(R"({"v":"5.5.7","fr":24,"ip":0,"op":FRAMES,"w":200,"h":100,"nm":"slide","ddd":0,"assets":[],
"layers":[{"ddd":0,"ind":1,"ty":4,"nm":"Box","sr":1,"ks":{"o":{"a":0,"k":100},"r":{"a":0,"k":0},
"p":{"a":1,"k":[{"t":0,"s":[40,50,0],"e":[160,50,0],"i":{"x":1,"y":1},"o":{"x":0,"y":0},"to":[0,0,0],"ti":[0,0,0]},
{"t":FRAMES}]},"a":{"a":0,"k":[0,0,0]},"s":{"a":0,"k":[100,100,100]}},"ao":0,
"shapes":[{"ty":"gr","nm":"g","it":[{"ty":"rc","nm":"r","d":1,"s":{"a":0,"k":[40,40]},"p":{"a":0,"k":[0,0]},
"r":{"a":0,"k":0}},{"ty":"fl","nm":"f","c":{"a":0,"k":[0.8,0.1,0.1,1]},"o":{"a":0,"k":100},"r":1},
{"ty":"tr","p":{"a":0,"k":[0,0]},"a":{"a":0,"k":[0,0]},"s":{"a":0,"k":[100,100]},"r":{"a":0,"k":0},
"o":{"a":0,"k":100},"sk":{"a":0,"k":0},"sa":{"a":0,"k":0}}]}],"ip":0,"op":FRAMES,"st":0,"bm":0}]})")
        .replace("FRAMES", QByteArray::number(frames));
}

class WindowTest : public testing::Test
{
protected:
    WindowTest()
    {
        // The tests have settings of their own.
        QCoreApplication::setOrganizationName(QStringLiteral("VallorinTests"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.filePath(QStringLiteral("settings")));
        renew();
    }

    /// Another window, as after a new start.
    void renew()
    {
        window.reset();
        window = std::make_unique<MainWindow>(recovery.path());
        window->renderService().setLongestSide(kSide);
        window->resize(1200, 800);
        window->show();
        QCoreApplication::processEvents();
    }

    ~WindowTest() override
    {
        // Nothing is asked when a window is destroyed without being closed.
        window.reset();
    }

    QString write(const QString& name, const QByteArray& text) const
    {
        return writeTestFile(folder.filePath(name), text);
    }

    void drop(const QStringList& paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &enter);
        ASSERT_TRUE(enter.isAccepted());
        QDropEvent event(QPointF(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &event);
    }

    bool waitForFiles()
    {
        return waitUntil([this] { return !window->files().isBusy(); });
    }
    bool waitUntilSaid()
    {
        return waitUntil([this] { return !window->messages().text().isEmpty(); });
    }
    /// The full picture of what the document is now.
    bool waitForPicture()
    {
        return waitForFiles() && waitUntil([this] {
                   const RenderService& renders = window->renderService();
                   return !renders.isRendering() && renders.current() && renders.current()->isFull();
               });
    }
    void openScene(const QString& scene)
    {
        drop({scene});
        ASSERT_TRUE(waitForFiles());
        ASSERT_EQ(document().folder(), scene) << qPrintable(window->messages().text());
    }
    void openDisc()
    {
        drop({write(QStringLiteral("disc.svg"), kDisc)});
        ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text())
                                      << qPrintable(window->renderService().error());
    }

    /// Changes something that is undone and saved.
    void change()
    {
        ASSERT_TRUE(document().execute(MO_frameRangeCmd(document().scene(), 1, document().scene().lastFrame() + 5)));
        QCoreApplication::processEvents();
    }
    static QString xmlOf(const MO_Scene& scene) { return scene.toXml(); }

    /// Answers the next question that is asked by a button, and keeps its text.
    void answerNext(QMessageBox::StandardButton button)
    {
        answer([button](QMessageBox& box) { return box.button(button); });
    }
    void answerNext(const QString& buttonText)
    {
        answer([buttonText](QMessageBox& box) -> QAbstractButton* {
            for (QAbstractButton* const button : box.buttons())
                if (button->text().remove(QLatin1Char('&')) == buttonText)
                    return button;
            return nullptr;
        });
    }

    Viewer& viewer() { return window->viewer(); }
    StudioDocument& document() { return window->document(); }

    static constexpr int kSide = 400;
    QTemporaryDir folder;
    QTemporaryDir recovery;
    std::unique_ptr<MainWindow> window;
    QString asked; ///< what the last question said; empty when there was none

private:
    template<typename Choose>
    void answer(const Choose& choose)
    {
        asked.clear();
        auto* const timer = new QTimer(window.get());
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, choose] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            timer->deleteLater();
            timer->stop();
            asked = box->text() + QLatin1Char('\n') + box->informativeText();
            QAbstractButton* const button = choose(*box);
            if (button)
                QTest::mouseClick(button, Qt::LeftButton);
            else {
                ADD_FAILURE() << "no such button";
                box->reject();
            }
        });
        timer->start(10);
    }
};

} // namespace studio_testing
