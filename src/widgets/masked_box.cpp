#include "widgets/masked_box.h"

#include "model/text/ascii.h"
#include "model/text/date_reader.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tablio {

namespace {

using ascii::isDigit;

constexpr int places = 10;

bool isSeparator(char character) noexcept {
    return character == '/' || character == '.' || character == '-';
}

bool isSlash(int position) noexcept { return position == 2 || position == 5; }

bool hasShape(std::string_view text) noexcept {
    if (text.size() != static_cast<std::size_t>(places))
        return false;
    for (int position = 0; position < places; ++position) {
        const char character = text[static_cast<std::size_t>(position)];
        if (isSlash(position) ? character != '/' : character != '_' && !isDigit(character))
            return false;
    }
    return true;
}

/// Types one character into a text of the mask's shape; answers the caret behind it.
int typed(std::string &text, int caret, char character) {
    if (isDigit(character)) {
        const int place = isSlash(caret) ? caret + 1 : caret;
        if (place >= places)
            return caret;
        text[static_cast<std::size_t>(place)] = character;
        return isSlash(place + 1) ? place + 2 : place + 1;
    }
    // "5/" means the fifth: the digit moves up behind a zero.
    const int section = caret <= 2 ? 0 : 3;
    char &first = text[static_cast<std::size_t>(section)];
    char &second = text[static_cast<std::size_t>(section) + 1];
    if (caret == section + 1 && second == '_') {
        second = std::exchange(first, '0');
        return section + 3;
    }
    return isSlash(caret) ? caret + 1 : caret;
}

} // namespace

MaskedBox::MaskedBox(WidgetId id, WidgetListener &listener) : TextField(id, listener) { load({}); }

bool MaskedBox::fit(std::string &text) const {
    if (hasShape(text))
        return true;
    std::optional<std::string> date = readDate(text, DateOrder::DayMonthYear);
    text = date ? std::move(*date) : std::string(blankText);
    return date.has_value();
}

void MaskedBox::replace(int from, int to, std::string_view text) {
    const bool isTyping = !text.empty();
    const auto fits = [](char character) { return isDigit(character) || isSeparator(character); };
    if (isTyping && !std::all_of(text.begin(), text.end(), fits))
        return;
    // A slash stays where it is: the key that would delete it deletes its neighbour.
    if (!isTyping && to == from + 1 && isSlash(from) && SelLength() == 0) {
        from += caret() == from ? 1 : -1;
        to = from + 1;
    }
    std::string result = Text();
    for (int place = from; place < to && (!isTyping || isDigit(text.front())); ++place) {
        if (!isSlash(place))
            result[static_cast<std::size_t>(place)] = '_';
    }
    int caret = from;
    for (const char character : text)
        caret = typed(result, caret, character);
    if (!isTyping || caret != from)
        put(std::move(result), caret, caret);
}

} // namespace tablio
