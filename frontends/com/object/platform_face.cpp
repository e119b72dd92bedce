#include "object/platform_face.h"

#include "object/text.h"

#include <array>
#include <cstring>

namespace tablio::com {

namespace {

/// One of a language's settings for numbers and dates, the user's own where it is the user's.
WideText localeText(LCID locale, LCTYPE type) {
    std::array<OLECHAR, 80> text{};
    const int length = GetLocaleInfoW(locale, type, text.data(), text.size());
    return {text.data(), static_cast<std::size_t>(length > 0 ? length - 1 : 0)};
}

/// "3;0" are groups of three all the way, "3;2;0" one of three and then of two, "0" none at all.
void readGroups(std::string_view grouping, NumberFormat &format) {
    const auto digit = [grouping](std::size_t place) {
        return place < grouping.size() ? grouping[place] - '0' : 0;
    };
    format.groupSize = digit(0);
    format.nextGroupSize = digit(2);
}

char32_t mapped(char32_t character, DWORD how) {
    if (character >= 0x10000)
        return character;
    const OLECHAR from = static_cast<OLECHAR>(character);
    OLECHAR to = from;
    return LCMapStringW(LOCALE_USER_DEFAULT, how, &from, 1, &to, 1) == 1 ? to : character;
}

/// The clipboard is one for all programs, and is another's now and then.
class OpenClipboardGuard {
public:
    OpenClipboardGuard() noexcept : isOpen_(OpenClipboard(nullptr) != 0) {}
    ~OpenClipboardGuard() {
        if (isOpen_)
            CloseClipboard();
    }
    OpenClipboardGuard(const OpenClipboardGuard &) = delete;
    OpenClipboardGuard &operator=(const OpenClipboardGuard &) = delete;
    explicit operator bool() const noexcept { return isOpen_; }

private:
    bool isOpen_;
};

} // namespace

std::string PlatformFace::clipboardText() {
    const OpenClipboardGuard clipboard;
    if (!clipboard)
        return {};
    const HANDLE handle = GetClipboardData(CF_UNICODETEXT);
    const auto *units =
        handle != nullptr ? static_cast<const OLECHAR *>(GlobalLock(handle)) : nullptr;
    if (units == nullptr)
        return {};
    WideView text(units, GlobalSize(handle) / sizeof(OLECHAR));
    text = text.substr(0, text.find(OLECHAR{0}));
    std::string result = narrow(text);
    GlobalUnlock(handle);
    return result;
}

void PlatformFace::setClipboardText(std::string_view text) {
    const OpenClipboardGuard clipboard;
    if (!clipboard)
        return;
    const WideText units = wide(text);
    const std::size_t bytes = (units.size() + 1) * sizeof(OLECHAR);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (memory == nullptr)
        return;
    std::memcpy(GlobalLock(memory), units.c_str(), bytes);
    GlobalUnlock(memory);
    EmptyClipboard();
    if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr)
        GlobalFree(memory);
}

NumberFormat PlatformFace::numberFormat() const {
    if (!numbers_) {
        const LCID locale = host_.locale();
        numbers_ = NumberFormat{narrow(localeText(locale, LOCALE_SDECIMAL)),
                                narrow(localeText(locale, LOCALE_STHOUSAND)), 0, 0};
        readGroups(narrow(localeText(locale, LOCALE_SGROUPING)), *numbers_);
    }
    return *numbers_;
}

char32_t PlatformFace::toUpper(char32_t character) const {
    return mapped(character, LCMAP_UPPERCASE | LCMAP_LINGUISTIC_CASING);
}

char32_t PlatformFace::toLower(char32_t character) const {
    return mapped(character, LCMAP_LOWERCASE | LCMAP_LINGUISTIC_CASING);
}

Date PlatformFace::today() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay};
}

DateOrder PlatformFace::dateOrder() const {
    const WideText picture = localeText(host_.locale(), LOCALE_SSHORTDATE);
    const std::size_t day = picture.find(OLECHAR{'d'});
    if (picture.find(OLECHAR{'y'}) < day)
        return DateOrder::YearMonthDay;
    return picture.find(OLECHAR{'M'}) < day ? DateOrder::MonthDayYear : DateOrder::DayMonthYear;
}

} // namespace tablio::com
