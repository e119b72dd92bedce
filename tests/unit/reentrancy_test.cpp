/// Hosts do anything from inside any event. Every action is tried in every event of every way to
/// edit every kind of cell; afterwards the control has to be in order and to go on working.

#include "control/inside.h"

#include <tablio/dispatch.h>
#include <tablio/members.h>
#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>

namespace tablio {
namespace {

/// Runs an action in one kind of event, each time it comes, but not inside itself.
class MeddlingHost final : public EventSink {
public:
    MemberNumber number = 0;
    std::function<void()> action;
    int fired = 0;
    std::unique_ptr<HostEvents> relay = relayTo(*this);

    void event(MemberNumber raised, std::span<Value> /*arguments*/) override {
        if (running_ || raised != number)
            return;
        running_ = true;
        ++fired;
        struct Done {
            bool &running;
            ~Done() { running = false; }
        } done{running_};
        action();
    }

private:
    bool running_ = false;
};

class ClipboardFace final : public Face {
public:
    std::string clipboardText() override { return "1\t2\n3\t4"; }
};

class Play {
public:
    Play() {
        grid->setFace(&face);
        grid->InitProperties();
        play("Rows=8; Cols=6; WithFixedColumn=True; FixedCols=1; PrimaryColumn=1; ColStyle 0=3; "
             "ColStyle 1=1; ColEditType 2=1; ColFormat 2=0.00; ColEditType 3=3; ColEditType 4=4; "
             "ComboAddItem Bag; ComboAddItem Box");
        grid->input().resized(9000, 9000);
        grid->Show();
        grid->input().focusEntered();
        grid->setHost(host.relay.get());
    }

    void key(KeyCode code, char32_t character = 0) {
        if (grid && grid->input().keyDown(code, Shift::None) == Dealt::No && grid && character != 0)
            grid->input().keyPress(character);
    }
    void type(std::string_view text) {
        for (const char character : text)
            key(character == '\n' ? Key::Enter : static_cast<KeyCode>(character),
                static_cast<unsigned char>(character));
    }
    /// Plays steps with "; " between them, for as long as there is a control: "ColStyle 0=3" and
    /// "RemoveRow 2" are members of the control, "type 12" types, the others are named below.
    void play(std::string_view steps) {
        while (grid && !steps.empty()) {
            const std::size_t end = std::min(steps.find("; "), steps.size());
            step(std::string(steps.substr(0, end)));
            steps.remove_prefix(std::min(end + 2, steps.size()));
        }
    }

    /// Nothing is left switched off, half open or lying about.
    void expectOrder() {
        const Control &control = Inside::of(*grid);
        const ControlState &state = control.state;
        EXPECT_TRUE(state.grid.view.Redraw());
        EXPECT_FALSE(control.rows.IsClearing());
        const Widgets &widgets = state.widgets;
        const int shown = int{widgets.txtEdit.Visible()} + int{widgets.cboEdit.Visible()} +
                          int{widgets.txtDateEdit.Visible()};
        EXPECT_EQ(shown, control.session.isOpen() ? 1 : 0);
        const std::optional<WidgetId> keys = state.focus.owner();
        EXPECT_EQ(keys == WidgetId::txtEdit || keys == WidgetId::cboEdit ||
                      keys == WidgetId::txtDateEdit || keys == WidgetId::mvCalender,
                  control.session.isOpen());
        if (!control.session.isOpen()) {
            EXPECT_FALSE(state.isCalendarOpen());
            EXPECT_FALSE(widgets.cmdLookup.Visible());
            EXPECT_FALSE(widgets.cmdCalender.Visible());
            EXPECT_TRUE(control.menuState(MenuEntry::mnuMarkRow).enabled);
            EXPECT_TRUE(control.menuState(MenuEntry::mnuTableClear).enabled);
        }
    }

    /// An operator can go on: end what is open, type a cell, and find it.
    void expectWorks() {
        host.action = [] {};
        play("Escape; Escape; Rows=8; Cols=6; CellFocus 2 5; focus enters; type Zz\n");
        EXPECT_EQ(grid->TextMatrix(2, 5), "Zz");
    }

    ClipboardFace face;
    MeddlingHost host;
    std::unique_ptr<Tablio> grid = std::make_unique<Tablio>();

private:
    void step(const std::string &step) {
        using Step = void (*)(Play &);
        static const std::map<std::string, Step> named{
            {"Enter", [](Play &p) { p.key(Key::Enter); }},
            {"Escape", [](Play &p) { p.key(Key::Escape); }},
            {"Delete", [](Play &p) { p.key(Key::Delete); }},
            {"Down", [](Play &p) { p.key(Key::Down); }},
            {"F2", [](Play &p) { p.key(Key::F2); }},
            {"F10", [](Play &p) { p.key(Key::F10); }},
            {"paste", [](Play &p) { p.grid->input().keyDown(Key::V, Shift::Ctrl); }},
            {"lookup button", [](Play &p) { p.grid->input().buttonPressed(WidgetId::cmdLookup); }},
            {"scroll away", [](Play &p) { p.grid->input().scrollTo(7, 5); }},
            {"focus enters", [](Play &p) { p.grid->input().focusEntered(); }},
            {"focus leaves", [](Play &p) { p.grid->input().focusLeft(); }},
            {"show", [](Play &p) { p.grid->Show(); }},
            {"double-click", [](Play &p) { p.grid->input().doubleClick(1000, 700); }},
            {"press elsewhere",
             [](Play &p) { p.grid->input().mouseDown(MouseButton::Left, 3000, 1400); }},
            {"release", [](Play &p) { p.grid->input().mouseUp(MouseButton::Left, 3000, 1400); }},
        };
        if (const auto found = named.find(step); found != named.end())
            return found->second(*this);
        if (step.starts_with("type "))
            return type(std::string_view(step).substr(5));
        const std::size_t sign = step.find('=');
        std::istringstream words(step.substr(0, sign));
        std::string member;
        words >> member;
        Values arguments;
        for (std::string argument; words >> argument;)
            arguments.emplace_back(argument);
        if (sign == std::string::npos)
            Dispatch(*grid).call(member, arguments);
        else
            Dispatch(*grid).put(member, step.substr(sign + 1), arguments);
    }
};

/// What a handler does.
const char *const actions[] = {
    "CellFocus 4 2; F2",
    "type 7",
    "Enter",
    "Escape",
    "TableClear",
    "ResetRow 2",
    "MarkActiveRow; RemoveRow 2",
    "MarkActiveRow; InsertRow 2",
    "AddRow",
    "Rows=2",
    "Cols=1",
    "Rows=0; Cols=0",
    "ComboClear; ComboAddItem Litre",
    "LookupResult 2 1=X1",
    "scroll away",
    "focus leaves",
    "Enabled=False; Enabled=True",
    "show",
};

/// What the user is doing meanwhile.
const char *const gestures[] = {
    "type 12\n",
    "type 12\x1b",
    "F10; Enter",
    "AddRow; TableClear",
    "double-click; type 3; press elsewhere; release",
    "F2; lookup button",
    "Delete; Down",
    "paste",
};

/// Plays each gesture on each kind of cell with one meddling handler.
void playAll(const Event &event, const std::string &name, bool mayEnd,
             const std::function<void(Play &)> &action, const std::function<void(Play &)> &check) {
    for (const char *gesture : gestures) {
        for (int col = 1; col < 6; ++col) {
            SCOPED_TRACE(std::string(event.name) + ": " + name + ", " + gesture + ", column " +
                         std::to_string(col));
            Play play;
            play.grid->CellFocus(2, col);
            play.host.number = event.number;
            play.host.action = [&] { action(play); };
            try {
                play.play(gesture);
            } catch (const std::exception &) {
                // A grid error of the action, or the action's own: both reach the caller.
            }
            if (play.grid)
                check(play);
            else
                EXPECT_TRUE(mayEnd);
            if (testing::Test::HasFailure())
                return;
        }
    }
}

void checkAll(Play &play) {
    play.expectOrder();
    play.expectWorks();
}

TEST(Reentrancy, AnythingFromInsideAnyEventLeavesTheControlInOrder) {
    int fired = 0;
    for (const Event &event : events()) {
        for (const char *action : actions) {
            playAll(
                event, action, false, [action](Play &play) { play.play(action); },
                [&fired](Play &play) {
                    fired += play.host.fired;
                    checkAll(play);
                });
        }
    }
    EXPECT_GT(fired, 5000) << "the handlers hardly ever ran";
}

TEST(Reentrancy, AThrowingHandlerIsHeardByTheCallerAndLeavesTheControlInOrder) {
    for (const Event &event : events())
        playAll(
            event, "throw", false, [](Play &) { throw std::runtime_error("host failed"); },
            checkAll);
}

TEST(Reentrancy, DestroyingTheControlInAnyEventIsSafe) {
    for (const Event &event : events())
        playAll(
            event, "destroy", true, [](Play &play) { play.grid.reset(); }, [](Play &) {});
}

} // namespace
} // namespace tablio
