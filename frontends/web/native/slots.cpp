#include "slots.h"

#include <array>
#include <cstring>

namespace tablio::web {

namespace {

/// One value; `element/native.ts` reads and writes the same 24 bytes.
struct Slot {
    /// A Value::Type; of a font its style, too, a bit each and its weight, above four bits.
    std::int32_t tag = 0;
    std::uint32_t length = 0;
    /// A text or a font's family, from where the room begins.
    std::uint32_t text = 0;
    /// A truth, a whole number, a number, a font's size.
    double number = 0;
};
static_assert(sizeof(Slot) == 24);

std::vector<char> room(4096);
std::vector<std::int32_t> replyNumbers;
std::string replyText;

Value valueOf(const Slot &slot) {
    const std::string text(room.data() + slot.text, slot.length);
    const auto style = static_cast<unsigned>(slot.tag) >> 4U;
    switch (static_cast<Value::Type>(slot.tag & 15)) {
    case Value::Type::Boolean:
        return slot.number != 0;
    case Value::Type::Long:
        return static_cast<std::int32_t>(slot.number);
    case Value::Type::Double:
        return slot.number;
    case Value::Type::String:
        return text;
    case Value::Type::Font:
        return Font{text,
                    static_cast<float>(slot.number),
                    (style & 1U) != 0,
                    (style & 2U) != 0,
                    (style & 4U) != 0,
                    (style & 8U) != 0,
                    static_cast<std::int16_t>(style / 16)};
    case Value::Type::Missing:
        return Value::missing();
    default:
        return {};
    }
}

Slot slotOf(const Value &value, std::string &text) {
    Slot slot{static_cast<std::int32_t>(value.type())};
    if (value.type() == Value::Type::Font) {
        const Font font = value.toFont();
        slot.tag += 16 * (int{font.bold} + 2 * int{font.italic} + 4 * int{font.underline} +
                          8 * int{font.strikethrough} + 16 * font.weight);
        slot.number = static_cast<double>(font.size);
        text = font.name;
    } else if (value.type() == Value::Type::String) {
        text = value.toText();
    } else if (value.type() == Value::Type::Boolean) {
        slot.number = value.toBoolean() ? 1 : 0;
    } else if (value.type() >= Value::Type::Integer && value.type() <= Value::Type::Double) {
        slot.number = value.toDouble();
    }
    return slot;
}

} // namespace

char *roomFor(std::size_t size) {
    if (room.size() < size)
        room.resize(size);
    return room.data();
}

Values takeValues(int count) {
    Values values;
    for (std::size_t at = 0; at < static_cast<std::size_t>(count); ++at) {
        Slot slot;
        std::memcpy(&slot, room.data() + at * sizeof slot, sizeof slot);
        values.push_back(valueOf(slot));
    }
    return values;
}

const void *putValues(std::span<const Value> values) {
    std::size_t end = values.size() * sizeof(Slot);
    std::string text;
    for (std::size_t at = 0; at < values.size(); ++at, text.clear()) {
        Slot slot = slotOf(values[at], text);
        std::memcpy(roomFor(end + text.size()) + end, text.data(), text.size());
        slot.length = static_cast<std::uint32_t>(text.size());
        slot.text = static_cast<std::uint32_t>(std::exchange(end, end + text.size()));
        std::memcpy(room.data() + at * sizeof slot, &slot, sizeof slot);
    }
    return room.data();
}

Reply::Reply() {
    replyNumbers.clear();
    replyText.clear();
}

void Reply::addNumber(std::int32_t number) { replyNumbers.push_back(number); }

Reply &Reply::addText(std::string_view text) {
    std::int32_t units = 0;
    for (const char byte : text) {
        const auto bits = static_cast<unsigned char>(byte);
        units += (bits & 0xC0U) == 0x80U ? 0 : bits >= 0xF0U ? 2 : 1;
    }
    replyText += text;
    return add(units);
}

const void *Reply::done() const {
    static std::array<std::size_t, 4> places;
    places = {reinterpret_cast<std::size_t>(replyNumbers.data()), replyNumbers.size(),
              reinterpret_cast<std::size_t>(replyText.data()), replyText.size()};
    return &places;
}

[[clang::export_name("room")]] char *givenRoom(std::size_t size) { return roomFor(size); }

} // namespace tablio::web
