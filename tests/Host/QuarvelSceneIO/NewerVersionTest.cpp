// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Parts that a newer version of the program wrote are kept, with a warning, in every file of a scene.
#include "Host/QuarvelSceneIO/TestScenes.h"

using namespace test_scenes;

namespace {

struct NewerVersion : testing::Test
{
    NewerVersion() { save(*makeScene(1), place.folder); }

    // Replaces the first occurrence of a text in a file of the scene.
    void edit(const char* file, const QByteArray& before, const QByteArray& after)
    {
        const QString path = place.folder + u'/' + text(file);
        QByteArray bytes = bytesOfFile(path);
        const auto at = bytes.indexOf(before);
        ASSERT_GE(at, 0) << file << ": " << before.constData();
        writeTestFile(path, bytes.replace(at, before.size(), after));
    }

    // Loads and saves the scene; returns the warnings of loading.
    QString warnings()
    {
        const auto loaded = SIO_loadScene(place.folder);
        EXPECT_TRUE(loaded) << qPrintable(loaded.error().text);
        if (!loaded)
            return {};
        save(*loaded->scene, place.folder);
        return loaded->warnings.join(u'\n');
    }

    void expectKept(const char* file, const char* what)
    {
        EXPECT_TRUE(bytesOfFile(place.folder + u'/' + text(file)).contains(what)) << file << ": " << what;
    }

    ScenePlace place;
};

constexpr auto kDrawing = "elements/Only%201/1.kvr";
constexpr auto kPalette = "palettes/00000000000000a1.xml";

TEST_F(NewerVersion, OfAPaletteIsKept)
{
    edit(kPalette, "version=\"1\"", "version=\"1\" mood=\"dark\"");
    edit(kPalette, "<colour alpha", "<colour shine=\"3\" alpha");
    edit(kPalette, "kind=\"pattern\"", "kind=\"glitter\" type=\"soft\"");
    edit(kPalette, "</palette>", "<swatch at=\"1\">words</swatch></palette>");
    const QString warned = warnings();
    for (const char* what : {"mood", "shine", "glitter", "swatch"})
        EXPECT_TRUE(warned.contains(text(what))) << what;
    EXPECT_TRUE(warned.contains(text("00000000000000a1.xml, line 2: ")));
    for (const char* what :
         {"mood=\"dark\"", "shine=\"3\"", "kind=\"glitter\"", "type=\"soft\"", "<swatch at=\"1\">words</swatch>"})
        expectKept(kPalette, what);
}

TEST_F(NewerVersion, OfADrawingIsKept)
{
    edit(kDrawing, "version=\"1\"", "version=\"1\" ink=\"wet\"");
    edit(kDrawing, "<art name=\"colour\"", "<art grain=\"2\" name=\"colour\"");
    edit(kDrawing, "<shape ", "<shape blend=\"add\" ");
    edit(kDrawing, "<path ", "<path smooth=\"yes\" ");
    edit(kDrawing, "<clip ", "<clip soft=\"4\" ");
    edit(kDrawing, "<picture ", "<picture depth=\"5\" ");
    edit(kDrawing, "</shape>", "<shadow/></shape>");
    edit(kDrawing, "</kvr>", "<art name=\"glow\"><blob/></art></kvr>");
    const QString warned = warnings();
    for (const char* what : {"ink", "grain", "blend", "smooth", "soft", "depth", "shadow", "art"})
        EXPECT_TRUE(warned.contains(text(what))) << what;
    for (const char* what : {"ink=\"wet\"", "grain=\"2\"", "blend=\"add\"", "smooth=\"yes\"", "soft=\"4\"",
                             "depth=\"5\"", "<shadow/>", "<art name=\"glow\">", "<blob/>"})
        expectKept(kDrawing, what);
}

TEST_F(NewerVersion, OfTheMainFileIsKept)
{
    edit("scene.xml", "<quarvelScene version=\"1\"", "<quarvelScene version=\"9\" studio=\"x\"");
    edit("scene.xml", "<palettes>", "<palettes sorted=\"no\">");
    edit("scene.xml", "<palette id", "<palette locked=\"1\" id");
    edit("scene.xml", "<elements>", "<elements tidy=\"2\"><shelf/>");
    edit("scene.xml", "<element folder", "<element owner=\"me\" folder");
    edit("scene.xml", "<drawing file", "<drawing stamp=\"3\" file");
    edit("scene.xml", "</quarvelScene>", "<audio val=\"a.wav\"/></quarvelScene>");
    edit("scene.xml", "<link ", "<link style=\"curved\" ");
    const QString warned = warnings();
    for (const char* what :
         {"newer version", "studio", "sorted", "locked", "shelf", "owner", "stamp", "audio", "style"})
        EXPECT_TRUE(warned.contains(text(what))) << what;
    for (const char* what : {"studio=\"x\"", "sorted=\"no\"", "locked=\"1\"", "tidy=\"2\"", "<shelf/>", "owner=\"me\"",
                             "stamp=\"3\"", "<audio val=\"a.wav\"/>", "style=\"curved\""})
        expectKept("scene.xml", what);
}

TEST_F(NewerVersion, OfASourceAndItsFilesIsKept)
{
    const auto scene = makeScene(1);
    auto& element = dynamic_cast<MO_ElementModule&>(*scene->findModule(text("Only 1")));
    const QString drawing = QFileInfo(place.folder).absolutePath() + text("/hero.svg");
    element.setOrigin({{drawing}, text("Hero"), {}, text("abc")});
    save(*scene, place.folder);
    edit("scene.xml", "<source digest", "<source reader=\"2\" digest");
    edit("scene.xml", "<file path=\"../hero.svg\"/>",
         "<file page=\"3\" path=\"../hero.svg\"><range to=\"4\"/></file><folder path=\"..\"/>");
    const QString warned = warnings();
    for (const char* what : {"reader", "page", "range", "folder"})
        EXPECT_TRUE(warned.contains(text(what))) << what;
    for (const char* what : {"reader=\"2\"", "page=\"3\"", "<range to=\"4\"/>", "<folder path=\"..\"/>"})
        expectKept("scene.xml", what);
}

TEST_F(NewerVersion, DrawingsOfModulesOfUnknownKindsAreKept)
{
    const QString mainFile = place.folder + text("/scene.xml");
    writeTestFile(mainFile, bytesOfFile(mainFile).replace("type=\"READ\"", "type=\"READ_3D\""));
    writeTestFile(place.folder + u'/' + text(kDrawing), "<kvr3d anything=\"1\"/>");
    const Files before = filesIn(place.folder);
    EXPECT_TRUE(warnings().contains(text("READ_3D")));
    // The unknown parts of the attributes have another order; all other files are unchanged.
    Files after = filesIn(place.folder);
    EXPECT_EQ(after.keys(), before.keys());
    for (auto file = before.cbegin(); file != before.cend(); ++file)
        EXPECT_TRUE(file.key() == text("scene.xml") || after.value(file.key()) == file.value())
            << qPrintable(file.key());
    warnings();
    EXPECT_EQ(difference(filesIn(place.folder), after), "");
}

} // namespace
