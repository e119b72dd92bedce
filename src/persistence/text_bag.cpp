#include <tablio/text_bag.h>

#include "model/text/ascii.h"
#include "persistence/text_form.h"

#include <tablio/errors.h>

#include <algorithm>
#include <charconv>

namespace tablio {

namespace {

constexpr std::string_view heading = "Tablio properties ";
constexpr int version = 1;

[[noreturn]] void failAt(int line, const std::string &what) {
    throw Error("line " + std::to_string(line) + ": " + what);
}

void checkHeading(std::string_view line) {
    int found = 0;
    const char *const end = line.data() + line.size();
    if (line.substr(0, heading.size()) != heading)
        failAt(1, "these are no Tablio properties");
    const auto read = std::from_chars(line.data() + heading.size(), end, found);
    if (read.ec != std::errc() || read.ptr != end || found < 1)
        failAt(1, "the version is no number");
    if (found > version)
        failAt(1, "version " + std::to_string(found) + " is later than version " +
                      std::to_string(version) + ", which is known here");
}

} // namespace

TextBag TextBag::parse(std::string_view text) {
    TextBag bag;
    for (int number = 1; number == 1 || !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        // What an editor on another system may have added.
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (number == 1) {
            checkHeading(line);
        } else if (!line.empty()) {
            try {
                auto [name, value] = textform::fromLine(line);
                if (bag.contains(name))
                    throw Error("\"" + name + "\" stands here a second time");
                bag.store(name, std::move(value));
            } catch (const Error &error) {
                failAt(number, error.what());
            }
        }
    }
    return bag;
}

std::string TextBag::text() const {
    std::string result = std::string(heading) + std::to_string(version) + "\n";
    for (const Entry *entry : inOrder())
        result.append(textform::toLine(entry->name, entry->value)).append("\n");
    return result;
}

Value TextBag::readProperty(std::string_view name, const Value &defaultValue) const {
    const auto entry = entries_.find(ascii::lower(name));
    return entry == entries_.end() ? defaultValue : entry->second.value;
}

void TextBag::writeProperty(std::string_view name, const Value &value, const Value &defaultValue) {
    textform::checkName(name);
    if (comparesEqual(value, defaultValue)) {
        entries_.erase(ascii::lower(name));
        return;
    }
    textform::checkStorable(value);
    store(name, value);
}

bool TextBag::contains(std::string_view name) const {
    return entries_.count(ascii::lower(name)) > 0;
}

std::vector<std::string> TextBag::names() const {
    std::vector<std::string> result;
    result.reserve(entries_.size());
    for (const Entry *entry : inOrder())
        result.push_back(entry->name);
    return result;
}

void TextBag::store(std::string_view name, Value value) {
    const auto [place, isNew] = entries_.try_emplace(ascii::lower(name));
    if (isNew)
        place->second = {nextOrder_++, std::string(name), std::move(value)};
    else
        place->second.value = std::move(value);
}

std::vector<const TextBag::Entry *> TextBag::inOrder() const {
    std::vector<const Entry *> result;
    result.reserve(entries_.size());
    for (const auto &[key, entry] : entries_)
        result.push_back(&entry);
    std::sort(result.begin(), result.end(),
              [](const Entry *left, const Entry *right) { return left->order < right->order; });
    return result;
}

} // namespace tablio
