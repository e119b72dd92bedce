#include "unit/box_keys.h"
#include "widgets/text_field.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace tablio {
namespace {

class TextFieldTest : public testing::Test, public WidgetListener {
protected:
    TextFieldTest() {
        box.onChange = [this] { ++changes; };
    }
    void widgetChanged(WidgetId /*widget*/) override {}

    void load(const char *text, int start, int length = 0) {
        box.load(text);
        box.select(start, start + length);
        changes = 0;
    }

    void play(std::string_view actions) { EXPECT_TRUE(playKeys(box, actions)); }

    /// The text, of plain letters, with | for the caret or [ ] around the selection.
    [[nodiscard]] std::string picture() const {
        std::string text = box.Text();
        const auto from = static_cast<std::size_t>(box.SelStart());
        if (box.SelLength() == 0)
            return text.insert(from, "|");
        return text.insert(from + static_cast<std::size_t>(box.SelLength()), "]").insert(from, "[");
    }

    TextBox box{WidgetId::txtEdit, *this};
    int changes = 0;
};

TEST_F(TextFieldTest, KeysDoWhatTheyDoInAnyTextBox) {
    const struct {
        int start;
        int length;
        const char *actions;
        const char *expected;
        int changes;
    } cases[] = {
        {2, 0, "L", "a|bcd", 0},
        {0, 0, "L", "|abcd", 0},
        {4, 0, "R", "abcd|", 0},
        {1, 2, "L", "a|bcd", 0},
        {1, 2, "R", "abc|d", 0},
        {2, 0, "H", "|abcd", 0},
        {2, 0, "E", "abcd|", 0},
        {2, 0, "l", "a[b]cd", 0},
        {2, 0, "h", "[ab]cd", 0},
        {2, 0, "e", "ab[cd]", 0},
        {1, 2, "r", "a[bcd]", 0},
        {1, 0, "D", "a|cd", 1},
        {4, 0, "D", "abcd|", 0},
        {1, 2, "D", "a|d", 1},
        {2, 0, "A", "[abcd]", 0},
        {1, 2, "x", "ax|d", 1},
        {1, 2, "<", "a|d", 1},
        {1, 0, "<<", "|bcd", 1},
        // A selection grows and shrinks from where it began, through its anchor too.
        {2, 0, "rll", "a[b]cd", 0},
        {2, 0, "rlle", "ab[cd]", 0},
        // Undo goes back change by change, but not to another cell's text.
        {4, 0, "eHDZ", "|abcd", 2},
        {4, 0, "xHDZZZ", "abcd|", 4},
        {4, 0, "Z", "abcd|", 0},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.actions);
        load("abcd", each.start, each.length);
        play(each.actions);
        EXPECT_EQ(picture(), each.expected);
        EXPECT_EQ(changes, each.changes);
    }
    EXPECT_FALSE(box.keyDown(Key::Tab, Shift::None));
    EXPECT_FALSE(box.keyDown(Key::Left, Shift::Alt));
    EXPECT_FALSE(box.keyDown(Key::Back, Shift::None)) << "it comes as a character";
}

TEST_F(TextFieldTest, WithCtrlKeysGoByWordsWhichEndAtBlanksAndSigns) {
    const std::pair<const char *, const char *> cases[] = {
        {"(", "ab, cd; |ef"},      {"((", "ab, cd|; ef"},   {"(((", "ab, |cd; ef"},
        {"((((((", "|ab, cd; ef"}, {"H)", "ab|, cd; ef"},   {"H))", "ab, |cd; ef"},
        {"{l", "ab, cd;[ ef]"},    {"H}}", "[ab, ]cd; ef"}, {"-", "ab, cd; |"},
        {"--", "ab, cd|"},         {"H++", "|cd; ef"},      {"-Z", "ab, cd; ef|"},
    };
    for (const auto &[actions, expected] : cases) {
        SCOPED_TRACE(actions);
        load("ab, cd; ef", 10);
        play(actions);
        EXPECT_EQ(picture(), expected);
    }
}

TEST_F(TextFieldTest, ASelectionThatTheMouseMadeBackwardsIsMovedAtItsOwnEnd) {
    load("abcd", 0);
    box.settle("abcd", 4, 2);
    play("l");
    EXPECT_EQ(picture(), "a[bcd]");
    // The native box reports what it is shown: nothing new.
    box.settle("abcd", 4, 1);
    play("rr");
    EXPECT_EQ(picture(), "abc[d]");
    EXPECT_EQ(changes, 0);
}

TEST_F(TextFieldTest, PositionsCountUtf16UnitsAndNeverSplitACharacter) {
    // 1, 2 and 3 bytes of one unit each, then 4 bytes of two.
    load("aé日😀z", 3, 2);
    EXPECT_EQ(box.SelText(), "😀");
    box.select(3, 3);
    for (const auto &[key, start, text] :
         {std::tuple("R", 5, "aé日😀z"), {"L", 3, "aé日😀z"}, {"D", 3, "aé日z"}, {"<", 2, "aéz"}}) {
        play(key);
        EXPECT_EQ(box.SelStart(), start) << key;
        EXPECT_EQ(box.Text(), text) << key;
    }
    box.insert("😀");
    EXPECT_EQ(box.SelStart(), 4);
    play("<");
    EXPECT_EQ(box.Text(), "aéz");
}

TEST_F(TextFieldTest, SelectionsOutsideTheTextAreMovedToItsEnds) {
    const struct {
        int anchor;
        int caret;
        const char *expected;
    } cases[] = {{-5, 2, "[ab]c"}, {2, 99, "ab[c]"}, {99, 99, "abc|"}};
    for (const auto &each : cases) {
        load("abc", 0);
        box.select(each.anchor, each.caret);
        EXPECT_EQ(picture(), each.expected);
    }
    box.settle("x", 7, 14);
    EXPECT_EQ(picture(), "x|");
}

TEST_F(TextFieldTest, NoSequenceOfKeysPutsTheCaretOutsideOrBreaksTheText) {
    const std::string_view actions = "LRHEDlrheAZ<()-+{}";
    const char *const texts[] = {"a", "é", "😀", "bc"};
    std::mt19937 random(3);
    for (int step = 0; step < 20000; ++step) {
        if (random() % 4 == 0)
            box.insert(texts[random() % 4]);
        else
            play(actions.substr(random() % actions.size(), 1));
        if (box.length() > 40)
            box.load("");
        ASSERT_GE(box.SelStart(), 0);
        ASSERT_LE(box.SelStart() + box.SelLength(), box.length());
        // A caret inside a character would have cut it in two by now.
        std::string rest = box.Text();
        for (const std::string_view whole : {"a", "bc", "b", "c", "é", "😀"}) {
            for (std::size_t at = 0; (at = rest.find(whole)) != std::string::npos;)
                rest.replace(at, whole.size(), whole.size(), ' ');
        }
        ASSERT_EQ(rest.find_first_not_of(' '), std::string::npos) << box.Text();
    }
}

} // namespace
} // namespace tablio
