// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes the node known to the host: loading the module registers it with the module factory, unloading removes it.
#include "QuarvelSceneCore/MO_ModuleFactory.h"
#include "node/Vallorin.h"

namespace {

/// The node's entry in the host's factory. An existing entry is not replaced.
class Registration
{
public:
    Registration()
        : _isOurs(MO_ModuleFactorySingleton().registerCreator(
              Vallorin::Keyword(), []() -> std::unique_ptr<MO_Module> { return std::make_unique<Vallorin>(); }))
    {}
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration()
    {
        if (_isOurs)
            MO_ModuleFactorySingleton().unregisterCreator(Vallorin::Keyword());
    }

private:
    bool _isOurs;
};

const Registration kRegistration;

} // namespace
