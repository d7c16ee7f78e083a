#pragma once

#include <utility>
#include <variant>

namespace tidlo {

/// Why a system call failed: an errno.
struct Errno
{
    int number = 0;
};

/// A value, or the errno of why there is none. Functions without a value return an errno as an int instead, 0 for
/// success.
template <typename Value>
class OrError final
{
public:
    OrError(Value value)
        : content(std::move(value))
    {}
    OrError(Errno error)
        : content(error)
    {}

    explicit operator bool() const { return std::holds_alternative<Value>(content); }
    Value &operator*() { return std::get<Value>(content); }
    const Value &operator*() const { return std::get<Value>(content); }
    Value *operator->() { return &**this; }
    const Value *operator->() const { return &**this; }

    /// 0 if there is a value.
    int error() const { return *this ? 0 : std::get<Errno>(content).number; }

private:
    std::variant<Value, Errno> content;
};

} // namespace tidlo
