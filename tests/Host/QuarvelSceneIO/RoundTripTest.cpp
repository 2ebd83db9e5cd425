// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A saved scene can be loaded, and saving it again does not change a byte: for random scenes of modules of all kinds,
// with malicious names.
#include "Host/QuarvelSceneIO/TestScenes.h"

#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"

#include <rapidcheck/gtest.h>

using namespace test_scenes;

namespace {

TEST(SceneRoundTrip, LoadsWhatWasSaved)
{
    const ScenePlace place;
    const auto scene = makeScene(1);
    save(*scene, place.folder);
    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded) << qPrintable(loaded.error().text);
    EXPECT_EQ(loaded->warnings, QStringList());
    EXPECT_EQ(loaded->scene->toXml(), scene->toXml());

    ASSERT_EQ(loaded->scene->palettes().size(), 1U);
    const CM_Palette& palette = *loaded->scene->palettes().front();
    EXPECT_EQ(palette.GetId(), UT_Id(0xa1));
    EXPECT_EQ(palette.GetName(), UT_String("Palette 1"));
    ASSERT_EQ(palette.colors().size(), 3U);
    EXPECT_EQ(palette.colors()[0]->GetColorName(), UT_String("skin"));
    EXPECT_EQ(palette.colors()[0]->GetNominalColor(), (CM_Rgba{10, 20, 30, 40}));
    EXPECT_EQ(palette.colors()[1].dynamicCast<CM_Color>()->GetColorType(), CM_Color::GUIDE_COLOR);
    EXPECT_EQ(palette.colors()[2].dynamicCast<CM_TextureColor>()->GetTextureKind(), CM_TextureColor::PATTERN_TEXTURE);

    const auto* hero = dynamic_cast<MO_ElementModule*>(loaded->scene->findModule(text("Hero \"1\" <\xc3\xa9>")));
    ASSERT_NE(hero, nullptr);
    const auto drawing = hero->drawingAt(2.0);
    ASSERT_TRUE(drawing);
    EXPECT_EQ(drawing->palette().get(), &palette);
    ASSERT_EQ(drawing->shapes(GR_Art::COLOUR).size(), 1U);
    const CELVEC_Shape& shape = drawing->shapes(GR_Art::COLOUR)[0];
    EXPECT_EQ(shape.color, UT_Id(0xc1));
    EXPECT_EQ(shape.opacity, 0.3);
    EXPECT_EQ(shape.path.fillRule(), Qt::WindingFill);
    EXPECT_EQ(shape.path.elementCount(), 7);
    EXPECT_TRUE(shape.clip);
    ASSERT_EQ(drawing->shapes(GR_Art::LINE).size(), 2U);
    EXPECT_EQ(drawing->shapes(GR_Art::LINE)[1].picture, testPicture(QImage::Format_ARGB32_Premultiplied));
}

TEST(SceneRoundTrip, AGraphHasAsManyModulesAsCanBeLoaded)
{
    const ScenePlace place;
    MO_Scene scene;
    for (int i = 0; i < XUGroup::kMaxModulesInFile; ++i)
        scene.root().emplace<MO_GlueModule>();
    save(scene, place.folder);
    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded) << qPrintable(loaded.error().text);
    EXPECT_EQ(loaded->scene->root().modules().size(), static_cast<std::size_t>(XUGroup::kMaxModulesInFile));

    scene.root().emplace<MO_GlueModule>();
    const auto files = SIO_sceneFiles(scene, QString());
    ASSERT_FALSE(files);
    EXPECT_EQ(files.error().text, text("the graph would have more than 30000 nodes"));
}

TEST(SceneRoundTrip, GroupsLieInEachOtherAsDeepAsCanBeLoaded)
{
    const ScenePlace place;
    MO_Scene scene;
    XUGroup* deepest = &scene.root();
    for (int i = 0; i < XUGroup::kMaxDepthInFile; ++i)
        deepest = &deepest->emplace<XUGroup>();
    deepest->emplace<MO_GlueModule>();
    save(scene, place.folder);
    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded) << qPrintable(loaded.error().text);
    EXPECT_EQ(loaded->scene->toXml(), scene.toXml());

    deepest->emplace<XUGroup>();
    EXPECT_FALSE(SIO_sceneFiles(scene, QString()));
}

TEST(SceneRoundTrip, AFileThatDidNotChangeIsNotWrittenAgain)
{
    const ScenePlace place;
    const auto scene = makeScene(1);
    save(*scene, place.folder);
    // The permission would be lost if the file were replaced.
    const QString drawing = place.folder + text("/elements/Only%201/1.kvr");
    ASSERT_TRUE(QFile::setPermissions(drawing, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    scene->setFrameRange(3, 5);
    save(*scene, place.folder);
    EXPECT_TRUE(QFile::permissions(drawing) & QFile::ExeOwner);
    EXPECT_FALSE(QFile::permissions(place.folder + text("/scene.xml")) & QFile::ExeOwner);
    EXPECT_EQ(difference(filesIn(place.folder), filesOf(*scene)), "");
}

TEST(SceneRoundTrip, DrawingsAndPalettesThatAreGoneLoseTheirFilesAndNothingElseDoes)
{
    const ScenePlace place;
    const auto scene = makeScene(1);
    save(*scene, place.folder);
    writeTestFile(place.folder + text("/elements/Only%201/notes.txt"), "mine");
    writeTestFile(place.folder + text("/elements/stranger/1.kvr"), "mine");
    scene->root().take(*scene->findModule(text("Group")));
    scene->removePalette(scene->palettes().front());
    save(*scene, place.folder);
    Files expected = filesOf(*scene);
    EXPECT_FALSE(expected.contains(text("palettes/00000000000000a2.xml")));
    expected.insert(text("elements/Only%201/notes.txt"), "mine");
    expected.insert(text("elements/stranger/1.kvr"), "mine");
    EXPECT_EQ(difference(filesIn(place.folder), expected), "");
}

TEST(SceneRoundTrip, PalettesThatOnlyDrawingsUseStayOutOfTheScene)
{
    const ScenePlace place;
    save(*makeScene(1), place.folder);
    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->scene->palettes().size(), 1U);
    const auto* inner = dynamic_cast<MO_ElementModule*>(loaded->scene->findModule(text("Only 1")));
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(inner->drawings().begin()->second->palette()->GetId(), UT_Id(0xa2));
}

TEST(SceneRoundTrip, ADrawingIsFoundWhateverTheCaseOfItsExtension)
{
    const ScenePlace place;
    const auto scene = makeScene(1);
    save(*scene, place.folder);
    const QString folder = place.folder + text("/elements/Only%201/");
    ASSERT_TRUE(QFile::rename(folder + text("1.kvr"), folder + text("1.KVR")));
    EXPECT_EQ(difference(loadedFiles(place.folder), filesOf(*scene)), "");
    save(*scene, place.folder);
    EXPECT_EQ(difference(filesIn(place.folder), filesOf(*scene)), "");
}

TEST(SceneRoundTrip, TwoPalettesOfOneIdentifierAreRefused)
{
    const ScenePlace place;
    MO_Scene scene;
    scene.addPalette(testPalette(7));
    scene.addPalette(UT_makeShared<CM_Palette>(UT_String("other"), UT_Id(7)));
    EXPECT_FALSE(SIO_saveScene(scene, place.folder));
    EXPECT_FALSE(QFileInfo::exists(place.folder));
}

TEST(SceneRoundTrip, AFolderOfAnotherProgramIsLeftAlone)
{
    const ScenePlace place;
    const Files others{{text("scene.xml"), "<movie/>"}};
    putFiles(place.folder, others);
    EXPECT_FALSE(SIO_saveScene(*makeScene(1), place.folder));
    EXPECT_EQ(difference(filesIn(place.folder), others), "");
    EXPECT_FALSE(SIO_loadScene(place.folder));
}

TEST(SceneRoundTrip, AParentThatIsMissingIsAnErrorThatNamesIt)
{
    const ScenePlace place;
    const auto saved = SIO_saveScene(*makeScene(1), place.home.path() + text("/none/a.scene"));
    ASSERT_FALSE(saved);
    EXPECT_TRUE(saved.error().text.contains(text("none")));
}

TEST(SceneRoundTrip, AModuleWithoutClipBlurredWithGeometryHasItOff)
{
    const ScenePlace place;
    MO_Scene scene;
    auto made = MO_ModuleFactorySingleton().create(text("Vallorin"));
    ASSERT_TRUE(made);
    MO_Module& module = scene.root().add(std::move(made));
    save(scene, place.folder);
    const auto valueOnDisk = [&] {
        const auto loaded = SIO_loadScene(place.folder);
        EXPECT_TRUE(loaded) << qPrintable(loaded.error().text);
        const auto* attr = loaded->scene->root().modules().front()->findAttr(text("ClipBlurredWithGeometry"));
        return attr->displayText(1.0);
    };
    const QString on = module.findAttr(text("ClipBlurredWithGeometry"))->displayText(1.0);
    EXPECT_EQ(valueOnDisk(), on);
    EXPECT_EQ(difference(loadedFiles(place.folder), filesIn(place.folder)), "");

    const QString path = place.folder + text("/scene.xml");
    QList<QByteArray> lines = bytesOfFile(path).split('\n');
    const auto removed =
        lines.removeIf([](const QByteArray& line) { return line.contains("<ClipBlurredWithGeometry"); });
    ASSERT_EQ(removed, 1);
    writeTestFile(path, lines.join('\n'));
    EXPECT_NE(valueOnDisk(), on);
}

// Unusual and malicious names.
QString hostileName()
{
    const std::vector<QString> known{text("../x"),       text("con"),       text("CON"),
                                     text("a/b"),        text("a\\b"),      text(".."),
                                     text("."),          text(""),          text("nul"),
                                     text("a."),         text("A"),         text("a"),
                                     text("C:"),         text("%61"),       text(" "),
                                     text("x\n"),        text("_x0041_"),   text("\xf0\x9f\x90\x89"),
                                     QString(300, u'n'), QString(QChar(0)), QString(QChar(0xd800)),
                                     text("a:b"),        text("~"),         text("lpt1"),
                                     text("\x7f\x01"),   text("--")};
    if (*rc::gen::arbitrary<bool>())
        return known[*rc::gen::inRange<std::size_t>(0, known.size())];
    const auto units = *rc::gen::scale(0.2, rc::gen::arbitrary<std::vector<std::uint16_t>>());
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(units.data()), static_cast<qsizetype>(units.size()));
}

double number()
{
    return static_cast<double>(*rc::gen::inRange(-100000, 100000)) / *rc::gen::element(1.0, 3.0, 1e4, 7e-9);
}

QPainterPath randomPath()
{
    QPainterPath path;
    for (int i = *rc::gen::inRange(0, 8); i > 0; --i)
        switch (*rc::gen::inRange(0, 4)) {
        case 0:
            path.moveTo(number(), number());
            break;
        case 1:
            path.lineTo(number(), number());
            break;
        case 2:
            path.cubicTo(number(), number(), number(), number(), number(), number());
            break;
        default:
            path.closeSubpath();
        }
    if (*rc::gen::arbitrary<bool>())
        path.setFillRule(Qt::WindingFill);
    return path;
}

UT_SharedPtr<CELVEC_Kvd> randomDrawing(const std::vector<CM_SharedPtr<CM_Palette>>& palettes)
{
    auto drawing = UT_makeShared<CELVEC_Kvd>(palettes[*rc::gen::inRange<std::size_t>(0, palettes.size())]);
    for (int i = *rc::gen::inRange(0, 4); i > 0; --i) {
        CELVEC_Shape shape{randomPath(), UT_Id(*rc::gen::arbitrary<std::uint64_t>()), *rc::gen::element(1.0, 0.1)};
        if (*rc::gen::arbitrary<bool>())
            shape.clip = randomPath();
        if (*rc::gen::inRange(0, 4) == 0)
            shape.picture = testPicture(*rc::gen::element(QImage::Format_RGBA64, QImage::Format_ARGB32,
                                                          QImage::Format_RGBA64_Premultiplied, QImage::Format_RGB32));
        drawing->addShape(kGR_allArts[*rc::gen::inRange<std::size_t>(0, 4)], shape);
    }
    return drawing;
}

AT_Curve randomCurve()
{
    AT_Curve curve;
    for (int i = *rc::gen::inRange(0, 4); i > 0; --i)
        curve.setKey({static_cast<double>(*rc::gen::inRange(-5, 50)),
                      number(),
                      *rc::gen::element(AT_Curve::Interpolation::HOLD, AT_Curve::Interpolation::LINEAR,
                                        AT_Curve::Interpolation::BEZIER),
                      {-1.5, number()},
                      {0.3, number()},
                      {}});
    return curve;
}

void fillElement(MO_ElementModule& element, const std::vector<CM_SharedPtr<CM_Palette>>& palettes)
{
    element.drawingAttr()->setElementName(hostileName());
    AT_ExposureSheet exposures;
    for (int i = *rc::gen::inRange(0, 3); i > 0; --i) {
        const QString name = hostileName();
        element.setDrawing(name, randomDrawing(palettes));
        exposures.setExposure(*rc::gen::inRange(-3, 9), name);
    }
    element.drawingAttr()->setExposures(exposures);
    element.positionX()->setCurve(randomCurve());
    element.scaleY()->setLocalValue(number());
}

std::unique_ptr<MO_Module> randomModule()
{
    QStringList kinds = MO_ModuleFactorySingleton().keys();
    kinds << text("STRANGE") << text("READ") << text("READ");
    const QString kind = kinds.at(*rc::gen::inRange<qsizetype>(0, kinds.size()));
    if (auto made = MO_ModuleFactorySingleton().create(kind))
        return made;
    auto opaque = std::make_unique<MO_OpaqueModule>(kind);
    opaque->needInPort(2);
    opaque->needOutPort(1);
    return opaque;
}

void link(XUGroup& group)
{
    std::vector<MO_Module*> ends{&group.entry(), &group.exit()};
    for (const auto& own : group.modules())
        ends.push_back(own.get());
    const auto end = [&] { return ends[*rc::gen::inRange<std::size_t>(0, ends.size())]; };
    static_cast<void>(MO_Scene::connect(*end(), *end(), *rc::gen::inRange(0U, 4U), *rc::gen::inRange(0U, 2U)));
}

std::unique_ptr<MO_Scene> randomScene()
{
    auto scene = std::make_unique<MO_Scene>();
    const std::vector<CM_SharedPtr<CM_Palette>> palettes{testPalette(1), testPalette(2), nullptr};
    if (*rc::gen::arbitrary<bool>())
        scene->addPalette(palettes[1]);
    std::vector<XUGroup*> groups{&scene->root()};
    std::vector<MO_ElementModule*> elements;
    for (int i = *rc::gen::inRange(1, 14); i > 0; --i) {
        XUGroup& group = *groups[*rc::gen::inRange<std::size_t>(0, groups.size())];
        MO_Module& module = group.add(randomModule());
        module.setInstanceName(hostileName());
        module.setEnabled(*rc::gen::arbitrary<bool>());
        if (auto* inner = dynamic_cast<XUGroup*>(&module)) {
            inner->addInPort();
            inner->addOutPort();
            groups.push_back(inner);
        }
        if (auto* element = dynamic_cast<MO_ElementModule*>(&module)) {
            fillElement(*element, palettes);
            elements.push_back(element);
            if (*rc::gen::arbitrary<bool>())
                element->rotation()->setSurrogate(
                    UT_makeShared<AT_AttrLink>(scene->pathOf(*elements.front()->scaleX())));
        }
        link(group);
    }
    scene->truckFactorAttr().setCurve(randomCurve());
    scene->resolveLinks();
    return scene;
}

RC_GTEST_PROP(SceneRoundTripProperty, AnySceneComesBackAndNoByteChanges, ())
{
    const ScenePlace place;
    const auto scene = randomScene();
    const auto saved = SIO_saveScene(*scene, place.folder);
    if (!saved)
        RC_FAIL(saved.error().text.toStdString());
    const Files files = filesIn(place.folder);
    const auto loaded = SIO_loadScene(place.folder);
    if (!loaded)
        RC_FAIL(loaded.error().text.toStdString());
    RC_ASSERT(loaded->scene->toXml() == scene->toXml());
    RC_ASSERT(filesOf(*scene) == files);
    RC_ASSERT(filesOf(*loaded->scene) == files);
    RC_ASSERT(static_cast<bool>(SIO_saveScene(*loaded->scene, place.folder)));
    RC_ASSERT(filesIn(place.folder) == files);
}

} // namespace
