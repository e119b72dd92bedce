#include "slots.h"

#include <cstring>
#include <string>
#include <vector>

namespace tablio::web {

namespace {

/// One value; `element/native.ts` reads and writes the same 24 bytes.
struct Slot {
    /// A Value::Type.
    std::int32_t tag = 0;
    /// A whole number, a font's style.
    std::int32_t integer = 0;
    /// A number or a font's size, a text or a font's family.
    double number = 0;
    const char *text = nullptr;
    std::uint32_t length = 0;
};
static_assert(sizeof(Slot) == 24);

constexpr int weightUnit = 16;

std::vector<char> room(4096);
std::vector<std::int32_t> replyNumbers;
std::string replyText;

Value valueOf(const Slot &slot) {
    const std::string_view text(slot.text, slot.length);
    switch (static_cast<Value::Type>(slot.tag)) {
    case Value::Type::Boolean:
        return slot.integer != 0;
    case Value::Type::Long:
        return slot.integer;
    case Value::Type::Double:
        return slot.number;
    case Value::Type::String:
        return text;
    case Value::Type::Font: {
        const auto style = static_cast<unsigned>(slot.integer);
        return Font{std::string(text),
                    static_cast<float>(slot.number),
                    (style & 1U) != 0,
                    (style & 2U) != 0,
                    (style & 4U) != 0,
                    (style & 8U) != 0,
                    static_cast<std::int16_t>(style / weightUnit)};
    }
    case Value::Type::Missing:
        return Value::missing();
    default:
        return {};
    }
}

/// Its text goes behind all others, until these have a place.
Slot slotOf(const Value &value, std::string &texts) {
    Slot slot{static_cast<std::int32_t>(value.type())};
    std::string text;
    if (value.type() == Value::Type::Double) {
        slot.number = value.toDouble();
    } else if (value.type() == Value::Type::String) {
        text = value.toText();
    } else if (value.type() == Value::Type::Font) {
        Font font = value.toFont();
        slot.integer = int{font.bold} + 2 * int{font.italic} + 4 * int{font.underline} +
                       8 * int{font.strikethrough} + weightUnit * font.weight;
        slot.number = static_cast<double>(font.size);
        text = std::move(font.name);
    } else if (value.type() != Value::Type::Empty && !value.isMissing()) {
        slot.integer =
            value.type() == Value::Type::Boolean ? int{value.toBoolean()} : value.toLong();
    }
    slot.length = static_cast<std::uint32_t>(text.size());
    texts += text;
    return slot;
}

const void *put(std::span<Slot> slots, const std::string &texts) {
    char *const base = roomFor(slots.size_bytes() + texts.size());
    const char *text = base + slots.size_bytes();
    for (Slot &slot : slots)
        slot.text = std::exchange(text, text + slot.length);
    std::memcpy(base, slots.data(), slots.size_bytes());
    std::memcpy(base + slots.size_bytes(), texts.data(), texts.size());
    return base;
}

} // namespace

char *roomFor(std::size_t size) {
    if (room.size() < size)
        room.resize(size);
    return room.data();
}

Values takeValues(int count) {
    std::vector<Slot> slots(static_cast<std::size_t>(count));
    std::memcpy(slots.data(), room.data(), slots.size() * sizeof(Slot));
    Values values;
    values.reserve(slots.size());
    for (const Slot &slot : slots)
        values.push_back(valueOf(slot));
    return values;
}

const void *putValues(std::span<const Value> values) {
    std::vector<Slot> slots;
    slots.reserve(values.size());
    std::string texts;
    for (const Value &value : values)
        slots.push_back(slotOf(value, texts));
    return put(slots, texts);
}

ReplyWriter::ReplyWriter() {
    replyNumbers.clear();
    replyText.clear();
}

void ReplyWriter::addNumber(std::int32_t number) { replyNumbers.push_back(number); }

ReplyWriter &ReplyWriter::addText(std::string_view text) {
    std::int32_t units = 0;
    for (const char byte : text) {
        const auto bits = static_cast<unsigned char>(byte);
        units += (bits & 0xC0U) == 0x80U ? 0 : bits >= 0xF0U ? 2 : 1;
    }
    replyText += text;
    return add(units);
}

const Reply *ReplyWriter::done() const {
    static Reply reply;
    reply = {replyNumbers.data(), static_cast<std::uint32_t>(replyNumbers.size()), replyText.data(),
             static_cast<std::uint32_t>(replyText.size())};
    return &reply;
}

[[clang::export_name("room")]] char *room_(std::size_t size) { return roomFor(size); }

} // namespace tablio::web
