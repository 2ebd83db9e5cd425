// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Results of operations that are expected to fail now and then: reading a file, parsing a text, allocating a picture.
// Such an operation returns a UT_Result, which holds either the value or a UT_Error, whose sentence can be shown to a
// person as it stands. Exceptions are left to what nobody expects (memory exhausted in the middle of an algorithm).
#pragma once

#include <QString>

#include <cassert>
#include <new>
#include <optional>
#include <utility>
#include <variant>

/// What happened, for those who act on it.
enum class UT_ErrorKind
{
    FAILED,    ///< something did not work
    REFUSED,   ///< what was given cannot be taken, and will not be taken the next time either
    NO_MEMORY, ///< the memory is not enough
    STOPPED    ///< somebody said to stop; nothing is wrong
};

/// What went wrong. Programs look at the kind and show the sentence; nobody compares texts.
struct UT_Error
{
    QString text; ///< what, and what to do about it: one line, no full stop at its end
    UT_ErrorKind kind = UT_ErrorKind::FAILED;
    QString where = {}; ///< what the text speaks of, a file or a node with its frame; empty where the text says it

    /// The error of somebody who called for what failed, and knows what it was for.
    UT_Error at(const QString& place) const
    {
        return {text, kind, where.isEmpty() ? place : place + QStringLiteral(": ") + where};
    }

    /// For a person, where the error leaves the program.
    QString sentence() const { return where.isEmpty() ? text : where + QStringLiteral(": ") + text; }
};

/// The error of what was stopped by somebody who is told to stop.
inline UT_Error UT_stopped()
{
    return {QStringLiteral("stopped"), UT_ErrorKind::STOPPED, {}};
}

/// The error of what did not fit in memory.
///
/// @param what   "a picture of 40000 x 30000 pixels"
/// @param advice "choose a smaller size"
inline UT_Error UT_noMemory(const QString& what, const QString& advice)
{
    return {QStringLiteral("the memory is not enough for %1; %2").arg(what, advice), UT_ErrorKind::NO_MEMORY, {}};
}

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

/// Runs work, which may use up the memory.
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
