// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Shared objects and the pointers that hold them. The reference count lives in the object (UT_ShareBaseSafe) and is
// atomic, so holders may sit on different threads; the object itself is as thread-safe as its class says. The last
// holder deletes it.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <atomic>
#include <cstddef>
#include <type_traits>
#include <utility>

/// Base of every shared object. Copying an object never copies its count: a copy starts without holders.
class QUARVELBASECORE_EXPORT UT_ShareBaseSafe
{
public:
    UT_ShareBaseSafe() = default;
    UT_ShareBaseSafe(const UT_ShareBaseSafe&) {}
    UT_ShareBaseSafe& operator=(const UT_ShareBaseSafe&) { return *this; }
    virtual ~UT_ShareBaseSafe();

    /// Adds one holder.
    void addRef() const { _count.fetch_add(1, std::memory_order_relaxed); }

    /// Takes one holder away and deletes the object when it was the last.
    void release() const
    {
        if (_count.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

    /// The number of holders at this moment, for tests and copy-on-write.
    int refCount() const { return _count.load(std::memory_order_acquire); }

private:
    mutable std::atomic<int> _count{0};
};

/// Holds one reference to a shared object, or nothing.
///
/// The pointer itself is a plain value: two threads may each have their own, but not write the same one.
template<typename T>
class UT_SharedPtr
{
public:
    UT_SharedPtr() = default;
    UT_SharedPtr(std::nullptr_t) {}
    explicit UT_SharedPtr(T* object) : _object(object) { acquire(); }
    UT_SharedPtr(const UT_SharedPtr& other) : _object(other._object) { acquire(); }
    UT_SharedPtr(UT_SharedPtr&& other) noexcept : _object(std::exchange(other._object, nullptr)) {}

    template<typename U>
    requires std::is_convertible_v<U*, T*> UT_SharedPtr(const UT_SharedPtr<U>& other) : _object(other.get())
    {
        acquire();
    }

    ~UT_SharedPtr()
    {
        if (_object)
            _object->release();
    }

    UT_SharedPtr& operator=(UT_SharedPtr other) noexcept
    {
        std::swap(_object, other._object);
        return *this;
    }

    T* get() const { return _object; }
    T* operator->() const { return _object; }
    T& operator*() const { return *_object; }
    explicit operator bool() const { return _object != nullptr; }

    friend bool operator==(const UT_SharedPtr& a, const UT_SharedPtr& b) { return a._object == b._object; }
    friend bool operator==(const UT_SharedPtr& a, std::nullptr_t) { return a._object == nullptr; }

    /// The same object as a U; null when it is not one.
    template<typename U>
    UT_SharedPtr<U> dynamicCast() const
    {
        return UT_SharedPtr<U>(dynamic_cast<U*>(_object));
    }

private:
    void acquire()
    {
        if (_object)
            _object->addRef();
    }

    T* _object = nullptr;
};

/// Makes a T and its first holder.
template<typename T, typename... Args>
UT_SharedPtr<T> UT_makeShared(Args&&... args)
{
    return UT_SharedPtr<T>(new T(std::forward<Args>(args)...));
}
