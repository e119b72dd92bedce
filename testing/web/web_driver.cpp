/// Plays scenarios through the element in a page: this is the part in the module, which hands each
/// thing that a user or a host does on to `driver.ts` by its name. It knows no browser.

#include "grid.h"

#include <tablio/testing/player.h>

#include <cstdlib>
#include <optional>
#include <string>

extern "C" {
/// Does what the first value of the message names with the others. The room holds afterwards
/// whether that went well, and the answer, or what went wrong.
void driver_perform(const void *message);
}

namespace tablio::web {

namespace {

using namespace scenario;

Value perform(std::string_view name, const Values &values = {}) {
    Message message;
    message.add(Value(name));
    for (const Value &value : values)
        message.add(value);
    driver_perform(message.done());
    Given given(6);
    const bool isWell = given.value().toBoolean();
    const Value answer = given.value();
    if (!isWell)
        throw Error(answer.toText());
    return answer;
}

class WebDriver final : public Driver {
public:
    /// Whether members and events go through the element's own, and the platform is the browser.
    bool isOutside = false;

    void create(Twips width, Twips height) override {
        grid_ = gridAt(perform("create").toLong());
        Tablio &table = grid_->table();
        face.wrap(table.face());
        makeBare(table);
        table.setFace(&face);
        setLocale({});
        if (isOutside)
            face.locale.reset();
        resize(width, height);
    }
    void destroy() override {
        perform("destroy");
        face.wrap(nullptr);
        grid_.reset();
    }
    [[nodiscard]] Tablio *core() override {
        return grid_ && grid_->isAlive() ? &grid_->table() : nullptr;
    }
    void show() override {
        perform("show");
        core()->Show();
    }
    void resize(Twips width, Twips height) override { perform("resize", {width, height}); }
    void enterFocus() override { perform("enterFocus"); }
    void leaveFocus() override { perform("leaveFocus"); }

    void setHost(HostEvents *heard) override {
        if (isOutside)
            perform("listen");
        else
            core()->setHost(heard);
    }
    Value callMember(std::string_view name, const Values &arguments) override {
        return isOutside ? member("call", name, arguments) : Driver::callMember(name, arguments);
    }
    void setMember(std::string_view name, const Values &index, const Value &value) override {
        if (!isOutside)
            return Driver::setMember(name, index, value);
        Values all = index;
        all.push_back(value);
        member("write", name, all);
    }
    [[nodiscard]] Value readMember(std::string_view name, const Values &index) override {
        return isOutside ? member("read", name, index) : Driver::readMember(name, index);
    }
    void setLocale(const NumberFormat &locale) override {
        if (isOutside)
            perform("speak", {locale.decimalSign, locale.groupSign});
        else
            Driver::setLocale(locale);
    }
    void setClipboard(std::string_view text) override {
        Driver::setClipboard(text);
        perform("setClipboard", {text});
    }

    void strike(const KeyStroke &stroke) override {
        perform("strike", {stroke.key, stroke.shift, static_cast<int>(stroke.character)});
    }
    void compose(std::string_view text) override { perform("compose", {text}); }
    void enterText(std::string_view text) override { perform("enterText", {text}); }
    void settle(WidgetId /*editor*/, std::string_view text, int caret) override {
        perform("settle", {text, caret});
    }
    void pressMouse(MouseButton button, Twips x, Twips y) override {
        perform("mouse", {"mousedown", button, x, y, 1});
    }
    void moveMouse(Twips x, Twips y) override { perform("mouse", {"mousemove", 1, x, y, 0}); }
    void releaseMouse(MouseButton button, Twips x, Twips y) override {
        perform("mouse", {"mouseup", button, x, y, 1});
    }
    void doubleClick(Twips x, Twips y) override { perform("mouse", {"mousedown", 1, x, y, 2}); }
    void scrollTo(int topRow, int leftCol) override { perform("scrollTo", {topRow, leftCol}); }

    // By what a user presses, one part of the element after the other.
    void pushButton(WidgetId button) override {
        press({button == WidgetId::cmdLookup ? "[aria-label='Look up']" : "[aria-label=Calendar]"});
    }
    void chooseMenuEntry(MenuEntry entry) override {
        grid_->popUpMenu(0, 0);
        press({"#entry-" + std::to_string(static_cast<int>(entry))});
    }
    void chooseItem(int index) override {
        const std::string option = "#option-" + std::to_string(index);
        press(core()->screen().list().isDropped ? Values{option}
                                                : Values{"[aria-label=List]", option});
    }
    void answerQuestion(bool yes) override {
        press({yes ? "dialog button:first-of-type" : "dialog button:last-of-type"});
    }
    void pickDay(const Date &day) override {
        const Date shown = core()->screen().calendarDay();
        const int months = (day.year - shown.year) * 12 + day.month - shown.month;
        Values parts(static_cast<std::size_t>(std::abs(months)),
                     months < 0 ? "[aria-label='Previous month']" : "[aria-label='Next month']");
        const int date = day.year * 10000 + day.month * 100 + day.day;
        parts.emplace_back("[data-date='" + std::to_string(date) + "']");
        press(parts);
    }

private:
    static void press(const Values &parts) { perform("press", parts); }
    static Value member(std::string_view how, std::string_view name, Values values) {
        values.insert(values.begin(), {how, name});
        return perform("member", values);
    }

    std::shared_ptr<Grid> grid_;
};

WebDriver driver;
std::optional<Player> player;
ScenarioFile file;

} // namespace

/// The names of the scenarios in the text that is in the room.
[[clang::export_name("driverLoad")]] const void *load(bool isOutside) {
    driver.isOutside = isOutside;
    if (!player)
        player.emplace(driver);
    file = parseScenarios("", Given(1).text());
    Message names;
    for (const Scenario &each : file.scenarios)
        names.add(each.name);
    return names.done();
}

// A scenario is played step by step, and what was not as expected is told at its end.
[[clang::export_name("driverBegin")]] void begin(std::size_t scenario) {
    player->begin(file, file.scenarios.at(scenario));
}
/// Behind the last call of the driver, whose failure is in the room; false at the end.
[[clang::export_name("driverAdvance")]] bool advance() { return player->advance(Given(1).text()); }
[[clang::export_name("driverFinish")]] const void *finish() {
    std::string text;
    for (const scenario::Failure &failure : player->finish())
        text += std::to_string(failure.line) + ": " + failure.message + "\n";
    return Message().add(text).done();
}
[[clang::export_name("driverInHandler")]] bool inHandler() { return player->isInHandler(); }

/// What the browser's clipboard has come to hold.
[[clang::export_name("driverClipboard")]] void clipboard() {
    driver.face.clipboard = Given(1).text();
}

/// What the element's listeners hear goes to the scenario's host.
[[clang::export_name("driverEvent")]] const void *event(int grid, int number, std::size_t count) {
    return replied(grid, [&](Grid & /*grid*/, Message &message) {
        Given given(3 * count);
        Values values;
        while (values.size() < count)
            values.push_back(given.value());
        driver.events->event(number, values);
        message = Message();
        for (const Value &value : values)
            message.add(value);
    });
}

} // namespace tablio::web
