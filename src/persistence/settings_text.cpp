#include <tablio/settings_text.h>

#include "persistence/stored_keys.h"

#include <tablio/errors.h>
#include <tablio/members.h>
#include <tablio/tablio.h>

#include <algorithm>

namespace tablio {

namespace {

/// Whether the control itself writes or reads what has this name.
bool isKnown(std::string_view name) {
    const auto all = members();
    const bool isGeneral = std::any_of(all.begin(), all.end(), [&](const Member &member) {
        return member.stored.read > 0 && sameName(member.name, name);
    });
    const std::size_t end = name.find_last_not_of("0123456789") + 1;
    const std::string_view base = name.substr(0, end);
    const auto columns = columnKeys();
    return isGeneral || (end < name.size() &&
                         std::any_of(columns.begin(), columns.end(), [&](const ColumnKey &key) {
                             return sameName(key.name, base) || sameName(key.readName, base);
                         }));
}

} // namespace

void SettingsText::load(std::string_view text) {
    try {
        loaded_ = TextBag::parse(text);
    } catch (const Error &error) {
        unread_ = text;
        problem_ = error.what();
        loaded_ = {};
        standing_ = written();
        return;
    }
    problem_.clear();
    unread_.clear();
    control_.loadSettings(loaded_);
}

std::string SettingsText::text() const { return isKept() ? unread_ : written(); }

std::string SettingsText::problem() const { return isKept() ? problem_ : std::string(); }

std::string SettingsText::written() const {
    TextBag bag;
    control_.saveSettings(bag);
    for (const std::string &name : loaded_.names()) {
        if (!isKnown(name))
            bag.writeProperty(name, loaded_.readProperty(name, {}), Value::missing());
    }
    return bag.text();
}

} // namespace tablio
