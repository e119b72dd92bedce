#include "persistence/text_form.h"

#include "model/text/double_text.h"
#include "model/text/utf16.h"

#include <tablio/errors.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace tablio::textform {

namespace {

using Type = Value::Type;

constexpr char32_t lastCharacter = 0x10FFFF;
constexpr std::array<std::pair<char, char>, 5> shortEscapes{
    {{'"', '"'}, {'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}}};

constexpr std::array<std::pair<std::string_view, bool Font::*>, 4> fontStyles{
    {{"bold", &Font::bold},
     {"italic", &Font::italic},
     {"underline", &Font::underline},
     {"strikethrough", &Font::strikethrough}}};

bool isNameCharacter(char character) noexcept {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_' || character == '.' ||
           character == '-';
}

bool isPrintable(char character) noexcept { return character >= ' ' && character <= '~'; }

bool isSurrogate(char32_t character) noexcept { return character >= 0xD800 && character <= 0xDFFF; }

// ---- writing -----------------------------------------------------------------

/// Whether the text is read as this number. With few digits the greatest numbers become greater.
template <typename Number> bool isReadAs(const std::string &text, Number number) {
    try {
        return static_cast<Number>(Value(text).toDouble()) == number;
    } catch (const TypeMismatch &) {
        return false;
    }
}

/// The fewest digits that read back as the same number. Zero has no sign, and what is so near to it
/// that no digits read back is zero.
template <typename Number> std::string shortest(Number number) {
    for (int digits = std::numeric_limits<Number>::digits10;
         digits <= std::numeric_limits<Number>::max_digits10 && number != 0; ++digits) {
        std::string text = textOfDouble(number, digits, 'e');
        if (isReadAs(text, number))
            return text;
    }
    return "0";
}

std::string inBraces(char letter, std::uint32_t number) {
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    std::string text{'\\', letter, '{'};
    text.append(digits.data(), end);
    std::transform(text.begin() + 3, text.end(), text.begin() + 3, [](char digit) {
        return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
    });
    return text.append("}");
}

/// The character at the start of a text, if a well-formed one stands there.
std::optional<char32_t> wholeCharacter(std::string_view bytes) {
    const char32_t character = utf16::characters(bytes).front();
    std::string again;
    utf16::append(again, character);
    if (again != bytes || character > lastCharacter || isSurrogate(character))
        return std::nullopt;
    return character;
}

std::string inQuotes(std::string_view text) {
    std::string result = "\"";
    while (!text.empty()) {
        const char first = text.front();
        const auto escape = std::find_if(shortEscapes.begin(), shortEscapes.end(),
                                         [first](auto pair) { return pair.first == first; });
        std::size_t taken = 1;
        if (escape != shortEscapes.end()) {
            result.append({'\\', escape->second});
        } else if (isPrintable(first)) {
            result += first;
        } else {
            const std::size_t bytes = utf16::characterAt(text, 0).bytes;
            if (const auto character = wholeCharacter(text.substr(0, bytes))) {
                result += inBraces('u', *character);
                taken = bytes;
            } else {
                result += inBraces('x', static_cast<unsigned char>(first));
            }
        }
        text.remove_prefix(taken);
    }
    return result.append("\"");
}

std::string fontText(const Font &font) {
    std::string text = inQuotes(font.name).append(" ").append(shortest(font.size));
    for (const auto &[name, member] : fontStyles)
        text.append(font.*member ? " " : "").append(font.*member ? name : "");
    return font.weight == 0 ? text : text.append(" weight ").append(std::to_string(font.weight));
}

// ---- reading -----------------------------------------------------------------

/// Takes the parts of a line from left to right.
class Scanner {
public:
    explicit Scanner(std::string_view rest) : rest_(rest) {}

    [[nodiscard]] bool atEnd() const noexcept { return rest_.empty(); }

    /// Everything up to the next blank, which is taken too.
    std::string_view word() {
        const std::string_view found = rest_.substr(0, rest_.find(' '));
        rest_.remove_prefix(found.size());
        skipBlank();
        return found;
    }

    std::string text() {
        if (!take('"'))
            throw Error("a text has to begin with a quotation mark");
        std::string result;
        while (!take('"'))
            addCharacter(result);
        skipBlank();
        return result;
    }

private:
    void skipBlank() {
        if (!rest_.empty() && !take(' '))
            throw Error("a blank is missing before \"" + std::string(rest_.substr(0, 20)) + "\"");
    }

    bool take(char character) noexcept {
        if (rest_.empty() || rest_.front() != character)
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    char next() {
        if (rest_.empty())
            throw Error("the closing quotation mark is missing");
        const char character = rest_.front();
        rest_.remove_prefix(1);
        return character;
    }

    void addCharacter(std::string &result) {
        const char character = next();
        if (!isPrintable(character))
            throw Error("a character that is not printable ASCII has to be written as \\u{number}");
        if (character != '\\') {
            result += character;
            return;
        }
        const char letter = next();
        const auto escape = std::find_if(shortEscapes.begin(), shortEscapes.end(),
                                         [letter](auto pair) { return pair.second == letter; });
        if (escape != shortEscapes.end())
            result += escape->first;
        else if (letter == 'u')
            utf16::append(result, number(lastCharacter));
        else if (letter == 'x')
            result += static_cast<char>(number(0xFF));
        else
            throw Error(std::string("unknown escape \\") + letter);
    }

    /// A hexadecimal number in braces.
    std::uint32_t number(std::uint32_t greatest) {
        const std::size_t end = rest_.find('}');
        std::uint32_t result = 0;
        if (end == std::string_view::npos || !take('{'))
            throw Error("an escape needs a number in braces");
        const char *last = rest_.data() + end - 1;
        const auto read = std::from_chars(rest_.data(), last, result, 16);
        if (read.ec != std::errc() || read.ptr != last || result > greatest)
            throw Error("the number of an escape is no hexadecimal number or too great");
        rest_.remove_prefix(end);
        return result;
    }

    std::string_view rest_;
};

[[noreturn]] void noSuchValue(std::string_view word, std::string_view typeName) {
    throw Error("\"" + std::string(word) + "\" is no " + std::string(typeName));
}

template <typename Number> Number wholeNumber(std::string_view word, std::string_view typeName) {
    Number number = 0;
    const auto read = std::from_chars(word.data(), word.data() + word.size(), number);
    if (read.ec != std::errc() || read.ptr != word.data() + word.size())
        noSuchValue(word, typeName);
    return number;
}

double number(std::string_view word, std::string_view typeName) {
    try {
        return Value(word).toDouble();
    } catch (const TypeMismatch &) {
        noSuchValue(word, typeName);
    }
}

Font font(Scanner &scanner) {
    Font result;
    result.name = scanner.text();
    const std::string_view size = scanner.word();
    const double points = number(size, "font size");
    if (std::abs(points) > std::numeric_limits<float>::max())
        noSuchValue(size, "font size");
    result.size = static_cast<float>(points);
    while (!scanner.atEnd()) {
        const std::string_view word = scanner.word();
        const auto style = std::find_if(fontStyles.begin(), fontStyles.end(),
                                        [word](const auto &one) { return one.first == word; });
        if (style != fontStyles.end())
            result.*(style->second) = true;
        else if (word == "weight")
            result.weight = wholeNumber<std::int16_t>(scanner.word(), "font weight");
        else
            noSuchValue(word, "font style");
    }
    return result;
}

Value valueOf(std::string_view typeName, Scanner &scanner) {
    if (typeName == nameOf(Type::Empty))
        return {};
    if (typeName == nameOf(Type::String))
        return scanner.text();
    if (typeName == nameOf(Type::Font))
        return font(scanner);
    const std::string_view word = scanner.word();
    if (typeName == nameOf(Type::Integer))
        return wholeNumber<std::int16_t>(word, typeName);
    if (typeName == nameOf(Type::Long))
        return wholeNumber<std::int32_t>(word, typeName);
    if (typeName == nameOf(Type::Double))
        return number(word, typeName);
    if (typeName != nameOf(Type::Boolean))
        throw Error("\"" + std::string(typeName) + "\" is no type of a stored value");
    if (word != "True" && word != "False")
        noSuchValue(word, typeName);
    return word == "True";
}

} // namespace

void checkName(std::string_view name) {
    if (name.empty() || !std::all_of(name.begin(), name.end(), isNameCharacter))
        throw Error("\"" + std::string(name) + "\" is no name of a stored value");
}

void checkStorable(const Value &value) {
    if (value.type() == Type::Object || value.type() == Type::Missing)
        throw TypeMismatch("a value of type " + std::string(nameOf(value.type())) +
                           " cannot be stored");
    if ((value.type() == Type::Double && !std::isfinite(value.toDouble())) ||
        (value.type() == Type::Font && !std::isfinite(value.toFont().size)))
        throw TypeMismatch("a number that is not finite cannot be stored");
}

std::string toLine(std::string_view name, const Value &value) {
    std::string line(name);
    line.append(" ").append(nameOf(value.type()));
    switch (value.type()) {
    case Type::Empty:
        return line;
    case Type::String:
        return line.append(" ").append(inQuotes(value.toText()));
    case Type::Font:
        return line.append(" ").append(fontText(value.toFont()));
    case Type::Double:
        return line.append(" ").append(shortest(value.toDouble()));
    default:
        return line.append(" ").append(value.toText());
    }
}

std::pair<std::string, Value> fromLine(std::string_view line) {
    Scanner scanner(line);
    std::string name(scanner.word());
    checkName(name);
    const std::string_view typeName = scanner.word();
    Value value = valueOf(typeName, scanner);
    if (!scanner.atEnd())
        throw Error("the line goes on after its value");
    return {std::move(name), std::move(value)};
}

} // namespace tablio::textform
