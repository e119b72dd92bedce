#pragma once

/// The errors that the control throws at its callers. They are few on purpose: a bad row or
/// column, and 16-bit arithmetic that does not fit.

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

/// A row, column or count beyond the 16-bit range of the control's arithmetic.
class OverflowError : public Error {
public:
    using Error::Error;
};

} // namespace tablio
