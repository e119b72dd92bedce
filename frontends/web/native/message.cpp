#include "message.h"

#include <array>
#include <vector>

namespace tablio::web {

namespace {

std::vector<double> room(512);
std::vector<double> numbers;
std::string texts;

} // namespace

Message::Message() {
    numbers.clear();
    texts.clear();
}

void Message::addNumber(double number) { numbers.push_back(number); }

void Message::addText(std::string_view text) {
    int units = 0;
    for (const char byte : text) {
        const auto bits = static_cast<unsigned char>(byte);
        units += (bits & 0xC0U) == 0x80U ? 0 : bits >= 0xF0U ? 2 : 1;
    }
    texts += text;
    addNumber(units);
}

void Message::addValue(const Value &value) {
    const Value::Type type = value.type();
    if (type == Value::Type::Font) {
        const Font font = value.toFont();
        const int style = int{font.bold} + 2 * int{font.italic} + 4 * int{font.underline} +
                          8 * int{font.strikethrough} + 16 * font.weight;
        add(static_cast<int>(type) + 16 * style, font.size, font.name);
    } else {
        const bool isNumber = type >= Value::Type::Boolean && type <= Value::Type::Double;
        add(type, isNumber ? value.toDouble() : 0,
            type == Value::Type::String ? value.toText() : std::string());
    }
}

const void *Message::done() const {
    static std::array<std::size_t, 4> places;
    places = {reinterpret_cast<std::size_t>(numbers.data()), numbers.size(),
              reinterpret_cast<std::size_t>(texts.data()), texts.size()};
    return &places;
}

Given::Given(std::size_t count)
    : numbers_(room.data()), texts_(reinterpret_cast<const char *>(room.data() + count)) {}

std::string Given::text() {
    const auto length = next<std::size_t>();
    return {std::exchange(texts_, texts_ + length), length};
}

Value Given::value() {
    const auto tag = next<unsigned>();
    const double held = number();
    std::string words = text();
    const auto has = [tag](unsigned bit) { return (tag >> bit & 1U) != 0; };
    switch (static_cast<Value::Type>(tag & 15U)) {
    case Value::Type::Boolean:
        return held != 0;
    case Value::Type::Long:
        return static_cast<std::int32_t>(held);
    case Value::Type::Double:
        return held;
    case Value::Type::String:
        return words;
    case Value::Type::Font:
        return Font{words,
                    static_cast<float>(held),
                    has(4),
                    has(5),
                    has(6),
                    has(7),
                    static_cast<std::int16_t>(tag >> 8U)};
    case Value::Type::Missing:
        return Value::missing();
    default:
        return {};
    }
}

/// Room for so many bytes, which the page fills for its next call.
[[clang::export_name("room")]] double *roomFor(std::size_t size) {
    if (room.size() * sizeof(double) < size)
        room.resize(size / sizeof(double) + 1);
    return room.data();
}

} // namespace tablio::web
