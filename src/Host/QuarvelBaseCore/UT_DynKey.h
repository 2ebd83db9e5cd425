// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// UT_DynKey: a key that is unique in the process, compared by identity. It names operations and messages that libraries
// agree on without sharing a header of types. A key is made once (as a function-local static) and lives as long as its
// library.
#pragma once

/// A process-wide key. Two keys are equal only when they are the same object.
class UT_DynKey
{
public:
    /// @param name what the key stands for, for people who debug; must outlive the key
    explicit constexpr UT_DynKey(const char* name) : _name(name) {}
    UT_DynKey(const UT_DynKey&) = delete;
    UT_DynKey& operator=(const UT_DynKey&) = delete;

    const char* name() const { return _name; }
    friend bool operator==(const UT_DynKey& a, const UT_DynKey& b) { return &a == &b; }

private:
    const char* _name;
};
