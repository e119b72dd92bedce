#pragma once

/// What went wrong, as hosts hear of it: the control's errors as the platform's codes, and what a
/// host's own handler reported, on its way back to the caller.

#include <windows.h>

#include <ole2.h>

#include <exception>
#include <string>

namespace tablio::com {

/// Numbers of our own, which docs/windows.md tells.
inline constexpr HRESULT gridErrorNumber = static_cast<HRESULT>(0x80040201);
inline constexpr HRESULT otherErrorNumber = static_cast<HRESULT>(0x80040202);

struct Failure {
    /// What IDispatch::Invoke answers; DISP_E_EXCEPTION for what has a number and a text.
    HRESULT code = DISP_E_EXCEPTION;
    HRESULT number = otherErrorNumber;
    std::string description;
    std::string source = "Tablio";
    /// Which argument is wrong, or −1.
    int argument = -1;
};

/// A handler of the host has failed.
class HandlerFailed : public std::exception {
public:
    explicit HandlerFailed(Failure failure) : failure_(std::move(failure)) {}
    [[nodiscard]] const char *what() const noexcept override {
        return failure_.description.c_str();
    }
    [[nodiscard]] const Failure &failure() const noexcept { return failure_; }

private:
    Failure failure_;
};

/// Of the exception that is being handled.
[[nodiscard]] Failure failureOfException() noexcept;

} // namespace tablio::com
