// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The whole application on a display, used as a person uses it from one end to the other: a drawing is dropped, its
// object table edited, the light moved, everything taken back, the scene saved, closed and opened again. After each
// step three things are compared: the texts of the attributes with what the table's format makes of the numbers, the
// pixels with a picture that was made without a window, and the saved bytes with those before.
#include "Apps/studio/window/WindowTesting.h"
#include "application/Hands.h"
#include "application/IndependentPicture.h"

#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "studio/docks/graph/NodePanel.h"
#include "studio/docks/graph/NodeView.h"
#include "studio/docks/scene/PropertiesView.h"

#include <QDir>
#include <QDirIterator>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableView>

#include <gmock/gmock.h>

#include <cmath>

namespace {

using studio_testing::waitUntil;

/// A warning sign of 210 x 297 mm, which nobody here drew: the layer with the yellow triangle, an empty layer, and
/// beside the layers the exclamation mark.
const QString kDrawing = QStringLiteral(REAL_DRAWING);
/// 210 x 297 mm at 96 pixels an inch: 793.7 x 1122.5.
constexpr QSize kNaturalSize{794, 1123};
/// Screens may be a step off in each channel, and another one where it is multiplied by coverage.
constexpr int kScreenTolerance = 2;

/// What the files of a folder hold, by their paths in it.
std::map<QString, QByteArray> filesIn(const QString& folder)
{
    std::map<QString, QByteArray> files;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
        files[QDir(folder).relativeFilePath(file.fileName())] = file.readAll();
    }
    return files;
}

/// Those that are not byte for byte the same, or are in one folder alone.
std::vector<std::string> filesThatDiffer(const std::map<QString, QByteArray>& one, const QString& folder)
{
    auto others = filesIn(folder);
    std::vector<std::string> names;
    for (const auto& [name, bytes] : one) {
        const auto found = others.find(name);
        if (found == others.end() || found->second != bytes)
            names.push_back(name.toStdString());
        others.erase(name);
    }
    for (const auto& [name, bytes] : others)
        names.push_back(name.toStdString());
    return names;
}

/// The new user's light, as the lighting counts it: white from the upper left, as high as far from the centre.
NM_LightingSettings lightFrom(const QPointF& place)
{
    constexpr double kDegrees = 57.29577951308232;
    NM_LightingSettings lighting;
    lighting.lights = {{.azimuth = std::atan2(place.y(), place.x()) * kDegrees,
                        .height = std::atan2(std::sqrt(0.5), std::hypot(place.x(), place.y())) * kDegrees,
                        .colour = {1.0F, 1.0F, 1.0F}}};
    return lighting;
}

/// A row of the object table.
struct ObjectRow
{
    int number = 0;
    double bevel = 5.0;
    double elevation = 1.0;
    double smoothness = 1.0;
};

std::vector<ObjectRow> rowsOf(const std::string& text)
{
    std::vector<ObjectRow> rows;
    for (const QString& entry : QString::fromStdString(text).split(QLatin1Char(';'))) {
        const QStringList fields = entry.split(QLatin1Char(':'));
        if (fields.size() == 4)
            rows.push_back({fields[0].toInt(), fields[1].toDouble(), fields[2].toDouble(), fields[3].toDouble()});
    }
    return rows;
}

/// The table as the editor writes it.
std::string written(const std::vector<ObjectRow>& rows)
{
    QStringList entries;
    for (const ObjectRow& row : rows)
        entries << QString::asprintf("%d:%f:%f:%f", row.number, row.bevel, row.elevation, row.smoothness);
    return entries.join(QLatin1Char(';')).toStdString();
}

/// The first object with these values, for the independent picture.
std::map<int, ObjectSettings> firstWith(double bevel)
{
    ObjectSettings first;
    first.bevel = bevel;
    first.elevation = 1.0;
    first.smoothness = 1.0;
    return {{1, first}};
}

class WholeApplication : public studio_testing::WindowTest
{
protected:
    /// All that the window shows of the picture, pixel by pixel.
    struct Shown
    {
        QImage drawing, elevation, normals, lit;
        QImage display; ///< what is on the display where the viewer is

        friend bool operator==(const Shown&, const Shown&) = default;
    };

    // A window on the display, which shows pictures in the drawing's natural size.
    void start()
    {
        // Out of the way, so that nothing is under the mouse but what the test points at.
        QCursor::setPos(0, 0);
        window->renderService().setLongestSide(kNaturalSize.height());
        window->setGeometry(20, 20, 1500, 940);
        ASSERT_TRUE(hands::waitForWindow(*window));
    }

    MO_Module& node() const
    {
        MO_Module* const found = window->document().scene().findModule(QStringLiteral("Normal-Map"));
        EXPECT_NE(found, nullptr);
        return *found;
    }
    std::string objectList() const
    {
        const auto* const attr = dynamic_cast<AT_StringAttr*>(node().findAttr(QStringLiteral("ObjectList")));
        return attr ? attr->localValue().toStdString() : "there is no such attribute";
    }
    NodeView& nodes() const { return window->findChild<NodePanel*>()->view(); }
    template<typename Widget>
    Widget& inProperties(const char* name) const
    {
        auto* const found = window->findChild<PropertiesView*>()->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    QTableView& table() const { return inProperties<QTableView>("objectList"); }
    QString cell(int row, int column) const { return table().model()->index(row, column).data().toString(); }

    QImage onDisplay() const
    {
        const QPoint corner = window->viewer().mapTo(window.get(), QPoint());
        const QSize size = window->viewer().size();
        return window->screen()
            ->grabWindow(window->winId(), corner.x(), corner.y(), size.width(), size.height())
            .toImage();
    }
    // Once the display shows what the widget paints.
    QImage displayOfViewer()
    {
        QImage display;
        EXPECT_TRUE(waitUntil([&] {
            display = onDisplay();
            return display == viewer().grab().toImage().convertToFormat(display.format());
        })) << "the display does not show what the viewer paints";
        return display;
    }
    // The document tells of changes when the event loop comes round; until then the old picture counts as done.
    bool waitForNewPicture()
    {
        QCoreApplication::processEvents();
        return waitForPicture();
    }
    Shown shown()
    {
        EXPECT_TRUE(waitForNewPicture());
        const RenderedFramePtr& frame = window->renderService().current();
        return {frame->drawing, frame->elevation, frame->normals, viewer().shownImage().copy(), displayOfViewer()};
    }
    void expectPicture(const std::map<int, ObjectSettings>& objects, const QPointF& light)
    {
        ASSERT_TRUE(waitForNewPicture());
        const auto expected = IndependentPicture::render(kDrawing, objects);
        ASSERT_TRUE(expected);
        EXPECT_EQ(expected->size(), kNaturalSize);
        EXPECT_EQ(expected->pixelsThatDiffer(*window->renderService().current()->node), 0);
        EXPECT_LE(expected->greatestDifference(viewer().shownImage(), lightFrom(light)), kScreenTolerance);
    }

    // The table with a first object that was added by hand.
    std::string withFirst(double bevel) const
    {
        std::vector<ObjectRow> rows = _rows;
        rows.front() = {1, bevel, 1.0, 1.0};
        return written(rows);
    }

    void chooseInObjects(const QString& entry)
    {
        auto& button = inProperties<QPushButton>("addObjectButton");
        hands::onceInFront([&](QWidget& front) {
            EXPECT_EQ(&front, button.menu());
            hands::choose(*button.menu(), entry);
        });
        hands::click(button);
        ASSERT_TRUE(waitUntil([&] { return !button.menu()->isVisible(); }));
    }
    void selectRow(int row)
    {
        QHeaderView& header = *table().verticalHeader();
        const int middle = header.sectionViewportPosition(row) + header.sectionSize(row) / 2;
        hands::click(*header.viewport(), QPoint(header.width() / 2, middle));
        ASSERT_TRUE(waitUntil([&] { return table().selectionModel()->isRowSelected(row, {}); }));
    }
    void typeIntoCell(int row, int column, const QString& text)
    {
        const QPoint middle = table().visualRect(table().model()->index(row, column)).center();
        hands::click(*table().viewport(), middle);
        hands::doubleClick(*table().viewport(), middle);
        QDoubleSpinBox* editor = nullptr;
        ASSERT_TRUE(waitUntil(
            [&] {
                editor = table().viewport()->findChild<QDoubleSpinBox*>();
                return editor && editor->hasFocus();
            },
            kSoon))
            << "a double click opens no spin box";
        hands::press(*editor, Qt::Key_A, Qt::ControlModifier);
        hands::type(*editor, text);
        hands::press(*editor, Qt::Key_Return);
    }
    /// Waits for the text that the table has to become.
    void expectObjectList(const std::string& text)
    {
        waitUntil([&] { return objectList() == text; }, kSoon);
        EXPECT_EQ(objectList(), text);
    }

    /// Saves with the keys and the dialog, in a folder beside the others.
    QString saveAs(const QString& name)
    {
        const QString path = folder.filePath(name);
        hands::onceInFront([path](QWidget& front) { enterName(front, path); });
        hands::press(*window, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(document().folder(), path) << qPrintable(window->messages().text());
        EXPECT_FALSE(window->isWindowModified());
        return path;
    }
    static void enterName(QWidget& dialog, const QString& path)
    {
        auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (!name || !hands::waitForWindow(dialog)) {
            ADD_FAILURE() << "what is in front takes no name";
            dialog.close();
            return;
        }
        // Its proposals come when they come, and would take keys.
        name->setCompleter(nullptr);
        hands::click(*name);
        hands::press(*name, Qt::Key_A, Qt::ControlModifier);
        hands::type(*name, path);
        EXPECT_EQ(name->text(), path);
        hands::press(*name, Qt::Key_Return);
    }

    // The steps.
    void dropTheDrawing();
    void selectTheNode();
    void takeTheFirstObjectOut();
    void addTheFirstObjectAgain();
    void changeItsBevel();
    void dragTheLight();
    void undoEverything();
    void openInAnotherWindow(const QString& scene);

    static constexpr int kSoon = 30000;
    static constexpr QPointF kFirstLight{-0.5, 0.5};
    std::string _imported; // the object table as the import made it
    std::vector<ObjectRow> _rows;
};

void WholeApplication::dropTheDrawing()
{
    ASSERT_TRUE(QFile::exists(kDrawing)) << "the Debian package openclipart-svg is not installed: there is no "
                                         << REAL_DRAWING;
    drop({kDrawing});
    ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text());
    EXPECT_FALSE(window->messages().isError());
    EXPECT_EQ(viewer().kind(), PictureKind::LIT);
    // The sheet is empty in its corner and yellow in the triangle's.
    const QImage& drawing = window->renderService().current()->drawing;
    ASSERT_EQ(drawing.size(), kNaturalSize);
    EXPECT_EQ(drawing.pixelColor(5, 5).alpha(), 0);
    EXPECT_EQ(drawing.pixelColor(200, 600), QColor(0xff, 0xcc, 0x00));
    expectPicture({}, kFirstLight);
    _imported = objectList();
    _rows = rowsOf(_imported);
    ASSERT_GE(_rows.size(), 2U) << _imported;
}

void WholeApplication::selectTheNode()
{
    const NodeItem* const item = nodes().item(node());
    ASSERT_NE(item, nullptr);
    hands::click(*nodes().viewport(), nodes().mapFromScene(item->box().center()));
    ASSERT_TRUE(waitUntil([&] { return document().selection() == QList<MO_Module*>{&node()}; }));
    ASSERT_TRUE(waitUntil([&] {
        const auto* const found = window->findChild<QTableView*>(QStringLiteral("objectList"));
        return found && found->isVisible() && found->model() &&
               found->model()->rowCount() == static_cast<int>(_rows.size());
    })) << "the properties show no object table";
    EXPECT_EQ(inProperties<QLineEdit>("PropertiesName").text(), QStringLiteral("Normal-Map"));
    EXPECT_FALSE(document().commands().canUndo());
}

void WholeApplication::takeTheFirstObjectOut()
{
    selectRow(0);
    chooseInObjects(QStringLiteral("Remove Selected Objects"));
    expectObjectList(written({_rows.begin() + 1, _rows.end()}));
    EXPECT_EQ(document().commands().undoNames().size(), 1);
    EXPECT_TRUE(window->isWindowModified());
}

void WholeApplication::addTheFirstObjectAgain()
{
    chooseInObjects(QStringLiteral("Object 1"));
    expectObjectList(withFirst(5.0));
    EXPECT_EQ(cell(0, 1), QStringLiteral("5"));
    EXPECT_EQ(document().commands().undoNames().size(), 2);
    expectPicture(firstWith(5.0), kFirstLight);
}

void WholeApplication::changeItsBevel()
{
    typeIntoCell(0, 1, QLocale().toString(12.5));
    expectObjectList(withFirst(12.5));
    EXPECT_EQ(document().commands().undoNames().size(), 3);
    expectPicture(firstWith(12.5), kFirstLight);
}

void WholeApplication::dragTheLight()
{
    const Shown before = shown();
    const int renders = window->renderService().renderCount();
    // To the right of the centre by half the shorter side, which is the unit of a light's place.
    const QPointF centre(kNaturalSize.width() / 2.0, kNaturalSize.height() / 2.0);
    const QPointF target = viewer().transform().toView(centre + QPointF(kNaturalSize.width() / 2.0, 0.0));
    const QPointF handle = viewer().handle(window->lights().lights().front());
    hands::drag(viewer(), handle.toPoint(), target.toPoint());
    const QPointF light = window->lights().lights().front().place;
    EXPECT_NEAR(light.x(), 1.0, 0.02);
    EXPECT_NEAR(light.y(), 0.0, 0.02);

    expectPicture(firstWith(12.5), light);
    const Shown after = shown();
    EXPECT_NE(after.lit, before.lit);
    EXPECT_NE(after.display, before.display);
    EXPECT_EQ(after.normals, before.normals);
    EXPECT_EQ(window->renderService().renderCount(), renders) << "light is not rendered";
    EXPECT_EQ(document().commands().undoNames().size(), 4) << "the light belongs to the scene";
}

void WholeApplication::undoEverything()
{
    const auto undo = [this] { hands::press(*window, Qt::Key_Z, Qt::ControlModifier); };
    undo();
    EXPECT_EQ(window->lights().lights().front().place, kFirstLight);
    undo();
    expectObjectList(withFirst(5.0));
    undo();
    expectObjectList(written({_rows.begin() + 1, _rows.end()}));
    undo();
    expectObjectList(_imported);
    EXPECT_FALSE(document().commands().canUndo());
    EXPECT_FALSE(window->isWindowModified());
    ASSERT_TRUE(waitUntil([&] { return table().model()->rowCount() == static_cast<int>(_rows.size()); }));
    EXPECT_EQ(cell(0, 1).toDouble(), _rows.front().bevel);
    expectPicture({}, kFirstLight);
    // The picture had neither the focus nor the mouse before.
    hands::click(*window->findChild<QWidget*>(QStringLiteral("lightName")));
    QCursor::setPos(0, 0);
}

void WholeApplication::openInAnotherWindow(const QString& scene)
{
    ASSERT_TRUE(window->close()) << "what is saved is not asked about";
    renew();
    start();
    drop({scene});
    ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text());
    EXPECT_FALSE(window->messages().isError());
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(objectList(), _imported);
    expectPicture({}, kFirstLight);
}

} // namespace

TEST_F(WholeApplication, EditsADrawingTakesEverythingBackAndFindsItAgain)
{
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_NO_FATAL_FAILURE(dropTheDrawing());
    const QString xml = document().scene().toXml();
    const auto saved = filesIn(saveAs(QStringLiteral("imported.scene")));
    ASSERT_TRUE(saved.contains(QStringLiteral("scene.xml")));
    EXPECT_TRUE(saved.at(QStringLiteral("scene.xml")).contains(_imported.c_str()));
    ASSERT_NO_FATAL_FAILURE(selectTheNode());
    const Shown before = shown();

    ASSERT_NO_FATAL_FAILURE(takeTheFirstObjectOut());
    EXPECT_NE(shown().normals, before.normals);
    ASSERT_NO_FATAL_FAILURE(addTheFirstObjectAgain());
    EXPECT_NE(shown().normals, before.normals);
    ASSERT_NO_FATAL_FAILURE(changeItsBevel());
    ASSERT_NO_FATAL_FAILURE(dragTheLight());
    EXPECT_NE(document().scene().toXml(), xml);

    ASSERT_NO_FATAL_FAILURE(undoEverything());
    const Shown undone = shown();
    EXPECT_EQ(undone, before);
    EXPECT_EQ(document().scene().toXml(), xml);
    const QString scene = saveAs(QStringLiteral("undone.scene"));
    EXPECT_THAT(filesThatDiffer(saved, scene), testing::IsEmpty());

    ASSERT_NO_FATAL_FAILURE(openInAnotherWindow(scene));
    EXPECT_EQ(document().scene().toXml(), xml);
    const Shown reopened = shown();
    EXPECT_EQ(reopened.drawing, before.drawing);
    EXPECT_EQ(reopened.elevation, before.elevation);
    EXPECT_EQ(reopened.normals, before.normals);
    EXPECT_EQ(reopened.lit, before.lit);
    EXPECT_THAT(filesThatDiffer(saved, saveAs(QStringLiteral("reopened.scene"))), testing::IsEmpty());
}
