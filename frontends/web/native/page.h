#pragma once

/// What the module asks of the page: the functions that `element/native.ts` gives it when it is
/// loaded. Those about a grid are functions of `Face`; none of them throws but `tablio_fail`.

#include <cstddef>
#include <cstdint>

extern "C" {
/// Throws this error in the page.
[[noreturn]] void tablio_fail(int kind, int argument, const char *message, std::size_t length);
/// What came of an event: a handler has thrown, or the arguments in the room are other ones, or
/// not.
enum class Heard : int { Threw, Changed, Unchanged };
/// Raises an event, its arguments in the room.
Heard tablio_event(int grid, int number, int count);

void tablio_shown(int grid);
/// There is something to be painted.
void tablio_changed(int grid);
bool tablio_can_take_focus(int grid);
void tablio_take_focus(int grid);
void tablio_pop_up_menu(int grid, int x, int y);
/// A warning or a question: title and text, with a line end between them.
void tablio_message(int grid, bool isQuestion, const char *text, std::size_t length);
void tablio_property_changed(int grid, int number);
void tablio_key_preview(int grid, bool preview);
std::uint32_t tablio_case(std::uint32_t character, bool upper);
/// year * 10,000 + month * 100 + day.
int tablio_today();
}
