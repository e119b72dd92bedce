/// The steps that do something. What a scenario expects stands in expect.cpp.

#include "members.h"
#include "stage.h"

#include "model/text/utf16.h"

#include <tablio/text_bag.h>

#include <optional>
#include <utility>

namespace tablio::scenario {

namespace {

// ---- the control -------------------------------------------------------------

struct ColumnWord {
    std::string_view word;
    std::string_view property;
    /// Without one the value stands behind the word.
    std::string_view value = {};
};

constexpr ColumnWord columnWords[] = {
    {"text", "ColEditType", "ColumnString"},
    {"decimal", "ColEditType", "ColumnDecimal"},
    {"integer", "ColEditType", "ColumnInteger"},
    {"date", "ColEditType", "ColumnDate"},
    {"combo", "ColEditType", "ColumnCombo"},
    {"lookup", "ColStyle", "ColumnInputWithLookup"},
    {"fixed", "ColStyle", "ColumnFixed"},
    {"numbered", "ColStyle", "ColumnFixedWithAutoNumber"},
    {"upper", "ColDataType", "UpperCase"},
    {"lower", "ColDataType", "LowerCase"},
    {"positive", "ColDataType", "Positive"},
    {"negative", "ColDataType", "Negative"},
    {"calc", "ColCalcStyle", "CalcStyle"},
    {"format", "ColFormat"},
    {"width", "ColWidth"},
    {"max", "ColMaxLength"},
};

void setUpColumn(Driver &driver, int index, const Line &line) {
    Words words(tokensOf(line.text));
    driver.setMember("ColTextHeader", {index}, words.text());
    while (!words.atEnd()) {
        const Token &word = words.next("a column's setting");
        const ColumnWord *const found = findBy(columnWords, &ColumnWord::word, word.text);
        if (found == nullptr)
            throw ScriptError("line " + std::to_string(line.number) + ": a column has no setting " +
                              inQuotes(word.text));
        const Token value =
            found->value.empty() ? words.next("a value") : Token{std::string(found->value)};
        setMember(driver, found->property, {{std::to_string(index)}, value});
    }
}

Actions columns(Stage &stage, Words & /*words*/, const Line &line) {
    const int count = static_cast<int>(line.block.size());
    stage.driver.setMember("Cols", {}, count);
    for (int index = 0; index < count; ++index)
        setUpColumn(stage.driver, index, line.block[static_cast<std::size_t>(index)]);
    return {};
}

/// What a control's settings were saved as.
Actions settings(Stage &stage, Words & /*words*/, const Line &line) {
    std::string text;
    for (const Line &stored : line.block)
        text += stored.text + '\n';
    stage.core().loadSettings(TextBag::parse(text));
    return {};
}

Actions resize(Stage & /*stage*/, Words &words, const Line & /*line*/) {
    words.require("to");
    const int width = words.number("a width");
    const int height = words.number("a height");
    return {[=](Driver &driver) { driver.resize(width, height); }};
}

Actions focus(Stage & /*stage*/, Words &words, const Line & /*line*/) {
    if (words.take("enters"))
        return {[](Driver &driver) { driver.enterFocus(); }};
    words.require("leaves");
    return {[](Driver &driver) { driver.leaveFocus(); }};
}

Actions locale(Stage &stage, Words &words, const Line & /*line*/) {
    NumberFormat format;
    words.require("decimal");
    format.decimalSign = words.text();
    words.require("group");
    format.groupSign = words.text();
    stage.driver.setLocale(format);
    return {};
}

Actions read(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("from");
    words.require("the");
    const bool rightToLeft = words.take("right");
    if (!rightToLeft)
        words.require("left");
    stage.driver.setRightToLeft(rightToLeft);
    return {};
}

Actions today(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("is");
    stage.driver.face.date = words.next<Date>("a date");
    return {};
}

Actions clipboard(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("holds");
    stage.driver.setClipboard(words.text());
    return {};
}

// ---- the keyboard ------------------------------------------------------------

Actions type(Stage & /*stage*/, Words &words, const Line & /*line*/) {
    Actions actions;
    for (const char32_t character : utf16::characters(words.text())) {
        if (const KeyStroke stroke = keyStrokeFor(character); stroke.key != 0) {
            actions.push_back([=](Driver &driver) { driver.strike(stroke); });
        } else {
            std::string text;
            utf16::append(text, character);
            actions.push_back([=](Driver &driver) { driver.enterText(text); });
        }
    }
    return actions;
}

Actions press(Stage & /*stage*/, Words &words, const Line & /*line*/) {
    KeyStroke stroke = keyStrokeOf(words.next("a key").text);
    int count = 1;
    if (words.take("types")) {
        const std::string typed = words.text();
        stroke.character = typed.empty() ? 0 : utf16::characters(typed).at(0);
    } else if (!words.atEnd()) {
        count = words.number("how often");
        words.require("times");
    }
    const Action once = [=](Driver &driver) { driver.strike(stroke); };
    return Actions(static_cast<std::size_t>(count), once);
}

Actions enter(Stage & /*stage*/, Words &words, const Line & /*line*/) {
    return {[text = words.text()](Driver &driver) { driver.enterText(text); }};
}

Actions compose(Stage & /*stage*/, Words &words, const Line & /*line*/) {
    return {[text = words.text()](Driver &driver) { driver.compose(text); }};
}

Actions settle(Stage & /*stage*/, Words &words, const Line & /*line*/) {
    const auto editor = words.next<WidgetId>("an editor");
    words.require("on");
    const std::string text = words.text();
    words.require("caret");
    const int caret = words.number("a position");
    return {[=](Driver &driver) { driver.settle(editor, text, caret); }};
}

// ---- the mouse ---------------------------------------------------------------

/// "cell ROW COL", its middle, or "at X Y". A user can only point at what is to be seen.
Point pointOf(Stage &stage, Words &words) {
    if (words.take("at")) {
        const Twips x = words.number("a position");
        return {x, words.number("a position")};
    }
    words.require("cell");
    return pointIn(stage.screen(), words.cell());
}

Actions clickAt(MouseButton button, Point at) {
    return {[=](Driver &driver) { driver.pressMouse(button, at.x, at.y); },
            [=](Driver &driver) { driver.releaseMouse(button, at.x, at.y); }};
}

Actions click(Stage &stage, Words &words, const Line & /*line*/) {
    return clickAt(MouseButton::Left, pointOf(stage, words));
}

Actions rightClick(Stage &stage, Words &words, const Line & /*line*/) {
    return clickAt(MouseButton::Right, pointOf(stage, words));
}

Actions doubleClick(Stage &stage, Words &words, const Line & /*line*/) {
    const Point at = pointOf(stage, words);
    Actions actions = clickAt(MouseButton::Left, at);
    const Action release = actions.back();
    actions.push_back([=](Driver &driver) { driver.doubleClick(at.x, at.y); });
    actions.push_back(release);
    return actions;
}

Actions drag(Stage &stage, Words &words, const Line & /*line*/) {
    for (const char *const word : {"border", "of", "column"})
        words.require(word);
    const Rect header = stage.screen().cellRect({0, words.number("a column")});
    words.require("by");
    const Twips distance = words.number("a distance");
    const bool rightToLeft = stage.screen().isRightToLeft();
    const Point from{rightToLeft ? header.left : header.right(), header.top + header.height / 2};
    const Twips to = from.x + distance;
    return {[=](Driver &driver) { driver.pressMouse(MouseButton::Left, from.x, from.y); },
            [=](Driver &driver) { driver.moveMouse(from.x + distance / 2, from.y); },
            [=](Driver &driver) { driver.moveMouse(to, from.y); },
            [=](Driver &driver) { driver.releaseMouse(MouseButton::Left, to, from.y); }};
}

Actions scroll(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("to");
    const bool isRow = words.take("row");
    if (!isRow)
        words.require("column");
    const int index = words.number("a row or column");
    const Screen &screen = stage.screen();
    const int kept = (isRow ? screen.colRange() : screen.rowRange()).position;
    return {[=](Driver &driver) { driver.scrollTo(isRow ? index : kept, isRow ? kept : index); }};
}

Actions push(Stage &stage, Words &words, const Line & /*line*/) {
    const auto button = words.next<WidgetId>("a button");
    if (!stage.screen().widget(button).isVisible)
        throw ScriptError("the button is not to be seen");
    return {[=](Driver &driver) { driver.pushButton(button); }};
}

Actions choose(Stage & /*stage*/, Words &words, const Line & /*line*/) {
    if (words.take("item")) {
        const int index = words.number("the item's position");
        return {[=](Driver &driver) { driver.chooseItem(index); }};
    }
    const auto entry = words.next<MenuEntry>("a menu entry");
    return {[=](Driver &driver) { driver.chooseMenuEntry(entry); }};
}

Actions answer(Stage & /*stage*/, Words &words, const Line & /*line*/) {
    const bool yes = words.take("yes");
    if (!yes)
        words.require("no");
    return {[yes](Driver &driver) { driver.answerQuestion(yes); }};
}

Actions pick(Stage &stage, Words &words, const Line & /*line*/) {
    if (!stage.screen().widget(WidgetId::mvCalender).isVisible)
        throw ScriptError("the calendar is not to be seen");
    const Date day = words.next<Date>("a day");
    return {[=](Driver &driver) { driver.pickDay(day); }};
}

// ---- the host ----------------------------------------------------------------

Actions call(Stage &stage, Words &words, const Line & /*line*/) {
    const std::string name = words.next("a method").text;
    callMember(stage.driver, name, words.rest());
    return {};
}

Actions set(Stage &stage, Words &words, const Line & /*line*/) {
    const std::string name = words.next("a property").text;
    setMember(stage.driver, name, words.rest());
    return {};
}

Actions addRule(Stage &stage, Words &words, const Line &line, bool once) {
    HostRule rule;
    rule.once = once;
    rule.event = words.next("an event").text;
    if (words.take("at"))
        rule.cell = words.cell();
    if (words.take("answer")) {
        std::string argument = words.next("an argument").text;
        rule.answer = {std::move(argument), words.next("a value")};
    } else if (words.take("throw")) {
        rule.error = words.text();
    } else {
        words.require("do");
        rule.steps = line.block;
        if (!words.atEnd()) {
            if (!rule.steps.empty())
                throw ScriptError("the steps stand behind \"do\" or below it");
            const std::size_t step = line.text.find(" do ");
            rule.steps = {{line.number, line.text.substr(step + 4), {}}};
            static_cast<void>(words.rest());
        }
        if (rule.steps.empty())
            throw ScriptError("a step should follow");
    }
    stage.host.add(std::move(rule));
    return {};
}

Actions note(Stage &stage, Words &words, const Line & /*line*/) {
    for (const char *const word : {"events", "as", "answered"})
        words.require(word);
    stage.host.noteAnswered(true);
    return {};
}

Actions forget(Stage &stage, Words &words, const Line & /*line*/) {
    if (words.take("answers")) {
        stage.host.forgetRules();
    } else if (words.take("events")) {
        static_cast<void>(stage.host.takeEvents());
    } else {
        words.require("notices");
        stage.driver.face.notices.clear();
    }
    return {};
}

// ---- dispatch ----------------------------------------------------------------

using Step = Actions (*)(Stage &, Words &, const Line &);

constexpr std::pair<std::string_view, Step> steps[] = {
    {"columns", columns},
    {"settings", settings},
    {"show",
     [](Stage &, Words &, const Line &) -> Actions { return {[](Driver &d) { d.show(); }}; }},
    {"destroy",
     [](Stage &, Words &, const Line &) -> Actions { return {[](Driver &d) { d.destroy(); }}; }},
    {"resize", resize},
    {"focus", focus},
    {"locale", locale},
    {"read", read},
    {"today", today},
    {"clipboard", clipboard},
    {"type", type},
    {"press", press},
    {"enter", enter},
    {"compose", compose},
    {"settle", settle},
    {"click", click},
    {"right-click", rightClick},
    {"double-click", doubleClick},
    {"drag", drag},
    {"scroll", scroll},
    {"push", push},
    {"choose", choose},
    {"answer", answer},
    {"pick", pick},
    {"call", call},
    {"set", set},
    {"when", [](Stage &s, Words &w, const Line &line) { return addRule(s, w, line, false); }},
    {"once", [](Stage &s, Words &w, const Line &line) { return addRule(s, w, line, true); }},
    {"note", note},
    {"forget", forget},
    {"expect",
     [](Stage &stage, Words &words, const Line &line) -> Actions {
         runExpectation(stage, words, line);
         return {};
     }},
};

/// Blocks belong to steps that say so; elsewhere an indented line is a mistake.
bool takesBlock(const Line &line, const Token &verb) {
    return verb.is("columns") || verb.is("settings") || verb.is("expect") ||
           line.text.ends_with(" do") || line.text.ends_with(" raises");
}

} // namespace

Point pointIn(const Screen &screen, CellAddress cell) {
    const Rect place = screen.cellRect(cell);
    const Point middle{place.left + place.width / 2, place.top + place.height / 2};
    if (screen.cellAt(middle.x, middle.y) != cell ||
        !screen.widget(WidgetId::Grid).place.contains(middle.x, middle.y))
        throw ScriptError("the cell is not in view");
    const std::optional<ScreenEditor> editor = screen.editor();
    if (editor && editor->frame.contains(middle.x, middle.y))
        throw ScriptError("the editor lies over the cell");
    return middle;
}

Actions actionsOf(Stage &stage, Tokens tokens, const Line &line) {
    const Token verb = tokens.front();
    tokens.erase(tokens.begin());
    if (!line.block.empty() && !takesBlock(line, verb))
        throw ScriptError("the lines below this step are indented too far");
    const auto *const step = findBy(steps, &std::pair<std::string_view, Step>::first, verb.text);
    if (step == nullptr)
        throw ScriptError("there is no step " + inQuotes(verb.text));
    if (!verb.is("expect"))
        static_cast<void>(stage.core());
    Words words(std::move(tokens));
    Actions actions = step->second(stage, words, line);
    words.end();
    return actions;
}

} // namespace tablio::scenario
