// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pages of --html as files: when they are written, under which names, and what is said where they cannot be. What they
// show is tested in a browser.
#include "ProgramFixture.h"

#include <QImage>
#include <QPainter>
#include <QRegularExpression>

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class Page : public Program
{
protected:
    void SetUp() override
    {
        write("disc.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="40" height="30">
            <circle cx="20" cy="15" r="12" fill="#c83"/></svg>)");
        write("tree.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="20">
            <rect x="4" y="4" width="9" height="12" fill="#383"/></svg>)");
    }

    // Two sprites of 16 x 16.
    void saveSheet() const
    {
        QImage sheet(32, 16, QImage::Format_ARGB32);
        sheet.fill(0);
        QPainter painter(&sheet);
        painter.fillRect(3, 2, 9, 12, Qt::red);
        painter.fillRect(21, 5, 8, 8, Qt::blue);
        painter.end();
        ASSERT_TRUE(sheet.save(path("sheet.png")));
    }

    static QImage asStored(const QImage& image) { return image.convertToFormat(QImage::Format_RGBA64); }
    QImage image(const char* name) const { return asStored(QImage(path(name))); }

    // All pictures that a page holds.
    std::vector<QImage> picturesOf(const char* page) const
    {
        static const QRegularExpression png(QStringLiteral("iVBORw0KGgo[A-Za-z0-9+/=]+"));
        std::vector<QImage> pictures;
        for (auto it = png.globalMatch(QString::fromUtf8(bytes(page))); it.hasNext();)
            pictures.push_back(asStored(QImage::fromData(QByteArray::fromBase64(it.next().captured().toLatin1()))));
        return pictures;
    }
};

} // namespace

TEST_F(Page, StandsBesideTheMapThatIsWrittenAnyway)
{
    ASSERT_EQ(quarvel("normalmap disc.svg --html pages/disc.html").exitCode, 0);
    EXPECT_TRUE(exists("disc_n.png"));
    EXPECT_TRUE(exists("pages/disc.html"));
}

TEST_F(Page, OfSeveralDrawingsGoIntoAFolder)
{
    ASSERT_EQ(quarvel("normalmap disc.svg tree.svg -o maps --html pages").exitCode, 0);
    EXPECT_TRUE(exists("pages/disc.html"));
    EXPECT_TRUE(exists("pages/tree.html"));
}

TEST_F(Page, ThatWouldBeWrittenTwiceIsRefused)
{
    const Outcome outcome = quarvel("normalmap disc.svg tree.svg -o maps --html one.html");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.messages, HasSubstr("one.html names one page, and there are several drawings"));
    EXPECT_FALSE(exists("maps"));
}

TEST_F(Page, HasANameThatBrowsersTakeForOne)
{
    for (const char* words : {"normalmap disc.svg --html disc.png", "normalmap disc.svg --html page"}) {
        const Outcome outcome = quarvel(words);
        EXPECT_EQ(outcome.exitCode, 2) << words;
        EXPECT_THAT(outcome.messages, HasSubstr("its name must end in .html")) << words;
    }
    EXPECT_FALSE(exists("disc_n.png"));
}

TEST_F(Page, IsNotWrittenOfWhatHasNoNormals)
{
    const Outcome flat = quarvel("normalmap disc.svg --html a.html --no-normals");
    EXPECT_EQ(flat.exitCode, 2);
    EXPECT_THAT(flat.messages, HasSubstr("leave out --no-normals"));
    ASSERT_EQ(quarvel("import disc.svg -o disc.scene").exitCode, 0);
    const Outcome colours = quarvel("render disc.scene --html a.html --as colours");
    EXPECT_EQ(colours.exitCode, 2);
    EXPECT_THAT(colours.messages, HasSubstr("--html lights normals"));
    EXPECT_FALSE(exists("a.html"));
}

TEST_F(Page, OfASheetShowsTheSpritesWhereTheyLie)
{
    saveSheet();
    const Outcome outcome = quarvel("normalmap sheet.png --cells 16x16 --html sheet.html");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    const std::vector<QImage> pictures = picturesOf("sheet.html");
    EXPECT_THAT(pictures, testing::Contains(image("sheet_n.png")));
    EXPECT_THAT(pictures, testing::Each(testing::Property(&QImage::size, QSize(32, 16))));
}

TEST_F(Page, OfAnAnimationPlaysItsCells)
{
    saveSheet();
    const Outcome outcome = quarvel("normalmap sheet.png --cells 16x16 --animation --html sheet.html");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    const std::vector<QImage> pictures = picturesOf("sheet.html");
    const QImage map = image("sheet_n.png");
    EXPECT_THAT(pictures, testing::Contains(map.copy(0, 0, 16, 16)));
    EXPECT_THAT(pictures, testing::Contains(map.copy(16, 0, 16, 16)));
    EXPECT_THAT(pictures, testing::Each(testing::Property(&QImage::size, QSize(16, 16))));
}

TEST_F(Page, OfASceneIsAFileOfItsOwn)
{
    ASSERT_EQ(quarvel("import disc.svg -o disc.scene").exitCode, 0);
    const Outcome outcome = quarvel("render disc.scene --html pages/disc.html --resolution 80");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_THAT(outcome.output, HasSubstr("disc.scene -> pages/disc.html"));
    EXPECT_TRUE(exists("pages/disc.html"));
}

TEST_F(Page, ThatCannotBeWrittenLeavesTheOldOne)
{
    write("disc.html", "old");
    ASSERT_EQ(quarvel("normalmap disc.svg --object 9:cutout --html disc.html").exitCode, 1);
    EXPECT_EQ(bytes("disc.html"), "old");
    EXPECT_EQ(files(), (QStringList{"disc.html", "disc.svg", "tree.svg"}));
}
