// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Results of operations that are expected to fail now and then: reading a file, parsing a text, allocating a picture.
// Such an operation returns a UT_Result, which holds either the value or a UT_Error, whose sentence is fit to be shown
// to a person. Exceptions are left to unexpected failures (memory exhausted in the middle of an algorithm).
#pragma once

#include <QString>

#include <cassert>
#include <new>
#include <optional>
#include <utility>
#include <variant>

/// The kinds of errors, for callers that react to them.
enum class UT_ErrorKind
{
    FAILED,    ///< something did not work
    REFUSED,   ///< the input is not acceptable, and trying again will not change that
    NO_MEMORY, ///< there is not enough memory
    DISK_FULL, ///< there is no space left on the disk, so that other files will not fit either
    STOPPED    ///< somebody asked to stop; nothing is wrong
};

/// What went wrong. Programs look at the kind and show the sentence; no code compares texts.
struct UT_Error
{
    QString text; ///< what happened, and what to do about it: one line, no full stop at its end
    UT_ErrorKind kind = UT_ErrorKind::FAILED;
    QString where = {}; ///< the file, or the node and frame, that the text is about; empty where the text says it

    /// The same error with its place, which a caller adds who knows it.
    UT_Error at(const QString& place) const
    {
        return {text, kind, where.isEmpty() ? place : place + QStringLiteral(": ") + where};
    }

    /// The whole message, for the place where the error leaves the program.
    QString sentence() const { return where.isEmpty() ? text : where + QStringLiteral(": ") + text; }
};

/// The error of an operation that was told to stop.
inline UT_Error UT_stopped()
{
    return {QStringLiteral("stopped"), UT_ErrorKind::STOPPED, {}};
}

/// The error of something that did not fit in memory.
///
/// @param what   "a picture of 40000 x 30000 pixels"
/// @param advice "choose a smaller size"
inline UT_Error UT_noMemory(const QString& what, const QString& advice)
{
    return {QStringLiteral("not enough memory for %1; %2").arg(what, advice), UT_ErrorKind::NO_MEMORY, {}};
}

/// A value, or the error that explains why there is none.
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

    /// The value; call it only when ok().
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

    /// The error; call it only when not ok().
    const UT_Error& error() const
    {
        assert(!ok());
        return std::get<1>(_state);
    }

private:
    std::variant<T, UT_Error> _state;
};

/// The result of an operation that returns nothing but may fail.
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

/// Runs work, which may run out of memory.
///
/// @return its result, or the error of UT_noMemory()
template<typename Work>
auto UT_withinMemory(const QString& what, const QString& advice, const Work& work) -> decltype(work())
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return UT_noMemory(what, advice);
    }
}
