// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The objects that are found in a bitmap.
#include "Bitmaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace {

const QColor kSkin(240, 190, 150);
const QColor kShirt(40, 110, 180);
const QColor kInk(30, 26, 28);

// A head in front of a body.
void paintFigure(QPainter& painter)
{
    painter.setBrush(kShirt);
    painter.drawRoundedRect(30, 60, 60, 60, 20, 20);
    painter.setBrush(kSkin);
    painter.drawEllipse(QPointF(60, 45), 28, 28);
}

struct Disc
{
    QPoint centre;
    int radius;
    QRgb colour;

    friend std::ostream& operator<<(std::ostream& stream, const Disc& disc)
    {
        return stream << disc.centre.x() << ' ' << disc.centre.y() << ' ' << disc.radius << ' ' << std::hex
                      << disc.colour << std::dec;
    }
};

void paintDiscs(QPainter& painter, const std::vector<Disc>& discs)
{
    for (const Disc& disc : discs) {
        painter.setBrush(QColor::fromRgb(disc.colour));
        painter.drawEllipse(disc.centre, disc.radius, disc.radius);
    }
}

std::vector<Disc> anyDiscs()
{
    const auto disc = rc::gen::construct<Disc>(
        rc::gen::construct<QPoint>(rc::gen::inRange(20, 76), rc::gen::inRange(20, 76)), rc::gen::inRange(3, 20),
        rc::gen::element(0xffd03030U, 0xff30a040U, 0xff3050d0U, 0xffe8d040U, 0xff202020U, 0xfff4f4f4U));
    return *rc::gen::container<std::vector<Disc>>(disc);
}

QImage pictureOf(const std::vector<Disc>& discs)
{
    return painted({96, 96}, [&](QPainter& painter) { paintDiscs(painter, discs); });
}

std::vector<QImage> layersOf(const ChosenObjects& chosen)
{
    std::vector<QImage> layers;
    for (std::size_t i = 0; i < chosen.objects.size(); ++i)
        layers.push_back(layerOf(chosen, i));
    return layers;
}

bool hasRole(const ChosenObjects& chosen, ObjectRole role)
{
    return std::ranges::any_of(chosen.objects, [role](const ChosenObject& object) { return object.role == role; });
}

} // namespace

TEST(BitmapObjects, anOnlyObjectKeepsTheLayersName)
{
    const ChosenObjects chosen = objectsOf(pictureOf({{{48, 48}, 30, 0xffd03030U}}));
    ASSERT_EQ(chosen.objects.size(), 1U);
    EXPECT_EQ(chosen.objects[0].name, QStringLiteral("sprite"));
    EXPECT_EQ(chosen.drawing.layers[0].shapes.front().path.boundingRect(), QRectF(18, 18, 60, 60))
        << "the empty pixels around it are left out";
    EXPECT_EQ(chosen.objects[0].role, ObjectRole::BODY);
    // A disc of 30 in 96 x 96 pixels.
    EXPECT_NEAR(chosen.objects[0].share, 0.307, 0.02);
}

// The square of 96 is one drawn pixel; the ones around it are cut by the border to a quarter of their width.
TEST(BitmapObjects, sharesCountPixelsWhereTheBorderCutsDrawnOnes)
{
    const QImage square = painted({144, 144}, [](QPainter& painter) { painter.fillRect(24, 24, 96, 96, Qt::red); });
    EXPECT_DOUBLE_EQ(objectsOf(square).objects.front().share, 96.0 * 96.0 / (144.0 * 144.0));
}

TEST(BitmapObjects, nothingCoveredIsOneObject)
{
    const ChosenObjects chosen = objectsOf(pictureOf({}));
    EXPECT_EQ(chosen.objects.size(), 1U);
    EXPECT_EQ(chosen.drawing.layers.size(), 1U);
}

TEST(BitmapObjects, theCompleteOneLiesOnTopAndTheOtherGoesOnBeneathIt)
{
    const ChosenObjects chosen = objectsOf(painted({120, 130}, paintFigure));
    ASSERT_EQ(chosen.objects.size(), 2U);
    EXPECT_EQ(chosen.objects[0].name, QStringLiteral("blue"));
    EXPECT_EQ(objectAt(chosen, 60, 68), 1) << "the chin, over the body";
    EXPECT_EQ(layerOf(chosen, 0).pixelColor(60, 68), kShirt) << "the body beneath the chin";
    ASSERT_EQ(chosen.objects[0].measured.size(), 1U) << "measured on its visible part";
    EXPECT_TRUE(chosen.objects[1].measured.empty());
}

TEST(BitmapObjects, outlinesGoToWhatTheyLieOn)
{
    const QImage image = painted({120, 130}, [](QPainter& painter) {
        painter.setPen(QPen(kInk, 3));
        paintFigure(painter);
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 2U);
    EXPECT_EQ(objectAt(chosen, 60, 17), 1) << "the head's outline above";
    EXPECT_EQ(objectAt(chosen, 60, 119), 0) << "the body's outline below";
}

TEST(BitmapObjects, shadesOfOneColourAreOneBody)
{
    const QImage image = painted({100, 100}, [](QPainter& painter) {
        painter.setBrush(QColor(200, 40, 40));
        painter.drawEllipse(QPointF(50, 50), 40, 40);
        QPainterPath shade;
        shade.addEllipse(QPointF(50, 50), 40, 40);
        QPainterPath light;
        light.addEllipse(QPointF(38, 40), 40, 40);
        painter.setBrush(QColor(150, 26, 30));
        painter.drawPath(shade.subtracted(light));
        painter.setBrush(QColor(250, 220, 220));
        painter.drawEllipse(QPointF(36, 34), 6, 4);
    });
    EXPECT_EQ(objectsOf(image).objects.size(), 1U);
}

TEST(BitmapObjects, anEyeIsOneObjectWithItsPupil)
{
    const QImage image = pictureOf({{{48, 48}, 40, 0xffe8c040U},
                                    {{36, 40}, 9, 0xffffffffU},
                                    {{60, 40}, 9, 0xffffffffU},
                                    {{36, 41}, 5, 0xff202020U},
                                    {{60, 41}, 5, 0xff202020U}});
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 3U);
    EXPECT_EQ(objectAt(chosen, 36, 41), objectAt(chosen, 36, 33));
    EXPECT_NE(objectAt(chosen, 36, 41), objectAt(chosen, 60, 41));
    EXPECT_TRUE(chosen.objects[0].measured.empty()) << "eyes are no holes in a head";
}

TEST(BitmapObjects, siblingsOfOneColourAreDecidedTogether)
{
    // Alone, the narrow bar would be a mark on the plate.
    const QImage image = painted({160, 120}, [](QPainter& painter) {
        painter.setBrush(QColor(60, 136, 195));
        painter.drawRoundedRect(4, 4, 152, 112, 16, 16);
        painter.setBrush(QColor(255, 255, 255));
        painter.drawPolygon(QPolygonF({{24, 20}, {24, 100}, {104, 60}}));
        painter.drawRect(116, 20, 10, 80);
    });
    const ChosenObjects chosen = objectsOf(image);
    EXPECT_EQ(chosen.objects.size(), 3U);
}

TEST(BitmapObjects, aDarkShapeThatHoldsOthersIsAnOpening)
{
    const QImage image = painted({120, 120}, [](QPainter& painter) {
        painter.setBrush(QColor(240, 200, 60));
        painter.drawEllipse(QPointF(60, 60), 52, 52);
        QPainterPath mouth;
        mouth.addEllipse(QPointF(60, 76), 24, 20);
        painter.setBrush(QColor(70, 20, 24));
        painter.drawPath(mouth);
        QPainterPath tongue;
        tongue.addEllipse(QPointF(60, 94), 20, 14);
        painter.setBrush(QColor(230, 80, 110));
        painter.drawPath(tongue.intersected(mouth));
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 3U);
    EXPECT_EQ(chosen.objects[static_cast<std::size_t>(objectAt(chosen, 60, 66))].role, ObjectRole::OPENING);
    EXPECT_EQ(chosen.objects[static_cast<std::size_t>(objectAt(chosen, 60, 90))].role, ObjectRole::BODY);
}

TEST(BitmapObjects, aPictureThatIsOpaqueToItsBordersHasAFlatBackdrop)
{
    QImage image(120, 130, QImage::Format_ARGB32);
    image.fill(QColor(180, 220, 240));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintFigure(painter);
    painter.end();
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 3U);
    EXPECT_EQ(chosen.objects[0].role, ObjectRole::FLAT);
    EXPECT_EQ(objectAt(chosen, 2, 2), 0);
    EXPECT_FALSE(hasRole(objectsOf(painted({120, 130}, paintFigure)), ObjectRole::FLAT));
}

TEST(BitmapObjects, paintedPicturesAreOneObjectForEachConnectedPart)
{
    std::mt19937 random(7);
    QImage image(90, 60, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 5; y < 55; ++y)
        for (int x = 5; x < 85; ++x)
            if (x < 40 || x > 50)
                image.setPixel(x, y, qRgb(int(random() % 256), int(random() % 256), int(random() % 256)));
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 2U);
    EXPECT_NE(objectAt(chosen, 10, 30), objectAt(chosen, 80, 30));
}

TEST(BitmapObjects, anArmThinnerThanAnOutlineIsAnObjectWhereItLeadsAway)
{
    const QImage image = painted({200, 120}, [](QPainter& painter) {
        painter.setBrush(QColor(230, 230, 240));
        painter.drawEllipse(QPointF(60, 60), 50, 50);
        painter.setPen(QPen(QColor(90, 60, 30), 4));
        painter.drawLine(100, 60, 195, 30);
    });
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 2U);
    EXPECT_NE(objectAt(chosen, 180, 35), objectAt(chosen, 60, 60));
}

TEST(BitmapObjects, namesAreUnique)
{
    const QImage image =
        pictureOf({{{20, 20}, 12, 0xffd03030U}, {{70, 20}, 12, 0xffd03030U}, {{70, 70}, 12, 0xffd03030U}});
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 3U);
    std::set<QString> names;
    for (const ChosenObject& object : chosen.objects)
        names.insert(object.name);
    EXPECT_EQ(names.size(), 3U);
}

// A mango of two colours. In each opaque pixel as many levels are added as a function says.
template<typename Levels>
QImage mango(Levels levels)
{
    QImage image = painted({120, 130}, [](QPainter& painter) {
        painter.setBrush(QColor(90, 140, 60));
        painter.drawEllipse(15, 15, 90, 100);
        painter.setBrush(QColor(190, 70, 40));
        painter.drawEllipse(25, 25, 40, 60);
    });
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const QColor colour = image.pixelColor(x, y); colour.alpha() == 255) {
                const int more = levels(x, y);
                image.setPixelColor(x, y, QColor(colour.red() + more, colour.green() + more, colour.blue() + more));
            }
    return image;
}

TEST(BitmapObjects, ADrawingWithTheNoiseOfAScanKeepsItsParts)
{
    std::mt19937 random(5);
    EXPECT_EQ(objectsOf(mango([](int, int) { return 0; })).objects.size(), 2U);
    EXPECT_EQ(objectsOf(mango([&](int, int) { return static_cast<int>(random() % 11); })).objects.size(), 2U);
}

TEST(BitmapObjects, APhotographOfOneBodyIsOneObject)
{
    // Uneven from pixel to pixel, and from square to square.
    std::mt19937 random(5);
    std::array<int, 33 * 33> squares{};
    std::ranges::generate(squares, [&] { return static_cast<int>(random() % 21); });
    const auto skin = [&](int x, int y) {
        return squares[static_cast<std::size_t>(y / 4 * 33 + x / 4)] + static_cast<int>(random() % 9);
    };
    EXPECT_EQ(objectsOf(mango(skin)).objects.size(), 1U);
}

RC_GTEST_PROP(BitmapObjectsOfAnything, PaintedAgainAreTheBitmap, ())
{
    const QImage image = pictureOf(anyDiscs());
    RC_ASSERT(paintedAgain(objectsOf(image).drawing) == paintedAgain(bitmapDrawing(image)));
}

RC_GTEST_PROP(BitmapObjectsOfAnything, DeepBitmapsToo, ())
{
    const QImage image = pictureOf(anyDiscs()).convertToFormat(QImage::Format_RGBA64);
    RC_ASSERT(paintedAgain(objectsOf(image).drawing) == paintedAgain(bitmapDrawing(image)));
}

RC_GTEST_PROP(BitmapObjectsOfAnything, MoveWithTheBitmap, ())
{
    const QImage image = pictureOf(anyDiscs());
    const int dx = *rc::gen::inRange(0, 17);
    const int dy = *rc::gen::inRange(0, 17);
    const ChosenObjects still = objectsOf(image.copy(0, 0, 112, 112));
    const ChosenObjects moved = objectsOf(image.copy(-dx, -dy, 112, 112));
    RC_ASSERT(moved.objects.size() == still.objects.size());
    for (std::size_t i = 0; i < still.objects.size(); ++i)
        RC_ASSERT(layerOf(moved, i).copy(dx, dy, 96, 96) == layerOf(still, i).copy(0, 0, 96, 96));
}

RC_GTEST_PROP(BitmapObjectsOfAnything, AreMirroredWithTheBitmap, ())
{
    // The discs have different colours: pixels at the same distance from two discs of one colour may go to either.
    std::vector<Disc> discs = anyDiscs();
    discs.resize(std::min<std::size_t>(discs.size(), 12));
    for (std::size_t i = 0; i < discs.size(); ++i)
        discs[i].colour = QColor::fromHsv(int(30 * i), 200, i % 2 == 0 ? 220 : 90).rgb();
    const QImage image = pictureOf(discs);
    const std::vector<QImage> plain = layersOf(objectsOf(image));
    std::vector<QImage> mirrored = layersOf(objectsOf(image.mirrored(true, false)));
    RC_ASSERT(mirrored.size() == plain.size());
    // The order of objects may differ where nothing determines it.
    for (QImage& layer : mirrored)
        RC_ASSERT(std::ranges::find(plain, layer.mirrored(true, false)) != plain.end());
}

RC_GTEST_PROP(BitmapObjectsOfAnything, AreEnlargedWithTheBitmap, ())
{
    const QImage image = pictureOf(anyDiscs());
    const int factor = *rc::gen::inRange(2, 5);
    const ChosenObjects plain = objectsOf(image);
    const ChosenObjects large = objectsOf(image.scaled(image.size() * factor));
    RC_ASSERT(large.objects.size() == plain.objects.size());
    for (std::size_t i = 0; i < plain.objects.size(); ++i)
        RC_ASSERT(layerOf(large, i) == layerOf(plain, i).scaled(image.size() * factor));
}
