// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Scenes and folders for the tests of scenes on disk.
#pragma once

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "QuarvelSceneIO/private/SIO_SceneFiles.h"
#include "TestFolder.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace test_scenes {

using Files = QMap<QString, QByteArray>;

inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// A temporary folder, and a path for a scene in it.
struct ScenePlace
{
    QTemporaryDir home;
    QString folder = home.path() + QStringLiteral("/a.scene");
};

/// All files in a folder by their paths within it, including hidden ones, except for the lock file that a killed
/// process left.
inline Files filesIn(const QString& folder)
{
    Files files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        if (!path.endsWith(QStringLiteral("/.lock")))
            files.insert(path.mid(folder.size() + 1), bytesOfFile(path));
    }
    return files;
}

/// The paths at which two sets of files differ; empty if they are equal.
inline std::string difference(const Files& a, const Files& b)
{
    QStringList paths;
    for (const QString& path : a.keys() + b.keys())
        if (!a.contains(path) || !b.contains(path) || a.value(path) != b.value(path))
            paths << path;
    paths.removeDuplicates();
    return paths.join(u' ').toStdString();
}

inline void putFiles(const QString& folder, const Files& files)
{
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        writeTestFile(folder + u'/' + file.key(), file.value());
}

/// The files as which a scene would be saved.
inline Files filesOf(const MO_Scene& scene)
{
    auto files = SIO_sceneFiles(scene, QString());
    EXPECT_TRUE(files) << qPrintable(files.error().text);
    return files ? *files : Files();
}

/// The files as which the scene on the disk would be saved; empty if it does not load.
inline Files loadedFiles(const QString& folder, QString* error = nullptr)
{
    const auto loaded = SIO_loadScene(folder);
    if (!loaded && error)
        *error = loaded.error().text;
    return loaded ? filesOf(*loaded->scene) : Files();
}

inline CM_SharedPtr<CM_Palette> testPalette(std::uint64_t id)
{
    auto palette = UT_makeShared<CM_Palette>(UT_String("Skin & Bones"), UT_Id(id));
    auto skin = UT_makeShared<CM_Color>(UT_String("skin"), CM_Color::NORMAL_COLOR, UT_Id(0xc1));
    skin->SetNominalColor({10, 20, 30, 40});
    auto guide = UT_makeShared<CM_Color>(UT_String("guide"), CM_Color::GUIDE_COLOR, UT_Id(0xc2));
    auto sky = UT_makeShared<CM_TextureColor>(UT_String("sky"), CM_TextureColor::PATTERN_TEXTURE, UT_Id(0xc3));
    palette->addColor(skin);
    palette->addColor(guide);
    palette->addColor(sky);
    return palette;
}

inline QImage testPicture(QImage::Format format)
{
    QImage picture(5, 3, format);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixelColor(x, y, QColor(50 * x, 80 * y, 7, 60 * x + 5));
    return picture;
}

inline UT_SharedPtr<CELVEC_Kvd> testDrawing(const CM_SharedPtr<CM_Palette>& palette, double size)
{
    auto drawing = UT_makeShared<CELVEC_Kvd>(palette);
    QPainterPath path;
    path.moveTo(0.1, -0.0);
    path.lineTo(size, 1.0 / 3.0);
    path.cubicTo(size, 1e-7, 5.0, 1e20, 0.0, size);
    path.moveTo(1, 1);
    path.lineTo(2, 2);
    path.setFillRule(Qt::WindingFill);
    QPainterPath clip;
    clip.addEllipse(0, 0, size, size);
    drawing->addShape(GR_Art::COLOUR, {path, UT_Id(0xc1), 0.3, clip});
    drawing->addShape(GR_Art::LINE, {clip, UT_Id(0xc2)});
    CELVEC_Shape sprite{clip, UT_Id(0xc3)};
    sprite.picture = testPicture(QImage::Format_ARGB32_Premultiplied);
    drawing->addShape(GR_Art::LINE, sprite);
    return drawing;
}

/// A scene with every kind of content: two elements with drawings, one of them in a group, animation, a link between
/// attributes, two palettes. Scenes with different numbers differ in all of their files.
inline std::unique_ptr<MO_Scene> makeScene(int number)
{
    auto scene = std::make_unique<MO_Scene>();
    scene->setFrameRange(1, 24 + number);
    const auto palette = testPalette(0xa1);
    palette->SetName(UT_String(QStringLiteral("Palette %1").arg(number)));
    scene->addPalette(palette);
    auto& hero = scene->root().emplace<MO_ElementModule>();
    hero.setInstanceName(text("Hero \"1\" <\xc3\xa9>"));
    AT_ExposureSheet exposures;
    exposures.setExposure(1, text("a/b"));
    exposures.setExposure(4, text("2"));
    hero.drawingAttr()->setExposures(exposures);
    hero.setDrawing(text("a/b"), testDrawing(palette, 10.0 + number));
    hero.setDrawing(text("2"), testDrawing(palette, 20.0 + number));
    AT_Curve curve;
    curve.setKey({1.0, 0.5, AT_Curve::Interpolation::HOLD, {}, {}, {}});
    curve.setKey({2.0, 1.5, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    curve.setKey({8.0, 2.5, AT_Curve::Interpolation::BEZIER, {-1.0, 0.1}, {2.0, 0.2}, {}});
    curve.setKey({20.0, 0.1, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    hero.rotation()->setCurve(curve);
    auto& group = scene->root().emplace<XUGroup>();
    group.addOutPort();
    auto& inner = group.emplace<MO_ElementModule>();
    inner.setInstanceName(QStringLiteral("Only %1").arg(number));
    inner.setDrawing(text("1"), testDrawing(testPalette(0xa2), 3.0));
    inner.positionX()->setSurrogate(UT_makeShared<AT_AttrLink>(scene->pathOf(*hero.rotation())));
    auto& composite = scene->root().emplace<MO_CompositeModule>();
    auto& display = scene->root().emplace<MO_DisplayModule>();
    EXPECT_TRUE(MO_Scene::connect(inner, group.exit()));
    EXPECT_TRUE(MO_Scene::connect(hero, composite, 0));
    EXPECT_TRUE(MO_Scene::connect(group, composite, 1));
    EXPECT_TRUE(MO_Scene::connect(composite, display));
    scene->truckFactorAttr().setCurve(curve);
    scene->resolveLinks();
    return scene;
}

/// Saves a scene and expects that this succeeds.
inline void save(const MO_Scene& scene, const QString& folder)
{
    const auto saved = SIO_saveScene(scene, folder);
    ASSERT_TRUE(saved) << qPrintable(saved.error().text);
}

} // namespace test_scenes
