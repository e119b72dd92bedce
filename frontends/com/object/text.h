#pragma once

/// Text at the border: the control's is UTF-8, the platform's is UTF-16, with or without a counted
/// string of its own (BSTR). What is no valid text becomes U+FFFD on either way.

#include <windows.h>

#include <ole2.h>

#include <string>
#include <string_view>
#include <utility>

namespace tablio::com {

using WideText = std::basic_string<OLECHAR>;
using WideView = std::basic_string_view<OLECHAR>;

[[nodiscard]] WideText wide(std::string_view text);
/// Into a text that is kept from call to call, so that painting asks for no memory.
void widen(std::string_view text, WideText &result);
[[nodiscard]] std::string narrow(WideView text);

/// Of a BSTR, which may be null for an empty one.
[[nodiscard]] inline WideView viewOf(BSTR text) noexcept {
    return text == nullptr ? WideView{} : WideView{text, SysStringLen(text)};
}
/// The caller owns it. Throws std::bad_alloc.
[[nodiscard]] BSTR newBstr(std::string_view text);

/// Owns a BSTR.
class Bstr {
public:
    Bstr() noexcept = default;
    explicit Bstr(std::string_view text) : text_(newBstr(text)) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr &) = delete;
    Bstr &operator=(const Bstr &) = delete;

    [[nodiscard]] BSTR get() const noexcept { return text_; }
    /// For a function that answers one.
    [[nodiscard]] BSTR *out() noexcept { return &text_; }
    [[nodiscard]] std::string text() const { return narrow(viewOf(text_)); }

private:
    BSTR text_ = nullptr;
};

} // namespace tablio::com
