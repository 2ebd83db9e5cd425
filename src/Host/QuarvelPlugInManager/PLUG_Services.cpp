// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The services, stored once per process.
#include "QuarvelPlugInManager/PLUG_Services.h"

#include <QHash>

#include <atomic>
#include <mutex>

namespace {

struct Services
{
    std::atomic<PLUG_WidgetFactoryRegistry*> registry{nullptr};
    std::atomic<PLUG_CurrentFrameInterface*> frames{nullptr};
    std::mutex pathsMutex;
    QHash<QString, QString> paths;
};

Services& services()
{
    static Services instance;
    return instance;
}

} // namespace

PLUG_WidgetFactory::~PLUG_WidgetFactory() = default;
PLUG_WidgetFactoryRegistry::~PLUG_WidgetFactoryRegistry() = default;
PLUG_CurrentFrameInterface::~PLUG_CurrentFrameInterface() = default;

QString PLUG_Services::getPluginPath(const QString& keyword)
{
    const std::lock_guard lock(services().pathsMutex);
    return services().paths.value(keyword);
}

QStringList PLUG_Services::loadedPlugins()
{
    const std::lock_guard lock(services().pathsMutex);
    QStringList keywords;
    for (auto entry = services().paths.cbegin(); entry != services().paths.cend(); ++entry)
        if (!entry.value().isEmpty())
            keywords.append(entry.key());
    keywords.sort();
    return keywords;
}

PLUG_WidgetFactoryRegistry* PLUG_Services::getWidgetFactoryRegistry()
{
    return services().registry;
}

PLUG_CurrentFrameInterface* PLUG_Services::getCurrentFrameInterface()
{
    return services().frames;
}

void PLUG_Services::setWidgetFactoryRegistry(PLUG_WidgetFactoryRegistry* registry)
{
    services().registry = registry;
}

void PLUG_Services::setCurrentFrameInterface(PLUG_CurrentFrameInterface* frames)
{
    services().frames = frames;
}

void PLUG_Services::setPluginPath(const QString& keyword, const QString& folder)
{
    const std::lock_guard lock(services().pathsMutex);
    services().paths.insert(keyword, folder);
}
