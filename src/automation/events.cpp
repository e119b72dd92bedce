/// The events by number: their part of the member table, and the host that hands each of them on.

#include <tablio/dispatch.h>
#include <tablio/errors.h>
#include <tablio/members.h>

#include "automation/value_as.h"

#include <algorithm>
#include <array>
#include <string>

namespace tablio {

namespace {

/// The arguments of an event under these names, in the types of its typed function.
template <typename... Parameters, std::size_t count>
constexpr std::array<Argument, count> arguments(void (HostEvents::* /*event*/)(Parameters &...),
                                                const char *const (&names)[count]) {
    std::size_t place = 0;
    return {Argument{names[place++], memberTypeOf<Parameters>, false, 0, true}...};
}

constexpr std::array editStart =
    arguments(&HostEvents::EditPreValidation, {"Row", "Col", "Cancel"});
constexpr std::array editChange = arguments(&HostEvents::EditOnChange, {"Row", "Col", "OnEdit"});
constexpr std::array editEnd = arguments(&HostEvents::EditPostValidation,
                                         {"Row", "Col", "Valid", "OldData", "NewData", "LastKey"});
constexpr std::array cell = arguments(&HostEvents::CellFocus, {"Row", "Col"});
constexpr std::array keyPress = arguments(&HostEvents::CellKeyPress, {"Row", "Col", "KeyAscii"});
constexpr std::array keyDown =
    arguments(&HostEvents::TableKeyDown, {"KeyCode", "Shift", "Row", "Col"});
constexpr std::array rowChange = arguments(&HostEvents::TableRowChange, {"OldRow", "NewRow"});

/// By their numbers, from 1.
constexpr std::array eventTable{
    Event{"EditPreValidation", 1, editStart},
    Event{"EditOnChange", 2, editChange},
    Event{"EditPostValidation", 3, editEnd},
    Event{"EditLookup", 4, cell},
    Event{"CellFocus", 5, cell},
    Event{"CellKeyPress", 6, keyPress},
    Event{"TableChange", 7, {}},
    Event{"TableKeyDown", 8, keyDown},
    Event{"TableRowChange", 9, rowChange},
    Event{"DoubleClick", 10, cell},
};

class Relay final : public HostEvents {
public:
    explicit Relay(EventSink &sink) noexcept : sink_(sink) {}

    void EditPreValidation(std::int16_t &Row, std::int16_t &Col, bool &Cancel) override {
        raise("EditPreValidation", Row, Col, Cancel);
    }
    void EditOnChange(std::int16_t &Row, std::int16_t &Col, std::string &OnEdit) override {
        raise("EditOnChange", Row, Col, OnEdit);
    }
    void EditPostValidation(std::int16_t &Row, std::int16_t &Col, bool &Valid, std::string &OldData,
                            std::string &NewData, std::int16_t &LastKey) override {
        raise("EditPostValidation", Row, Col, Valid, OldData, NewData, LastKey);
    }
    void EditLookup(std::int16_t &Row, std::int16_t &Col) override {
        raise("EditLookup", Row, Col);
    }
    void CellFocus(std::int16_t &Row, std::int16_t &Col) override { raise("CellFocus", Row, Col); }
    void CellKeyPress(std::int16_t &Row, std::int16_t &Col, std::int16_t &KeyAscii) override {
        raise("CellKeyPress", Row, Col, KeyAscii);
    }
    void TableChange() override { raise("TableChange"); }
    void TableKeyDown(std::int16_t &code, std::int16_t &shift, std::int16_t &Row,
                      std::int16_t &Col) override {
        raise("TableKeyDown", code, shift, Row, Col);
    }
    void TableRowChange(std::int16_t &OldRow, std::int16_t &NewRow) override {
        raise("TableRowChange", OldRow, NewRow);
    }
    void DoubleClick(std::int16_t &Row, std::int16_t &Col) override {
        raise("DoubleClick", Row, Col);
    }

private:
    /// Hands an event on, then takes over what the sink has made of the arguments.
    template <typename... Arguments> void raise(std::string_view name, Arguments &...arguments) {
        const Event &event = findEvent(name);
        Values values{Value(arguments)...};
        sink_.event(event.number, values);
        for (std::size_t place = 0; place < values.size(); ++place)
            values[place] = convertedTo(event.arguments[place].type, values[place]);
        std::size_t place = 0;
        ((arguments = valueAs<Arguments>(values[place++])), ...);
    }

    EventSink &sink_;
};

} // namespace

std::unique_ptr<HostEvents> relayTo(EventSink &sink) { return std::make_unique<Relay>(sink); }

std::span<const Event> events() noexcept { return eventTable; }

const Event &findEvent(std::string_view name) {
    const auto found = std::find_if(eventTable.begin(), eventTable.end(),
                                    [name](const Event &one) { return sameName(one.name, name); });
    if (found == eventTable.end())
        throw UnknownMember("no event has the name " + std::string(name));
    return *found;
}

} // namespace tablio
