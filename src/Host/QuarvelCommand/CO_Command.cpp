// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What commands do unless they override it.
#include "QuarvelCommand/CO_Command.h"

CO_Command::~CO_Command() = default;

void CO_Command::redo()
{
    execute();
}

bool CO_Command::hasEffect() const
{
    return true;
}

bool CO_Command::canMergeWith(const CO_Command&) const
{
    return false;
}

void CO_Command::mergeWith(const CO_Command&) {}
