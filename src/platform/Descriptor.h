#pragma once

#include <utility>

#include <unistd.h>

namespace tidlo {

/// Owns one file descriptor and closes it; -1 owns none.
class Descriptor final
{
public:
    Descriptor() = default;
    explicit Descriptor(int descriptor)
        : number(descriptor)
    {}
    Descriptor(Descriptor &&other) noexcept
        : number(other.release())
    {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        reset(other.release());
        return *this;
    }
    ~Descriptor() { reset(); }

    int get() const { return number; }
    bool isValid() const { return number >= 0; }
    /// Gives the descriptor away.
    int release() { return std::exchange(number, -1); }
    void reset(int descriptor = -1)
    {
        if (number >= 0)
            ::close(number);
        number = descriptor;
    }

private:
    int number = -1;
};

} // namespace tidlo
