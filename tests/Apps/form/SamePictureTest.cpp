// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Painted one over the other, the objects show the drawing that they were found in.
#include "FormDrawings.h"

#include "form/choice/FewParts.h"

#include <rapidcheck/gtest.h>

#include <QDirIterator>

using namespace form_drawings;

namespace {

// So few pixels are an invisible speck.
constexpr int kOfPixels = 30;

QByteArray randomShape()
{
    static const std::vector<const char*> kColours = {"#ffcc4d", "#dd2e44", "#111111", "#ffffff",
                                                      "#3355cc", "#c99a30", "#77b255", "#222222"};
    const auto number = [](int low, int high) { return *rc::gen::inRange(low, high); };
    const char* const colour = kColours[static_cast<std::size_t>(number(0, static_cast<int>(kColours.size())))];
    switch (number(0, 4)) {
    case 0:
        return circle(number(5, 95), number(5, 95), number(2, 40), colour);
    case 1:
        return rect(number(0, 80), number(0, 80), number(3, 60), number(3, 60), colour);
    case 2:
        return QStringLiteral("<circle cx='%1' cy='%2' r='%3' fill='none' stroke='#111111' stroke-width='3'/>")
            .arg(number(10, 90))
            .arg(number(10, 90))
            .arg(number(5, 40))
            .toUtf8();
    default:
        return line(qPrintable(QStringLiteral("M%1 %2L%3 %4")
                                   .arg(number(0, 99))
                                   .arg(number(0, 99))
                                   .arg(number(0, 99))
                                   .arg(number(0, 99))),
                    colour, number(1, 6));
    }
}

QImage onPaper(const QImage& image)
{
    QImage paper(image.size(), image.format());
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, image);
    return paper;
}

// How many pixels the choice of objects changed. A line drawing whose areas were filled got the paper's paint for that,
// and shows the same picture on white paper.
int pixelsChanged(const DIO_Drawing& drawing, const ChosenObjects& found)
{
    const QImage before = painted(drawing, 200);
    const QImage after = painted(found.drawing, 200);
    const bool filled = found.drawing.palette.size() > drawing.palette.size();
    return filled ? pixelsThatDiffer(onPaper(before), onPaper(after)) : pixelsThatDiffer(before, after);
}

QStringList realDrawings()
{
    QStringList drawings;
    QDirIterator files(QStringLiteral("/usr/share/openclipart/svg"), {QStringLiteral("*.svg")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        drawings.append(files.next());
    drawings.sort();
    return drawings;
}

} // namespace

RC_GTEST_PROP(SamePicture, ofShapesAnywhere, ())
{
    QByteArray content;
    for (int i = *rc::gen::inRange(1, 12); i > 0; --i)
        content += randomShape();
    const DIO_Drawing drawing = read(content);
    const ChosenObjects found = chooseObjects(drawing, ObjectChoice::AUTO);
    RC_ASSERT(found.drawing.layers.size() == found.objects.size());
    const int differing = pixelsChanged(drawing, found);
    RC_LOG() << content.toStdString() << "\n";
    RC_ASSERT(differing <= kOfPixels);
}

TEST(SamePicture, ofMoreShapesThanThereMayBeObjects)
{
    QByteArray content;
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x)
            content +=
                circle(3 * x + 4 + y % 3, 3 * y + 4 + x % 2, 1 + (x * y) % 4, (x + y) % 2 ? "#dd2e44" : "#3355cc");
    const DIO_Drawing drawing = read(content);
    const ChosenObjects found = chooseObjects(drawing, ObjectChoice::AUTO);
    EXPECT_LE(found.objects.size(), kMostParts + 1);
    EXPECT_GE(found.objects.size(), 8U);
    EXPECT_LE(pixelsChanged(drawing, found), kOfPixels);
}

TEST(SamePicture, ofRealDrawings)
{
    const QStringList drawings = realDrawings();
    ASSERT_GE(drawings.size(), 1000) << "the package with the drawings is missing: ./dev test installs it";
    constexpr qsizetype kEach = 67;
    int alike = 0;
    int all = 0;
    std::string changed;
    for (qsizetype i = 0; i < drawings.size(); i += kEach) {
        const UT_Result<DIO_Drawing> drawing = DIO_readSvg(drawings[i]);
        if (!drawing)
            continue;
        const ChosenObjects found = chooseObjects(*drawing, ObjectChoice::AUTO);
        ++all;
        const bool same = pixelsChanged(*drawing, found) <= kOfPixels;
        alike += same ? 1 : 0;
        if (!same)
            changed += drawings[i].toStdString() + '\n';
    }
    // The exceptions have translucent shapes over several objects.
    EXPECT_GE(alike, all * 98 / 100) << alike << " of " << all << "; changed were\n" << changed;
}
