// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Objects with one owner that others observe (nodes of a scene): an observer holds a UT_WeakPtr, which turns null when
// the object is destroyed.
#pragma once

#include <memory>

/// Base of objects that can be observed. Observing and destroying them must happen on one thread.
class UT_SharedWeakBase
{
public:
    UT_SharedWeakBase() : _anchor(std::make_shared<Anchor>(Anchor{this})) {}
    UT_SharedWeakBase(const UT_SharedWeakBase&) = delete;
    UT_SharedWeakBase& operator=(const UT_SharedWeakBase&) = delete;
    virtual ~UT_SharedWeakBase() { _anchor->object = nullptr; }

private:
    template<typename T>
    friend class UT_WeakPtr;

    struct Anchor
    {
        UT_SharedWeakBase* object;
    };
    std::shared_ptr<Anchor> _anchor;
};

/// Observes an object without owning it; null once the object is gone.
template<typename T>
class UT_WeakPtr
{
public:
    UT_WeakPtr() = default;
    explicit UT_WeakPtr(T* object)
    {
        if (object)
            _anchor = static_cast<UT_SharedWeakBase*>(object)->_anchor;
    }

    T* get() const { return _anchor ? dynamic_cast<T*>(_anchor->object) : nullptr; }
    explicit operator bool() const { return get() != nullptr; }

private:
    std::shared_ptr<UT_SharedWeakBase::Anchor> _anchor;
};
