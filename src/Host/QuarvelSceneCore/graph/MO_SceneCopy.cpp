// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Copies go through the XML of files, so that everything that is saved is also copied; data that is saved in files of
// its own, the drawings and the palettes, is shared.
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"

#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelPersistentObj/PO_XmlWriter.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"

#include <QDomDocument>

namespace {

QString textOf(const PIO_XmlWritable& object)
{
    QString text;
    {
        PO_XmlWriter writer(text);
        writer.startDocument();
        object.writeXml(writer);
        writer.endDocument();
    }
    return text;
}

QDomDocument documentOf(const QString& text)
{
    const auto document = PO_parseDocument(text.toUtf8(), QString());
    return document ? *document : QDomDocument();
}

// The copy has the same modules in the same order.
void shareFiles(const MO_Module& original, MO_Module& copy, MO_FileSharing sharing)
{
    copy.shareFiles(original, sharing);
    const auto* const group = dynamic_cast<const XUGroup*>(&original);
    if (!group)
        return;
    const auto& copies = static_cast<XUGroup&>(copy).modules();
    for (std::size_t i = 0; i < copies.size(); ++i)
        shareFiles(*group->modules()[i], *copies[i], sharing);
}

} // namespace

MO_SceneCapture::MO_SceneCapture(const MO_Scene& scene) : _xml(textOf(scene)), _palettes(scene.palettes())
{
    scene.root().forEachModule([this](const MO_Module& module) {
        std::unique_ptr<MO_Module> files;
        if (module.hasFiles())
            files = MO_ModuleFactorySingleton().create(module.keyword());
        if (files)
            files->shareFiles(module, MO_FileSharing::FOR_RENDERING);
        _files.push_back(std::move(files));
    });
}

MO_SceneCapture::~MO_SceneCapture() = default;

std::unique_ptr<MO_Scene> MO_SceneCapture::makeScene()
{
    auto scene = std::make_unique<MO_Scene>();
    // What the program wrote a moment ago, it can read.
    (void)scene->readXml(documentOf(_xml).documentElement(), nullptr);
    for (const auto& palette : _palettes)
        scene->addPalette(palette);
    // The two have the same modules in the same order.
    auto files = _files.begin();
    scene->root().forEachModule([&](MO_Module& module) {
        if (*files)
            module.shareFiles(**files, MO_FileSharing::SAME_OBJECTS);
        ++files;
    });
    return scene;
}

std::unique_ptr<MO_Scene> MO_copyScene(const MO_Scene& scene)
{
    return MO_SceneCapture(scene).makeScene();
}

std::unique_ptr<MO_Module> MO_copyModule(const MO_Module& module)
{
    auto copy = MO_ModuleFactorySingleton().create(module.keyword());
    if (!copy)
        copy = std::make_unique<MO_OpaqueModule>(module.keyword());
    copy->componentReader()->readElement(documentOf(textOf(module)).documentElement(), nullptr);
    shareFiles(module, *copy, MO_FileSharing::SAME_OBJECTS);
    return copy;
}
