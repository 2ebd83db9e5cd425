// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The names of the module's widgets, and the process's one factory.
#include "editors/VolumetricEditorFactory.h"

#include "QuarvelPlugInManager/PLUG_Services.h"
#include "editors/ColorTableView.h"
#include "editors/VolumetricColorEditor.h"
#include "editors/VolumetricObjectListEditor.h"

namespace {

/// Loads a layout file and puts an editor on its widget.
template<typename Editor>
QWidget* load(const QString& file, QWidget* parent, const char* objectName)
{
    PLUG_WidgetFactoryRegistry* const registry = PLUG_Services::getWidgetFactoryRegistry();
    QWidget* const widget = registry ? registry->loadLayout(file, parent) : nullptr;
    if (widget)
        (new Editor(widget))->setObjectName(QString::fromUtf8(objectName));
    return widget;
}

} // namespace

VolumetricEditorFactory::VolumetricEditorFactory(const QString& folder) : path(folder) {}

VolumetricEditorFactory::~VolumetricEditorFactory() = default;

QWidget* VolumetricEditorFactory::create(const QString& className, QWidget* parent, const char* objectName)
{
    if (className == QLatin1String("VallorinVolumetricColorDefinition"))
        return load<VolumetricColorEditor>(path + QStringLiteral("volumetricDefinition.ui"), parent, objectName);
    if (className == QLatin1String("VallorinObjectList"))
        return load<VolumetricObjectListEditor>(path + QStringLiteral("objectList.ui"), parent, objectName);
    if (className == QLatin1String("VallorinColorTableView"))
        return new ColorTableView(parent);
    return nullptr;
}

void VolumetricColorEditor::registerFactory(const QString& path)
{
    PLUG_WidgetFactoryRegistry* const registry = PLUG_Services::getWidgetFactoryRegistry();
    if (!registry)
        return;
    static VolumetricEditorFactory factory(path);
    registry->registerFactory(&factory);
}
