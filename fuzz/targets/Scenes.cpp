// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "Scenes.h"

#include "QuarvelDrawingIO/DIO_SvgReader.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "QuarvelSceneIO/private/SIO_SceneFiles.h"
#include "Targets.h"
#include "jobs/drawing/ReadDrawing.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace {

constexpr const char* kDrawing = R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">
  <g id="body"><rect x="8" y="8" width="48" height="48" rx="12" fill="#c03020"/></g>
  <g id="eye"><circle cx="32" cy="28" r="10" fill="#2040c0"/></g></svg>)";

QMap<QString, QByteArray> contentsOf(const QString& folder)
{
    QMap<QString, QByteArray> contents;
    QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        FUZZ_CHECK(file.open(QIODevice::ReadOnly));
        contents.insert(file.fileName(), file.readAll());
    }
    return contents;
}

} // namespace

std::unique_ptr<MO_Scene> makeFuzzScene()
{
    const auto drawing = DIO_readSvgData(kDrawing, QStringLiteral("fuzz.svg"), DIO_Grouping::GROUPS);
    FUZZ_CHECK(drawing.ok());
    NormalMapSettings settings;
    settings.form.objects = ObjectChoice::GROUPS;
    auto scene = DrawingScene::build(chosenDrawing(*drawing, settings.form).drawing, settings);
    FUZZ_CHECK(scene.ok());
    return scene->takeScene();
}

QMap<QString, QByteArray> filesOf(const MO_Scene& scene)
{
    auto files = SIO_sceneFiles(scene, QString());
    FUZZ_CHECK(files.ok());
    return *files;
}

void checkSceneIn(const QString& folder)
{
    const QMap<QString, QByteArray> before = contentsOf(fuzzFolder() + u'/' + folder);
    const auto loaded = SIO_loadScene(fuzzFolder() + u'/' + folder);
    FUZZ_CHECK(contentsOf(fuzzFolder() + u'/' + folder) == before);
    if (!loaded) {
        FUZZ_CHECK(!loaded.error().sentence().isEmpty());
        return;
    }
    const auto files = SIO_sceneFiles(*loaded->scene, QString());
    // What no file can hold is refused.
    if (!files)
        return;
    const QString copy = folder + QStringLiteral(".copy");
    QDir(fuzzFolder() + u'/' + copy).removeRecursively();
    for (auto file = files->cbegin(); file != files->cend(); ++file)
        fuzzFile(copy + u'/' + file.key(), file.value());
    const auto again = SIO_loadScene(fuzzFolder() + u'/' + copy);
    FUZZ_CHECK(again.ok());
    FUZZ_CHECK(filesOf(*again->scene) == *files);
}
