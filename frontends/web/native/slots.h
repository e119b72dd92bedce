#pragma once

/// Values, texts and numbers on their way between the page and the control. Each side reads what
/// the other has left before it calls anything else.

#include <tablio/dispatch.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace tablio::web {

/// Room for so many bytes, which the page fills for its next call.
char *roomFor(std::size_t size);
/// The values in the first slots of the room.
[[nodiscard]] Values takeValues(int count);
/// Puts them there, and answers where the room is now.
const void *putValues(std::span<const Value> values);

/// An answer that is no value: whole numbers, and texts behind one another.
struct Reply {
    const std::int32_t *numbers = nullptr;
    std::uint32_t count = 0;
    const char *text = nullptr;
    std::uint32_t length = 0;
};

/// Collects the one reply that there is.
class ReplyWriter {
public:
    ReplyWriter();
    template <typename... Numbers> ReplyWriter &add(Numbers... numbers) {
        (addNumber(static_cast<std::int32_t>(numbers)), ...);
        return *this;
    }
    /// Its number of UTF-16 units stands among the numbers.
    ReplyWriter &addText(std::string_view text);
    [[nodiscard]] const Reply *done() const;

private:
    static void addNumber(std::int32_t number);
};

} // namespace tablio::web
