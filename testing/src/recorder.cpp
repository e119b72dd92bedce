#include <tablio/testing/recorder.h>

#include "host.h"
#include "recorded_steps.h"
#include "stage.h"
#include "values.h"

#include "model/text/utf16.h"

#include <tablio/cell_value.h>
#include <tablio/text_bag.h>
#include <tablio/witness.h>

#include <functional>
#include <optional>
#include <utility>

namespace tablio::scenario {

namespace {

std::string masked(std::string_view text) {
    std::string result;
    for (const char character : text) {
        const bool isLetter = (character >= 'a' && character <= 'z') || (character & 0x80) != 0;
        if (character >= '1' && character <= '9')
            result += '1';
        else if (character >= 'A' && character <= 'Z')
            result += 'X';
        else if (isLetter)
            result += (character & 0xC0) == 0x80 ? "" : "x"; // One for each character.
        else
            result += character;
    }
    return result;
}

/// Hands each event to a function.
class Hearing final : public EventSink {
public:
    using Hear = std::function<void(MemberNumber, std::span<const Value>)>;
    explicit Hearing(Hear hear) : hear_(std::move(hear)) {}

    std::unique_ptr<HostEvents> relay = relayTo(*this);
    void event(MemberNumber number, std::span<Value> arguments) override {
        hear_(number, arguments);
    }

private:
    Hear hear_;
};

} // namespace

class Recorder::Parts final : public Witness {
public:
    Parts(Tablio &control, Texts texts) : control_(control), isMasked_(texts == Texts::Masked) {
        writeBackground();
        control_.setWitness(this);
    }
    ~Parts() override { control_.setWitness(nullptr); }
    Parts(const Parts &) = delete;
    Parts &operator=(const Parts &) = delete;

    void actionBegins(const UserAction &action) override;
    void actionEnds() override;
    [[nodiscard]] HostEvents &raised() override { return *raised_.relay; }
    [[nodiscard]] HostEvents &answered() override { return *answered_.relay; }

    [[nodiscard]] std::string text(std::string_view name) const {
        return background_ + "\nscenario " + inQuotes(name) + "\n" + steps_.text(!isMasked_);
    }

private:
    [[nodiscard]] std::string shared(std::string_view text) const {
        return isMasked_ ? masked(text) : std::string(text);
    }
    [[nodiscard]] const Screen &screen() const { return control_.screen(); }
    [[nodiscard]] WidgetId openEditor() const {
        for (const WidgetId box : {WidgetId::cboEdit, WidgetId::txtDateEdit}) {
            if (screen().widget(box).isVisible)
                return box;
        }
        return WidgetId::txtEdit;
    }
    void writeBackground();
    void writeCells();
    void line(const std::string &text) { background_ += "  " + text + "\n"; }
    void keyDown(KeyCode key, ShiftState shift);
    void mouseDown(MouseButton button, Twips x, Twips y);
    void hearRaised(MemberNumber number, std::span<const Value> arguments);
    void hearAnswered(MemberNumber number, std::span<const Value> arguments);

    Tablio &control_;
    bool isMasked_;
    std::string background_;
    RecordedSteps steps_;
    /// What the host is being asked; handlers may raise events of their own meanwhile.
    std::vector<Values> asked_;
    Hearing raised_{[this](MemberNumber number, std::span<const Value> arguments) {
        hearRaised(number, arguments);
    }};
    Hearing answered_{[this](MemberNumber number, std::span<const Value> arguments) {
        hearAnswered(number, arguments);
    }};
    Twips pressedAt_ = 0;
    /// Where the view was, before an action that may scroll.
    struct View {
        int topRow = 0;
        int leftCol = 0;
    };
    std::optional<View> scrolling_;
};

/// Loading a store in a control that runs keeps its data, so the cells come afterwards.
void Recorder::Parts::writeBackground() {
    background_ = "background\n";
    TextBag bag;
    control_.saveSettings(bag);
    line("settings");
    const std::string stored = bag.text();
    for (std::size_t at = 0; at < stored.size();) {
        const std::size_t end = stored.find('\n', at);
        line("  " + stored.substr(at, end - at));
        at = end + 1;
    }
    const Rect room = screen().widget(WidgetId::Grid).place;
    line("resize to " + std::to_string(room.width) + " " + std::to_string(room.height));
    if (const Face *const face = control_.face()) {
        const NumberFormat format = face->numberFormat();
        line("locale decimal " + inQuotes(format.decimalSign) + " group " +
             inQuotes(format.groupSign));
        line("today is " + CellValue(face->today()).toText());
    }
    line("show");
    writeCells();
    line("focus enters");
    if (const auto cell = screen().currentCell())
        line("call CellFocus " + std::to_string(cell->row) + " " + std::to_string(cell->col));
    if (!screen().focusOwner())
        line("focus leaves");
    line("note events as answered");
}

void Recorder::Parts::writeCells() {
    for (int row = control_.FixedRows(); row < control_.Rows(); ++row) {
        const std::string at = std::to_string(row) + " ";
        for (int col = control_.FixedCols(); col < control_.Cols(); ++col) {
            const CellFacts facts = screen().facts({row, col});
            if (facts.isCheckBox && facts.isTicked)
                line("call Check " + at + "True");
            else if (!facts.isCheckBox && !facts.text.empty())
                line("set TextMatrix " + at + std::to_string(col) + " " +
                     inQuotes(shared(control_.TextMatrix(row, col))));
        }
    }
}

void Recorder::Parts::actionBegins(const UserAction &action) {
    asked_.clear(); // A handler that threw has not answered.
    const std::string_view name = action.name;
    const auto number = [&](std::size_t at) { return action.arguments[at].toLong(); };
    const auto text = [&](std::size_t at) { return shared(action.arguments[at].toText()); };
    if (name == "keyDown") {
        keyDown(action.arguments[0].toInteger(), action.arguments[1].toInteger());
    } else if (name == "keyPress") {
        std::string typed;
        utf16::append(typed, static_cast<char32_t>(number(0)));
        steps_.keyPress(utf16::decoded(shared(typed), 0));
    } else if (name == "typeText") {
        steps_.entered(text(0));
    } else if (name == "beginComposition") {
        steps_.composition();
    } else if (name == "mouseDown") {
        mouseDown(static_cast<MouseButton>(number(0)), number(1), number(2));
    } else if (name == "mouseUp") {
        steps_.released(number(1) - pressedAt_);
    } else if (name == "doubleClick") {
        steps_.doubleClicked();
    } else if (name == "scrollTo" || name == "wheelTurned") {
        scrolling_ = View{screen().rowRange().position, screen().colRange().position};
    } else if (name == "focusEntered") {
        steps_.begin("focus enters");
    } else if (name == "focusLeft") {
        steps_.begin("focus leaves");
    } else if (name == "endEdit") {
        steps_.begin("call Commit");
    } else if (name == "buttonPressed") {
        steps_.begin("push " + shown(static_cast<WidgetId>(number(0))));
    } else if (name == "paste") {
        steps_.begin("press Ctrl+V");
        steps_.prepare("clipboard holds " + inQuotes(text(0)));
    } else if (name == "copy" || name == "cut") {
        steps_.begin(name == "copy" ? "press Ctrl+C" : "press Ctrl+X");
    } else if (name == "textSettled") {
        const std::optional<ScreenEditor> editor = screen().editor();
        if (editor && (editor->text != action.arguments[0].toText() || editor->caret != number(1)))
            steps_.begin("settle " + shown(openEditor()) + " on " + inQuotes(text(0)) + " caret " +
                         std::to_string(number(1)));
    } else if (name == "comboItemChosen") {
        steps_.begin("choose item " + std::to_string(number(0)));
    } else if (name == "calendarPicked") {
        steps_.begin("pick " + CellValue(Date{number(0), number(1), number(2)}).toText());
    } else if (name == "menuChosen") {
        steps_.begin("choose " + shown(static_cast<MenuEntry>(number(0))));
    } else if (name == "questionAnswered") {
        steps_.begin(action.arguments[0].toBoolean() ? "answer yes" : "answer no");
    } else if (name == "resized") {
        steps_.begin("resize to " + std::to_string(number(0)) + " " + std::to_string(number(1)));
    }
}

void Recorder::Parts::actionEnds() {
    if (!scrolling_)
        return;
    const View before = *std::exchange(scrolling_, std::nullopt);
    const View now{screen().rowRange().position, screen().colRange().position};
    if (now.topRow != before.topRow)
        steps_.begin("scroll to row " + std::to_string(now.topRow));
    if (now.leftCol != before.leftCol)
        steps_.begin("scroll to column " + std::to_string(now.leftCol));
}

void Recorder::Parts::keyDown(KeyCode key, ShiftState shift) {
    // A key tells what it types.
    const bool isCommand = (shift & (Shift::Ctrl | Shift::Alt)) != 0;
    const bool isLetter = key >= 'A' && key <= 'Z';
    const bool isDigit = key >= '1' && key <= '9';
    if (isMasked_ && !isCommand && (isLetter || isDigit))
        key = isLetter ? 'X' : '1';
    steps_.keyDown(key, shift);
    const bool isPaste =
        (key == Key::V && shift == Shift::Ctrl) || (key == Key::Insert && shift == Shift::Shift);
    if (isPaste && control_.face() != nullptr)
        steps_.prepare("clipboard holds " + inQuotes(shared(control_.face()->clipboardText())));
}

void Recorder::Parts::mouseDown(MouseButton button, Twips x, Twips y) {
    pressedAt_ = x;
    std::string place = "at " + std::to_string(x) + " " + std::to_string(y);
    std::string drag;
    if (const auto cell = screen().cellAt(x, y)) {
        const Rect rect = screen().cellRect(*cell);
        const bool isLeftEdge = x - rect.left < rect.right() - x && cell->col > 0;
        if (button == MouseButton::Left && control_.input().isColumnEdge(x, y))
            drag = "drag border of column " +
                   std::to_string(isLeftEdge ? cell->col - 1 : cell->col) + " by ";
        else
            try {
                static_cast<void>(pointIn(screen(), *cell));
                place = "cell " + std::to_string(cell->row) + " " + std::to_string(cell->col);
            } catch (const ScriptError &) { // Its middle cannot be clicked.
            }
    }
    steps_.pressed((button == MouseButton::Right ? "right-click " : "click ") + place, drag);
}

void Recorder::Parts::hearRaised(MemberNumber /*number*/, std::span<const Value> arguments) {
    asked_.emplace_back(arguments.begin(), arguments.end());
}

void Recorder::Parts::hearAnswered(MemberNumber number, std::span<const Value> arguments) {
    if (asked_.empty())
        return;
    const Values asked = std::move(asked_.back());
    asked_.pop_back();
    if (steps_.isEmpty())
        return;
    const std::string line = ScenarioHost::lineOf(number, arguments);
    const Event &event = *findBy(events(), &Event::number, number);
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const Argument &argument = event.arguments[at];
        if (arguments[at] == asked[at] || argument.name == "Row" || argument.name == "Col")
            continue;
        steps_.prepare("once " + std::string(event.name) + " answer " + std::string(argument.name) +
                       " " + shown(argument.type, arguments[at]));
    }
    steps_.heard(line);
}

Recorder::Recorder(Tablio &control, Texts texts)
    : parts_(std::make_unique<Parts>(control, texts)) {}

Recorder::~Recorder() = default;

std::string Recorder::scenario(std::string_view name) const { return parts_->text(name); }

} // namespace tablio::scenario
