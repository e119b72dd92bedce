#pragma once

/// Values, texts and numbers on their way between the page and the control. Each side reads what
/// the other has left before it calls anything else.

#include <tablio/dispatch.h>

#include <string_view>

namespace tablio::web {

/// Room for so many bytes, which the page fills for its next call.
char *roomFor(std::size_t size);
/// The values in the first slots of the room.
[[nodiscard]] Values takeValues(int count);
/// Puts them there, and answers where the room is now.
const void *putValues(std::span<const Value> values);

/// Collects an answer that is no value: whole numbers, and texts behind one another. There is one.
class Reply {
public:
    Reply();
    template <typename... Numbers> Reply &add(Numbers... numbers) {
        (addNumber(static_cast<std::int32_t>(numbers)), ...);
        return *this;
    }
    /// Its number of UTF-16 units stands among the numbers.
    Reply &addText(std::string_view text);
    /// Where numbers, their count, texts and their length are.
    [[nodiscard]] const void *done() const;

private:
    static void addNumber(std::int32_t number);
};

} // namespace tablio::web
