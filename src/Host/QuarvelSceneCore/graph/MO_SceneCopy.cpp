// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Copies go through the XML of files, so that everything that is saved is also copied; data that is saved in files of
// its own, the drawings and the palettes, is shared.
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"

#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelPersistentObj/PO_XmlWriter.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"

#include <QCoreApplication>

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

UT_Result<QDomDocument> documentOf(const QString& text)
{
    return PO_parseDocument(text.toUtf8(), QCoreApplication::translate("MO_SceneCopy", "the copy"));
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

MO_SceneCapture::MO_SceneCapture(const MO_Scene& scene)
    : _mayBeCopied(scene.root().mayBeFiled()), _palettes(scene.palettes())
{
    if (!_mayBeCopied)
        return;
    _xml = textOf(scene);
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

UT_Result<std::unique_ptr<MO_Scene>> MO_SceneCapture::makeScene()
{
    if (!_mayBeCopied)
        return _mayBeCopied.error();
    const auto document = documentOf(_xml);
    if (!document)
        return document.error();
    auto scene = std::make_unique<MO_Scene>();
    if (const auto read = scene->readXml(document->documentElement(), nullptr); !read)
        return read.error();
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

UT_Result<std::unique_ptr<MO_Scene>> MO_copyScene(const MO_Scene& scene)
{
    return MO_SceneCapture(scene).makeScene();
}

UT_Result<std::unique_ptr<MO_Module>> MO_copyModule(const MO_Module& module)
{
    if (const auto* const group = dynamic_cast<const XUGroup*>(&module))
        if (const auto small = group->mayBeFiled(); !small)
            return small.error();
    const auto document = documentOf(textOf(module));
    if (!document)
        return document.error();
    auto copy = MO_ModuleFactorySingleton().create(module.keyword());
    if (!copy)
        copy = std::make_unique<MO_OpaqueModule>(module.keyword());
    copy->componentReader()->readElement(document->documentElement(), nullptr);
    shareFiles(module, *copy, MO_FileSharing::SAME_OBJECTS);
    return copy;
}
