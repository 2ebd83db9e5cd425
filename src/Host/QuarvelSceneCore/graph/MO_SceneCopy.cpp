// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Copies go through the XML that files are made of, so that whatever is saved is also copied; what lies in files of its
// own, the drawings and the palettes, is handed over.
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"

#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelPersistentObj/PO_XmlWriter.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneCore/kinds/MO_OpaqueModule.h"

#include <QDomDocument>

namespace {

QDomDocument documentOf(const PIO_XmlWritable& object)
{
    QString text;
    {
        PO_XmlWriter writer(text);
        writer.startDocument();
        object.writeXml(writer);
        writer.endDocument();
    }
    const auto document = PO_parseDocument(text.toUtf8(), QString());
    return document ? *document : QDomDocument();
}

using Drawing = UT_SharedPtr<CELVEC_Kvd>;

// The two have the same modules in the same order.
template<typename Share>
void handOverDrawings(const MO_Module& from, MO_Module& to, const Share& share)
{
    if (const auto* source = dynamic_cast<const MO_ElementModule*>(&from))
        for (const auto& [name, drawing] : source->drawings())
            static_cast<MO_ElementModule&>(to).setDrawing(name, share(drawing));
    const auto* const group = dynamic_cast<const XUGroup*>(&from);
    if (!group)
        return;
    const auto& copies = static_cast<XUGroup&>(to).modules();
    for (std::size_t i = 0; i < copies.size(); ++i)
        handOverDrawings(*group->modules()[i], *copies[i], share);
}

} // namespace

std::unique_ptr<MO_Scene> MO_copyScene(const MO_Scene& scene)
{
    auto copy = std::make_unique<MO_Scene>();
    // What the program wrote a moment ago, it can read.
    (void)copy->readXml(documentOf(scene).documentElement(), nullptr);
    for (const auto& palette : scene.palettes())
        copy->addPalette(palette);
    handOverDrawings(scene.root(), copy->root(), [](const Drawing& drawing) { return drawing->shareForRendering(); });
    return copy;
}

std::unique_ptr<MO_Module> MO_copyModule(const MO_Module& module)
{
    auto copy = MO_ModuleFactorySingleton().create(module.keyword());
    if (!copy)
        copy = std::make_unique<MO_OpaqueModule>(module.keyword());
    copy->componentReader()->readElement(documentOf(module).documentElement(), nullptr);
    handOverDrawings(module, *copy, [](const Drawing& drawing) { return drawing; });
    return copy;
}
