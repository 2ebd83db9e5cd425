// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Random steps in the picture, always the same ones: objects are picked and their handles pulled, lights are moved and
// come and go, depths are dragged, scenes are saved and read again, drawings opened over them and replaced by others,
// and all goes on while files are read. Nothing crashes, and undoing everything brings back the bytes that were opened.
#include "Apps/studio/objects/ObjectsTesting.h"

#include "studio/docks/scene/ColourDepthView.h"
#include "studio/objects/ObjectBar.h"
#include "studio/objects/ObjectHands.h"
#include "studio/objects/ValueField.h"

#include <QPushButton>
#include <QTableView>
#include <QWheelEvent>

#include <array>
#include <random>

namespace {

constexpr int kSteps = 400;
constexpr unsigned kSeed = 20261122;

// The drawing again, with another head and a hat.
const char* const kOther = R"(<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100"
     xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape">
  <g inkscape:groupmode="layer" inkscape:label="Body"><rect x="20" y="10" width="160" height="80" fill="#3060c0"/></g>
  <g inkscape:groupmode="layer" inkscape:label="Head"><circle cx="90" cy="50" r="30" fill="#d0a020"/></g>
  <g inkscape:groupmode="layer" inkscape:label="Hat"><rect x="70" y="12" width="40" height="20" fill="#a02020"/></g>
</svg>)";

class PictureMonkeyTest : public studio_testing::ObjectsTest
{
protected:
    using Step = void (PictureMonkeyTest::*)();

    int upTo(int last) { return std::uniform_int_distribution(0, last)(_random); }
    bool chance(int percent) { return upTo(99) < percent; }
    QPoint anyPlace() { return {upTo(viewer().width() - 1), upTo(viewer().height() - 1)}; }
    // Places in the picture rather than beside it.
    QPoint anyPicturePlace() { return inView(QPointF(upTo(399), upTo(199))); }
    Qt::KeyboardModifiers anyModifiers()
    {
        constexpr std::array kAll{Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::AltModifier};
        return kAll[static_cast<std::size_t>(upTo(3))];
    }

    // The document with an empty history.
    void begin()
    {
        const auto note = [this] { _base = document().scene().toXml(); };
        QObject::connect(&document(), &StudioDocument::sceneReplaced, &document(), note);
        note();
        window->files().setMayReplace([] { return true; });
        write(QStringLiteral("other.svg"), kOther);
    }

    // What is under the mouse depends on the picture that is shown, so that has to be there.
    void pick()
    {
        ASSERT_TRUE(waitForPicture());
        QTest::mouseClick(&viewer(), Qt::LeftButton, anyModifiers(), anyPicturePlace());
    }
    void hoverSomewhere()
    {
        ASSERT_TRUE(waitForPicture());
        studio_testing::moveMouse(viewer(), anyPlace());
    }
    void pullFrom(const QPoint& from)
    {
        QTest::mousePress(&viewer(), Qt::LeftButton, Qt::NoModifier, from);
        for (int i = upTo(3); i >= 0; --i)
            studio_testing::moveMouse(viewer(), anyPlace(), Qt::LeftButton);
        if (chance(15))
            QTest::keyClick(&viewer(), Qt::Key_Escape);
        if (chance(10))
            document().undo(); // in the middle of it
        QTest::mouseRelease(&viewer(), Qt::LeftButton, Qt::NoModifier, anyPlace());
    }
    void dragAnywhere()
    {
        ASSERT_TRUE(waitForPicture());
        pullFrom(anyPlace());
    }
    void pullHandle()
    {
        ASSERT_TRUE(waitForPicture());
        const ObjectHandles handles = window->hands().handles();
        if (!handles.isEmpty())
            pullFrom(handles.place(kObjectHandles[static_cast<std::size_t>(upTo(3))]).toPoint());
    }
    void pullLight()
    {
        viewer().setKind(PictureKind::LIT);
        const auto lights = window->lights().lights();
        pullFrom(
            viewer().handle(lights[static_cast<std::size_t>(upTo(static_cast<int>(lights.size()) - 1))]).toPoint());
    }
    void changeLights()
    {
        LightModel& lights = window->lights();
        const int count = static_cast<int>(lights.lights().size());
        const int which = upTo(3);
        if (which == 0 && count < 6)
            lights.add({.place = {upTo(100) / 50.0 - 1.0, upTo(100) / 50.0 - 1.0}});
        else if (which == 1 && count < 6)
            lights.duplicate(upTo(count - 1));
        else if (which == 2)
            lights.remove(upTo(count - 1));
        else
            lights.setCurrent(upTo(count - 1));
    }
    void turnWheel()
    {
        const QPoint place = anyPlace();
        QWheelEvent wheel(place, viewer().mapToGlobal(place), QPoint(), QPoint(0, chance(50) ? 120 : -120),
                          Qt::NoButton, chance(40) ? Qt::ShiftModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&viewer(), &wheel);
        if (chance(50))
            viewer().fit();
    }
    void press()
    {
        constexpr std::array kKeys{Qt::Key_V,      Qt::Key_X,    Qt::Key_H,  Qt::Key_S, Qt::Key_B,
                                   Qt::Key_Escape, Qt::Key_Left, Qt::Key_Up, Qt::Key_J};
        QTest::keyClick(&viewer(), kKeys[static_cast<std::size_t>(upTo(static_cast<int>(kKeys.size()) - 1))],
                        chance(20) ? Qt::ShiftModifier : Qt::NoModifier);
    }
    void resetValues() { QTest::keyClick(&viewer(), Qt::Key_R, Qt::ShiftModifier); }
    void switchPicture()
    {
        constexpr std::array kKinds{PictureKind::DRAWING, PictureKind::ELEVATION, PictureKind::NORMALS,
                                    PictureKind::LIT};
        viewer().setKind(kKinds[static_cast<std::size_t>(upTo(3))]);
        ViewOptions options = viewer().options();
        options.border = chance(30) ? std::optional(upTo(100) / 100.0) : std::nullopt;
        viewer().setOptions(options);
    }
    void useBar()
    {
        const auto value = static_cast<std::size_t>(upTo(static_cast<int>(std::size(kObjectValues)) - 1));
        ValueField& field = window->findChild<ObjectBar*>()->field(kObjectValues[value]);
        if (field.isVisible() && field.isEnabled())
            field.stepBy(chance(50) ? 2 : -2);
    }
    void useDepths()
    {
        auto& depths = *window->findChild<ColourDepthView*>();
        const QAbstractItemModel& model = *depths.table().model();
        if (model.rowCount() == 0)
            return;
        depths.table().setCurrentIndex(model.index(upTo(model.rowCount() - 1), ColourDepthModel::DEPTH));
        if (chance(50))
            QTest::keyClick(&depths.table(), chance(50) ? Qt::Key_Left : Qt::Key_Right);
        else
            QTest::mouseClick(depths.table().viewport(), Qt::LeftButton, Qt::NoModifier,
                              depths.sliderPlace(depths.table().currentIndex(), upTo(255)));
        if (chance(20))
            depths.pickButton().toggle();
    }
    void undo()
    {
        for (int i = upTo(chance(10) ? 20 : 3); i >= 0; --i)
            document().undo();
    }
    void redo()
    {
        for (int i = upTo(3); i >= 0; --i)
            document().redo();
    }
    // What was read may take effect at any of these steps, or after them.
    void goOnWhileFilesAreRead()
    {
        static constexpr std::array kAll{&PictureMonkeyTest::pullLight, &PictureMonkeyTest::changeLights,
                                         &PictureMonkeyTest::press,     &PictureMonkeyTest::useBar,
                                         &PictureMonkeyTest::useDepths, &PictureMonkeyTest::undo,
                                         &PictureMonkeyTest::redo};
        for (int i = upTo(4); i > 0; --i) {
            (this->*kAll[static_cast<std::size_t>(upTo(static_cast<int>(kAll.size()) - 1))])();
            QCoreApplication::processEvents();
        }
        ASSERT_TRUE(
            studio_testing::waitUntil([this] { return !window->files().isBusy() && !window->sources().isBusy(); }));
    }
    void open()
    {
        if (chance(60))
            return;
        const QString scene = folder.filePath(QStringLiteral("monkey.scene"));
        ASSERT_TRUE(document().save(scene).ok());
        drop({chance(70) ? scene : write(QStringLiteral("parts.svg"), studio_testing::kParts)});
        goOnWhileFilesAreRead();
    }
    void replaceDrawing()
    {
        if (chance(60) || window->sources().all().empty())
            return;
        const QStringList source = window->sources().all().front();
        const bool isFirst = source.first().endsWith(QStringLiteral("parts.svg"));
        window->sources().replace(
            source, {folder.filePath(isFirst ? QStringLiteral("other.svg") : QStringLiteral("parts.svg"))});
        goOnWhileFilesAreRead();
    }

    void step()
    {
        static constexpr std::array<Step, 23> kAll{
            &PictureMonkeyTest::pick,        &PictureMonkeyTest::pick,           &PictureMonkeyTest::pick,
            &PictureMonkeyTest::pick,        &PictureMonkeyTest::hoverSomewhere, &PictureMonkeyTest::dragAnywhere,
            &PictureMonkeyTest::pullHandle,  &PictureMonkeyTest::pullHandle,     &PictureMonkeyTest::pullHandle,
            &PictureMonkeyTest::pullLight,   &PictureMonkeyTest::pullLight,      &PictureMonkeyTest::changeLights,
            &PictureMonkeyTest::turnWheel,   &PictureMonkeyTest::press,          &PictureMonkeyTest::press,
            &PictureMonkeyTest::resetValues, &PictureMonkeyTest::switchPicture,  &PictureMonkeyTest::useBar,
            &PictureMonkeyTest::useDepths,   &PictureMonkeyTest::undo,           &PictureMonkeyTest::redo,
            &PictureMonkeyTest::open,        &PictureMonkeyTest::replaceDrawing};
        (this->*kAll[static_cast<std::size_t>(upTo(static_cast<int>(kAll.size()) - 1))])();
        if (chance(25))
            QCoreApplication::processEvents();
    }

    QString base() const { return _base; }

private:
    std::mt19937 _random{kSeed};
    QString _base; ///< the scene as it was opened last
};

TEST_F(PictureMonkeyTest, RandomStepsInThePictureAreUndoneToTheFirstByte)
{
    openParts();
    begin();
    qsizetype changes = 0;
    for (int i = 0; i < kSteps && !HasFatalFailure(); ++i) {
        const qsizetype before = document().commands().undoNames().size();
        step();
        changes += std::max<qsizetype>(0, document().commands().undoNames().size() - before);
    }
    // Something was done at all.
    EXPECT_GT(changes, 50);
    while (document().commands().canUndo())
        document().undo();
    EXPECT_EQ(document().scene().toXml(), base());
}

} // namespace
