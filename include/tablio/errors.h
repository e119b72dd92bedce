#pragma once

/// The errors that the control throws at its callers. They are few on purpose: a bad row or
/// column, 16-bit arithmetic that does not fit, and what a late-bound caller can get wrong.

#include <stdexcept>
#include <string>

namespace tablio {

/// The errors below by number, for binding layers that hand them on as codes.
enum class ErrorKind { Other, Grid, Overflow, UnknownMember, ArgumentCount, TypeMismatch };

class Error : public std::runtime_error {
public:
    explicit Error(const std::string &message, ErrorKind kind = ErrorKind::Other, int argument = -1)
        : std::runtime_error(message), kind_(kind), argument_(argument) {}

    [[nodiscard]] ErrorKind kind() const noexcept { return kind_; }
    /// Which argument of a late-bound call is wrong, from 0; the new value of a property comes
    /// after its indexes. −1 where that is not known.
    [[nodiscard]] int argument() const noexcept { return argument_; }

private:
    ErrorKind kind_;
    int argument_;
};

template <ErrorKind errorKind> class ErrorOf : public Error {
public:
    explicit ErrorOf(const std::string &message, int argument = -1)
        : Error(message, errorKind, argument) {}
};

/// A row, a column or a count that the grid does not have. The message names the operation, the
/// value and the range that is allowed.
using GridError = ErrorOf<ErrorKind::Grid>;
/// A row, column or count beyond the 16-bit range of the control's arithmetic, or a value too
/// great for the type it is converted to.
using OverflowError = ErrorOf<ErrorKind::Overflow>;
/// No member has this name or number, or it cannot be used this way (a method written, a read-only
/// property set).
using UnknownMember = ErrorOf<ErrorKind::UnknownMember>;
/// A call with too few or too many arguments.
using ArgumentCount = ErrorOf<ErrorKind::ArgumentCount>;
/// A value that cannot be read as the type that is wanted.
using TypeMismatch = ErrorOf<ErrorKind::TypeMismatch>;

} // namespace tablio
