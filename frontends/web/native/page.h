#pragma once

/// What the module asks of the page: the functions that `element/native.ts` gives it when it is
/// loaded. `tablio_page` is told by a number which function of `GridPage` is meant.

#include <cstddef>

namespace tablio::web {

/// In the order of `asked` in `element/native.ts`.
enum class Ask : int {
    Event,
    Shown,
    Changed,
    CanTakeFocus,
    TakeFocus,
    PopUpMenu,
    ShowMessage,
    PropertyChanged,
    KeyPreview,
    InCase,
    Today,
    LineHeight,
    TextWidth,
};

/// What came of an event.
enum class Heard : int { Unchanged, Changed, Threw };

} // namespace tablio::web

extern "C" {
/// Throws this error in the page.
[[noreturn]] void tablio_fail(int kind, int argument, const char *message, std::size_t length);
/// Answers 0 where there is nothing to answer. It does not throw.
double tablio_page(int grid, tablio::web::Ask what, double a, double b, const char *text,
                   std::size_t length);
/// The double that is nearest to a decimal number, an exponent behind it.
double tablio_number(const char *text, std::size_t length);
}
