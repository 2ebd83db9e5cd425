// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is shown can be told from its ground in both themes: texts with a contrast of 4.5, parts of the window with one
// of 3. The contrast is that of the Web Content Accessibility Guidelines 2.1.
#include "Apps/studio/docks/DocksTesting.h"

#include "studio/docks/graph/NodeColors.h"
#include "studio/docks/scene/ColourSwatch.h"
#include "studio/docks/scene/DrawingThumbnail.h"
#include "studio/objects/ObjectHandles.h"
#include "studio/window/Appearance.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionViewItem>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kText = 4.5;
constexpr double kPart = 3.0;

double luminance(const QColor& colour)
{
    const auto linear = [](float channel) {
        return channel <= 0.03928F ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

class ContrastTest : public testing::TestWithParam<Appearance>
{
protected:
    ContrastTest() { applyAppearance(GetParam()); }
    ~ContrastTest() override { QApplication::setPalette(_before); }

    static QColor colour(QPalette::ColorRole role) { return QApplication::palette().color(QPalette::Active, role); }

    // The greatest contrast with the ground that any pixel of a line across the picture's middle has.
    static double greatestContrast(const QImage& picture, const QColor& ground)
    {
        double greatest = 1.0;
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, picture.height() / 2);
            greatest = std::max(greatest, contrast(blended(ground, pixel, pixel.alphaF()), ground));
        }
        return greatest;
    }

    // What a widget looks like in a window.
    static QImage shown(QWidget& widget)
    {
        widget.resize(120, widget.sizeHint().height());
        QImage picture(widget.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(colour(QPalette::Window));
        widget.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
        return picture;
    }

private:
    QPalette _before = QApplication::palette();
};

TEST_P(ContrastTest, TextsAreReadOnEveryGround)
{
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> texts[] = {
        {QPalette::WindowText, QPalette::Window},    {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},   {QPalette::ButtonText, QPalette::Button},
        {QPalette::PlaceholderText, QPalette::Base}, {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::Link, QPalette::Window},          {QPalette::ToolTipText, QPalette::ToolTipBase},
    };
    for (const auto& [text, ground] : texts)
        EXPECT_GE(contrast(colour(text), colour(ground)), kText) << text << " on " << ground;
    EXPECT_GE(contrast(quietText(QApplication::palette()), colour(QPalette::Base)), kText);
}

TEST_P(ContrastTest, WhatIsMarkedIsSeen)
{
    for (const auto ground : {QPalette::Base, QPalette::AlternateBase, QPalette::Window})
        EXPECT_GE(contrast(colour(QPalette::Highlight), colour(ground)), kPart) << ground;
    for (const char* const kind : {"READ", "DISPLAY", "COMPOSITE", "GLUE", "GROUP", "Vallorin"})
        EXPECT_GE(contrast(kindColor(QLatin1String(kind), QApplication::palette()), colour(QPalette::Base)), kPart)
            << kind;
}

// A disc of a colour on nothing.
QImage discPicture(const QColor& colour)
{
    QImage picture(100, 100, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(20, 20, 60, 60));
    return picture;
}

TEST_P(ContrastTest, SwatchesAndThumbnailsOfAnyColourEndSomewhere)
{
    const QColor base = colour(QPalette::Base);
    for (const QColor& own : {QColor(Qt::black), QColor(Qt::white), base}) {
        const QImage swatch = colourSwatch(own, QApplication::palette(), 1.0).pixmap(kColourSwatch).toImage();
        EXPECT_GE(greatestContrast(swatch, base), kPart) << qPrintable(own.name());

        auto palette = UT_makeShared<CM_Palette>(UT_String("one"));
        const CM_ColorId_t id(1);
        auto colour = UT_makeShared<CM_Color>(UT_String(), 0, id);
        colour->SetNominalColor({static_cast<unsigned char>(own.red()), static_cast<unsigned char>(own.green()),
                                 static_cast<unsigned char>(own.blue()), 255});
        palette->addColor(colour);
        CELVEC_Kvd drawing(palette);
        QPainterPath disc;
        disc.addEllipse(QPointF(), 50, 50);
        drawing.addShape(GR_Art::COLOUR, {disc, id, 1.0, {}});
        CELVEC_Kvd bitmap(palette);
        CELVEC_Shape picture{disc, id, 1.0, {}};
        picture.picture = discPicture(own);
        bitmap.addShape(GR_Art::COLOUR, picture);
        for (const double ratio : {1.0, 2.0})
            for (const CELVEC_Kvd* const shown : {&drawing, &bitmap})
                EXPECT_GE(greatestContrast(drawingThumbnail(*shown, 24, ratio).toImage(), base), kPart)
                    << qPrintable(own.name()) << " at " << ratio << (shown == &bitmap ? ", a bitmap" : "");
    }
}

TEST_P(ContrastTest, SwatchesKeepTheirColoursInSelectedRows)
{
    const QColor yellow(0xff, 0xd9, 0x83);
    const QIcon swatch = colourSwatch(yellow, QApplication::palette(), 1.0);
    const QImage selected = swatch.pixmap(QSize(kColourSwatch, kColourSwatch), 1.0, QIcon::Selected).toImage();
    EXPECT_EQ(selected.pixelColor(kColourSwatch / 2, kColourSwatch / 2), yellow);
}

TEST_P(ContrastTest, EmptyBoxesToTickAreSeenOnEveryGround)
{
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase})
        for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorItemViewItemCheck}) {
            QImage picture(16, 16, QImage::Format_ARGB32_Premultiplied);
            picture.fill(colour(role));
            QPainter painter(&picture);
            QStyleOptionViewItem box;
            box.rect = picture.rect();
            box.palette = QApplication::palette();
            box.state = QStyle::State_Enabled | QStyle::State_Off;
            box.checkState = Qt::Unchecked;
            QApplication::style()->drawPrimitive(element, &box, &painter);
            painter.end();
            EXPECT_GE(greatestContrast(picture, colour(role)), kPart) << role;
        }
}

TEST_P(ContrastTest, FieldsHaveOutlines)
{
    QLineEdit line;
    QSpinBox number;
    QDoubleSpinBox fraction;
    QComboBox choice;
    for (QWidget* const field : std::initializer_list<QWidget*>{&line, &number, &fraction, &choice}) {
        const QImage border = shown(*field).copy(0, 0, 3, field->height());
        EXPECT_GE(greatestContrast(border, colour(QPalette::Window)), kPart) << field->metaObject()->className();
    }
}

TEST_P(ContrastTest, HandlesOfSlidersAreSeen)
{
    QSlider slider(Qt::Horizontal);
    slider.setRange(0, 100);
    slider.setValue(50);
    // A column through the handle.
    const QImage column = shown(slider).copy(60, 0, 1, slider.height()).transformed(QTransform().rotate(90));
    EXPECT_GE(greatestContrast(column, colour(QPalette::Window)), kPart);
}

TEST_P(ContrastTest, TicksAndCursorOfTheTimelineAreSeenAlsoOnTheFramesThatArePlayed)
{
    StudioDocument document;
    document.replaceScene(docks::smallScene(), QString(), false);
    document.setCurrentFrame(9);
    TimelineCanvas canvas(document);
    canvas.resize(700, 160);
    canvas.showLoop(std::pair(5, 16));
    const QImage picture = canvas.viewport()->grab().toImage();
    const auto placeOf = [&](double frame) { return canvas.cellCenter(-1, frame).x(); };
    const auto ground = [&](int frame, int y) { return picture.pixelColor(placeOf(frame), y); };
    constexpr int kTick = TimelineCanvas::kRulerHeight - 3;
    for (const int frame : {2, 7, 12, 20}) {
        const int border = (placeOf(frame - 1) + placeOf(frame)) / 2;
        EXPECT_GE(greatestContrast(picture.copy(border - 2, kTick, 5, 1), ground(frame, kTick)), kPart) << frame;
    }
    constexpr int kHead = TimelineCanvas::kRulerHeight - 9;
    EXPECT_GE(contrast(ground(9, kHead), ground(12, kHead)), kPart);
}

TEST_P(ContrastTest, HandlesOfObjectsAreSeenOnAnyPicture)
{
    const QRectF view(0, 0, 200, 200);
    const ObjectHandles handles(QRectF(60, 60, 80, 80), view);
    for (const QColor& ground : {QColor(Qt::black), QColor(Qt::white), QColor(118, 118, 118)})
        for (const ObjectHandle handle : kObjectHandles) {
            QImage picture(200, 200, QImage::Format_ARGB32_Premultiplied);
            picture.fill(ground);
            QPainter painter(&picture);
            handles.paint(painter, QApplication::palette(), std::nullopt);
            painter.end();
            const QRect around(handles.place(handle).toPoint() - QPoint(12, 0), QSize(25, 1));
            EXPECT_GE(greatestContrast(picture.copy(around), ground), kPart) << qPrintable(ground.name());
        }
}

INSTANTIATE_TEST_SUITE_P(BothThemes, ContrastTest, testing::Values(Appearance::LIGHT, Appearance::DARK),
                         [](const auto& theme) {
                             return std::string(theme.param == Appearance::DARK ? "Dark" : "Light");
                         });

} // namespace
