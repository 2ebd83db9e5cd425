// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The module factory.
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"

#include "QuarvelSceneCore/graph/MO_Module.h"

MO_ModuleFactory::MO_ModuleFactory() = default;

MO_ModuleFactory::~MO_ModuleFactory() = default;

// NOLINTNEXTLINE(performance-unnecessary-value-param): it is moved into the table.
bool MO_ModuleFactory::registerCreator(const QString& key, Creator creator)
{
    const std::lock_guard lock(_mutex);
    return _creators.try_emplace(key, std::move(creator)).second;
}

bool MO_ModuleFactory::unregisterCreator(const QString& key)
{
    const std::lock_guard lock(_mutex);
    return _creators.erase(key) > 0;
}

std::unique_ptr<MO_Module> MO_ModuleFactory::create(const QString& key) const
{
    Creator creator;
    {
        const std::lock_guard lock(_mutex);
        const auto found = _creators.find(key);
        if (found == _creators.end())
            return nullptr;
        creator = found->second;
    }
    // Outside the lock: the creator may create other modules.
    return creator();
}

bool MO_ModuleFactory::contains(const QString& key) const
{
    const std::lock_guard lock(_mutex);
    return _creators.count(key) > 0;
}

QStringList MO_ModuleFactory::keys() const
{
    const std::lock_guard lock(_mutex);
    QStringList keys;
    for (const auto& [key, creator] : _creators)
        keys << key;
    return keys;
}

MO_ModuleFactory& MO_ModuleFactorySingleton()
{
    static MO_ModuleFactory factory;
    return factory;
}
