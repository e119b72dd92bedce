#pragma once

/// The errors that the control throws at its callers. They are few on purpose: a bad row or
/// column, 16-bit arithmetic that does not fit, and what a late-bound caller can get wrong.

#include <stdexcept>
#include <string>

namespace tablio {

class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A row, a column or a count that the grid does not have. The message names the operation, the
/// value and the range that is allowed.
class GridError : public Error {
public:
    using Error::Error;
};

/// A row, column or count beyond the 16-bit range of the control's arithmetic, or a value too
/// great for the type it is converted to.
class OverflowError : public Error {
public:
    using Error::Error;
};

/// No member has this name or number, or it cannot be used this way (a method written, a read-only
/// property set).
class UnknownMember : public Error {
public:
    using Error::Error;
};

/// A call with too few or too many arguments.
class ArgumentCount : public Error {
public:
    using Error::Error;
};

/// A value that cannot be read as the type that is wanted.
class TypeMismatch : public Error {
public:
    using Error::Error;
};

} // namespace tablio
