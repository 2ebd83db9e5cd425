// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The choice of a reader, and files that cannot be opened.
#include "QuarvelDrawingIO/DIO_DrawingReader.h"

#include "Drawings.h"
#include "TestFolder.h"

#include <QDir>
#include <QTemporaryDir>

using testing::AllOf;
using testing::HasSubstr;

namespace {

std::string messageFor(const QString& path)
{
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path);
    return drawing ? std::string() : drawing.error().text.toStdString();
}

} // namespace

TEST(DrawingReader, theSuffixDecidesInAnyCase)
{
    const TestFolder folder;
    const QString path = folder.write("Hero.Final.SVG", drawings::document("<rect width='10' height='10'/>"));
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path);
    ASSERT_TRUE(drawing);
    EXPECT_EQ(drawing->name, "Hero.Final");
    EXPECT_EQ(drawing->layers.front().name, "Hero.Final");
}

TEST(DrawingReader, unknownKindsAreToldWhatCanBeRead)
{
    EXPECT_THAT(messageFor("hero.xcf"), AllOf(HasSubstr("hero.xcf"), HasSubstr(".xcf files"), HasSubstr(".svg")));
    EXPECT_THAT(messageFor("hero"), AllOf(HasSubstr("without suffix"), HasSubstr(".svg")));
}

TEST(DrawingReader, aFileThatCannotBeOpenedIsNamedWithTheReason)
{
    const QTemporaryDir folder;
    for (const char* name : {"missing.svg", "missing.png", "missing.psd", "missing.ora", "missing.kra"})
        EXPECT_EQ(messageFor(folder.filePath(name)), folder.filePath(name).toStdString() + ": there is no such file");
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder.svg"));
    EXPECT_THAT(messageFor(folder.filePath("folder.svg")), HasSubstr("it is a folder"));
}
