// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Qt's loader of layout files, extended by the plug-ins' widgets.
#include "QuarvelPlugInManager/PLUG_EditorWidgets.h"

#include <QFile>
#include <QWidget>

#ifndef VALLORIN_NO_UI_TOOLS
#include <QUiLoader>
#endif

#include <algorithm>

#ifndef VALLORIN_NO_UI_TOOLS

namespace {

class Loader : public QUiLoader
{
public:
    explicit Loader(const PLUG_EditorWidgets& widgets) : _widgets(widgets), _known(availableWidgets()) {}

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        if (!_known.contains(className))
            if (QWidget* const made = _widgets.create(className, parent, name))
                return made;
        return QUiLoader::createWidget(className, parent, name);
    }

private:
    const PLUG_EditorWidgets& _widgets;
    QStringList _known;
};

} // namespace

#endif

PLUG_EditorWidgets::PLUG_EditorWidgets() = default;

PLUG_EditorWidgets::~PLUG_EditorWidgets() = default;

void PLUG_EditorWidgets::registerFactory(PLUG_WidgetFactory* factory)
{
    if (factory && std::find(_factories.begin(), _factories.end(), factory) == _factories.end())
        _factories.push_back(factory);
}

QWidget* PLUG_EditorWidgets::loadLayout(const QString& path, QWidget* parent)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
#ifdef VALLORIN_NO_UI_TOOLS
    Q_UNUSED(parent)
    qWarning("\"%s\" is not shown: this copy was built without Qt's module UiTools, which reads layout files",
             qUtf8Printable(path));
    return nullptr;
#else
    return Loader(*this).load(&file, parent);
#endif
}

QWidget* PLUG_EditorWidgets::create(const QString& type, QWidget* parent, const QString& name) const
{
    const QByteArray objectName = name.toUtf8();
    for (PLUG_WidgetFactory* const factory : _factories)
        if (QWidget* const made = factory->create(type, parent, objectName.constData()))
            return made;
    return nullptr;
}
