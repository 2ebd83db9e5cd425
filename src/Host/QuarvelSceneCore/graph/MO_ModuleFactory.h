// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_ModuleFactory: makes modules by keyword. Host libraries and plug-ins register their kinds in the process's factory
// when they are loaded, and remove them when they are unloaded.
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <mutex>

class MO_Module;

/// A class factory of modules. Every function may be called from any thread.
class QUARVELSCENECORE_EXPORT MO_ModuleFactory
{
public:
    using Creator = std::function<std::unique_ptr<MO_Module>()>;

    MO_ModuleFactory();
    ~MO_ModuleFactory();
    MO_ModuleFactory(const MO_ModuleFactory&) = delete;
    MO_ModuleFactory& operator=(const MO_ModuleFactory&) = delete;

    /// Registers how modules of a kind are made. A kind that is registered already is not replaced.
    ///
    /// @return whether the kind was new
    bool registerCreator(const QString& key, Creator creator);
    /// Removes a kind. @return whether it was there
    bool unregisterCreator(const QString& key);

    /// A new module; null when the kind is not known.
    std::unique_ptr<MO_Module> create(const QString& key) const;
    bool contains(const QString& key) const;
    /// The kinds, sorted.
    QStringList keys() const;

private:
    mutable std::mutex _mutex;
    std::map<QString, Creator> _creators;
};

/// The factory of the process.
QUARVELSCENECORE_EXPORT MO_ModuleFactory& MO_ModuleFactorySingleton();

/// Registers a kind of modules in the process's factory for the lifetime of this object: a constant in the file that
/// defines the kind, so that the kind is known as long as its library is loaded. A kind that is registered already is
/// not replaced.
///
/// @tparam Module a class with a constructor without arguments and a static function Keyword()
template<typename Module>
class MO_ModuleRegistration
{
public:
    MO_ModuleRegistration()
        : _isOurs(
              MO_ModuleFactorySingleton().registerCreator(Module::Keyword(), [] { return std::make_unique<Module>(); }))
    {}
    MO_ModuleRegistration(const MO_ModuleRegistration&) = delete;
    MO_ModuleRegistration& operator=(const MO_ModuleRegistration&) = delete;
    ~MO_ModuleRegistration()
    {
        if (_isOurs)
            MO_ModuleFactorySingleton().unregisterCreator(Module::Keyword());
    }

private:
    bool _isOurs;
};
