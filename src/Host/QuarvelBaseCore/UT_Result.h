// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Results of operations that are expected to fail now and then: reading a file, parsing a text, allocating a picture.
// Such an operation returns a UT_Result, which holds either the value or a UT_Error whose text can be shown to a person
// as it stands. Exceptions are left to what nobody expects (memory exhausted in the middle of an algorithm).
#pragma once

#include <QString>

#include <cassert>
#include <optional>
#include <utility>
#include <variant>

/// What went wrong, in words for a person: what, where, and what to do about it. One line, no full stop at its end.
struct UT_Error
{
    QString text;
};

/// A value, or the error that kept it from being made.
///
/// @tparam T the value's type; move-only types are welcome
template<typename T>
class [[nodiscard]] UT_Result
{
public:
    UT_Result(T value) : _state(std::in_place_index<0>, std::move(value)) {}
    UT_Result(UT_Error error) : _state(std::in_place_index<1>, std::move(error)) {}

    /// True when there is a value.
    bool ok() const { return _state.index() == 0; }
    explicit operator bool() const { return ok(); }

    /// The value; only to be asked for when ok().
    T& value()
    {
        assert(ok());
        return std::get<0>(_state);
    }
    const T& value() const
    {
        assert(ok());
        return std::get<0>(_state);
    }

    T& operator*() { return value(); }
    const T& operator*() const { return value(); }
    T* operator->() { return &value(); }
    const T* operator->() const { return &value(); }

    /// The error; only to be asked for when not ok().
    const UT_Error& error() const
    {
        assert(!ok());
        return std::get<1>(_state);
    }

private:
    std::variant<T, UT_Error> _state;
};

/// The result of an operation that yields nothing but may fail.
template<>
class [[nodiscard]] UT_Result<void>
{
public:
    UT_Result() = default;
    UT_Result(UT_Error error) : _error(std::move(error)) {}

    bool ok() const { return !_error.has_value(); }
    explicit operator bool() const { return ok(); }

    const UT_Error& error() const
    {
        assert(!ok());
        return *_error;
    }

private:
    std::optional<UT_Error> _error;
};
