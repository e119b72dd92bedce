/// Plays scenarios through the element in a page: this is the part in the module, which hands each
/// thing that a user or a host does on to `driver.ts`. It knows no browser.

#include "grid.h"

#include <tablio/members.h>
#include <tablio/testing/player.h>

#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <vector>

extern "C" {
/// Makes an element that nobody sees, and answers its grid's number.
int driver_create(int width, int height);
void driver_destroy();
/// Each answers how long the text in the room is that tells what went wrong, 0 for nothing. What is
/// done is one of `Act` in driver.ts; how a member is used, as in the module's own `access`.
std::size_t driver_act(int act, int a, int b, int c, const char *text, std::size_t length);
std::size_t driver_member(int how, const char *name, std::size_t length, int count);
}

namespace tablio::web {

namespace {

using namespace scenario;

enum class Act {
    Show,
    Resize,
    EnterFocus,
    LeaveFocus,
    Strike,
    Compose,
    EnterText,
    Settle,
    PressMouse,
    MoveMouse,
    ReleaseMouse,
    DoubleClick,
    ScrollTo,
    PushButton,
    ChooseMenuEntry,
    ChooseItem,
    PickDay,
    Locale,
    Clipboard,
    Host,
};

/// A scenario starts from the control's own defaults, not from a theme's.
void makeBare(Tablio &core) {
    Tablio bare;
    for (const Member &member : members()) {
        // InitProperties sets the control's own; these are the table's.
        const bool isOwn = member.name == "StripeColor" || member.name == "CheckBoxColor";
        if (member.type != MemberType::Colour || member.stored.written == 0 || isOwn)
            continue;
        const Value colour = member.read(bare, {});
        member.write(core, {&colour, 1});
    }
    core.setRowMinHeight(bare.RowMinHeight());
    core.InitProperties();
    core.TableClear();
}

class WebDriver final : public Driver {
public:
    /// Whether members and events go through the element's own, and the platform is the browser.
    bool isOutside = false;
    HostEvents *host = nullptr;

    void create(Twips width, Twips height) override {
        grid_ = gridAt(driver_create(width, height));
        Tablio &table = grid_->table();
        face.wrap(table.face());
        makeBare(table);
        table.setFace(&face);
        setLocale({});
        if (isOutside)
            face.locale.reset();
        act(Act::Resize, width, height);
    }
    void destroy() override {
        host = nullptr;
        driver_destroy();
        face.wrap(nullptr);
        grid_.reset();
    }
    [[nodiscard]] Tablio *core() override {
        return grid_ && grid_->isAlive() ? &grid_->table() : nullptr;
    }
    void show() override { act(Act::Show); }
    void resize(Twips width, Twips height) override { act(Act::Resize, width, height); }
    void enterFocus() override { act(Act::EnterFocus); }
    void leaveFocus() override { act(Act::LeaveFocus); }

    void setHost(HostEvents *heard) override {
        host = heard;
        if (isOutside)
            act(Act::Host);
        else
            core()->setHost(heard);
    }
    Value callMember(std::string_view name, const Values &arguments) override {
        return isOutside ? use(0, name, arguments) : Driver::callMember(name, arguments);
    }
    void setMember(std::string_view name, const Values &index, const Value &value) override {
        if (!isOutside)
            return Driver::setMember(name, index, value);
        Values all = index;
        all.push_back(value);
        static_cast<void>(use(2, name, all));
    }
    [[nodiscard]] Value readMember(std::string_view name, const Values &index) override {
        return isOutside ? use(1, name, index) : Driver::readMember(name, index);
    }
    void setLocale(const NumberFormat &locale) override {
        if (isOutside)
            act(Act::Locale, 0, 0, 0, locale.decimalSign + "\n" + locale.groupSign);
        else
            Driver::setLocale(locale);
    }
    void setClipboard(std::string_view text) override {
        Driver::setClipboard(text);
        act(Act::Clipboard, 0, 0, 0, text);
    }

    void strike(const KeyStroke &stroke) override {
        act(Act::Strike, stroke.key, stroke.shift, static_cast<int>(stroke.character));
    }
    void compose(std::string_view text) override { act(Act::Compose, 0, 0, 0, text); }
    void enterText(std::string_view text) override { act(Act::EnterText, 0, 0, 0, text); }
    void settle(WidgetId /*editor*/, std::string_view text, int caret) override {
        act(Act::Settle, caret, 0, 0, text);
    }
    void pressMouse(MouseButton button, Twips x, Twips y) override {
        act(Act::PressMouse, static_cast<int>(button), x, y);
    }
    void moveMouse(Twips x, Twips y) override { act(Act::MoveMouse, 1, x, y); }
    void releaseMouse(MouseButton button, Twips x, Twips y) override {
        act(Act::ReleaseMouse, static_cast<int>(button), x, y);
    }
    void doubleClick(Twips x, Twips y) override { act(Act::DoubleClick, 1, x, y); }
    void scrollTo(int topRow, int leftCol) override { act(Act::ScrollTo, topRow, leftCol); }
    void pushButton(WidgetId button) override { act(Act::PushButton, static_cast<int>(button)); }
    void chooseMenuEntry(MenuEntry entry) override {
        act(Act::ChooseMenuEntry, static_cast<int>(entry));
    }
    void chooseItem(int index) override { act(Act::ChooseItem, index); }
    void pickDay(const Date &day) override {
        act(Act::PickDay, day.year * 10000 + day.month * 100 + day.day);
    }

private:
    static void fail(std::size_t length) {
        if (length > 0)
            throw Error(std::string(roomFor(0), length));
    }
    static void act(Act what, int a = 0, int b = 0, int c = 0, std::string_view text = {}) {
        fail(driver_act(static_cast<int>(what), a, b, c, text.data(), text.size()));
    }
    static Value use(int how, std::string_view name, const Values &values) {
        putValues(values);
        fail(driver_member(how, name.data(), name.size(), static_cast<int>(values.size())));
        return takeValues(1).front();
    }

    std::shared_ptr<Grid> grid_;
};

WebDriver driver;
std::optional<Player> player;
ScenarioFile file;

const void *told(const std::vector<scenario::Failure> &failures) {
    std::string text;
    for (const scenario::Failure &failure : failures)
        text += std::to_string(failure.line) + ": " + failure.message + "\n";
    return Reply().addText(text).done();
}

template <typename Action> const void *orFailure(Action action) {
    try {
        return action();
    } catch (const std::exception &error) {
        return Reply().addText(error.what()).done();
    }
}

/// Raises an event by its typed function, and takes back what has become of the arguments.
template <typename... Arguments>
void raise(void (HostEvents::*event)(Arguments &...), std::span<Value> values) {
    std::tuple<Arguments...> arguments;
    std::size_t at = 0;
    const auto take = [&](auto &argument) {
        using Type = std::decay_t<decltype(argument)>;
        const Value &value = values[at++];
        if constexpr (std::is_same_v<Type, bool>)
            argument = value.toBoolean();
        else if constexpr (std::is_same_v<Type, std::string>)
            argument = value.toText();
        else
            argument = static_cast<std::int16_t>(value.toLong());
    };
    std::apply([&](auto &...each) { (take(each), ...); }, arguments);
    std::apply([&](auto &...each) { (driver.host->*event)(each...); }, arguments);
    at = 0;
    std::apply([&](auto &...each) { ((values[at++] = Value(each)), ...); }, arguments);
}

void raiseAt(int number, std::span<Value> values) {
    using H = HostEvents;
    switch (number) {
    case 1:
        return raise(&H::EditPreValidation, values);
    case 2:
        return raise(&H::EditOnChange, values);
    case 3:
        return raise(&H::EditPostValidation, values);
    case 4:
        return raise(&H::EditLookup, values);
    case 5:
        return raise(&H::CellFocus, values);
    case 6:
        return raise(&H::CellKeyPress, values);
    case 7:
        return raise(&H::TableChange, values);
    case 8:
        return raise(&H::TableKeyDown, values);
    case 9:
        return raise(&H::TableRowChange, values);
    default:
        return raise(&H::DoubleClick, values);
    }
}

} // namespace

/// The names of the scenarios in the text that is in the room.
[[clang::export_name("driverLoad")]] const void *load(std::size_t length, bool isOutside) {
    return orFailure([&] {
        driver.isOutside = isOutside;
        if (!player)
            player.emplace(driver);
        file = parseScenarios("", {roomFor(0), length});
        Reply names;
        for (const Scenario &each : file.scenarios)
            names.addText(each.name);
        return names.done();
    });
}

/// Plays one and answers what was not as expected.
[[clang::export_name("driverPlay")]] const void *play(std::size_t scenario) {
    return orFailure([&] { return told(player->play(file, file.scenarios.at(scenario))); });
}

// The same step by step.
[[clang::export_name("driverBegin")]] void begin(std::size_t scenario) {
    player->begin(file, file.scenarios.at(scenario));
}
/// Behind the last call of the driver, whose failure is in the room; false at the end.
[[clang::export_name("driverAdvance")]] bool advance(std::size_t failure) {
    return player->advance(std::string(roomFor(0), failure));
}
[[clang::export_name("driverFinish")]] const void *finish() { return told(player->finish()); }
[[clang::export_name("driverInHandler")]] bool inHandler() { return player->isInHandler(); }

[[clang::export_name("driverShow")]] void show(int grid) {
    with(grid, [](Grid &shown) { shown.table().Show(); });
}

/// What the browser's clipboard has come to hold.
[[clang::export_name("driverClipboard")]] void clipboard(std::size_t length) {
    driver.face.clipboard = std::string(roomFor(0), length);
}

/// What the element's listeners hear goes to the scenario's host; the arguments are in the room.
[[clang::export_name("driverEvent")]] void event(int grid, int number, int count) {
    with(grid, [&](Grid & /*grid*/) {
        Values values = takeValues(count);
        raiseAt(number, values);
        putValues(values);
    });
}

} // namespace tablio::web
