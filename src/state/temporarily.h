#pragma once

/// A value for a while: flags, counters and pointers that stand differently during one operation,
/// also when a handler throws in the middle of it.

#include <utility>

namespace tablio {

/// While it lives the variable, which must outlive it, holds another value.
template <typename T> class Temporarily {
public:
    Temporarily(T &variable, T value)
        : variable_(variable), before_(std::exchange(variable, std::move(value))) {}
    ~Temporarily() { variable_ = std::move(before_); }
    Temporarily(const Temporarily &) = delete;
    Temporarily &operator=(const Temporarily &) = delete;

private:
    T &variable_;
    T before_;
};

} // namespace tablio
