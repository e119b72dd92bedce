#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace tablio {
namespace {

/// Writes a dot for each report, and each event's name before its handler runs.
struct Watch final : Face, HostEvents {
    void shown() override { log += '.'; }
    void EditPreValidation(std::int16_t &, std::int16_t &, bool &) override { hear("pre"); }
    void EditOnChange(std::int16_t &, std::int16_t &, std::string &) override { hear("change"); }
    void EditPostValidation(std::int16_t &, std::int16_t &, bool &, std::string &, std::string &,
                            std::int16_t &) override {
        hear("post");
    }
    void hear(std::string_view event) {
        log.append(event);
        if (event == answered)
            answer();
        log += ';';
    }

    std::string log;
    std::string_view answered;
    std::function<void()> answer;
};

TEST(Reports, AFaceIsToldOnceAtTheEndOfACallAndBeforeAHandlerRuns) {
    struct Case {
        std::string_view answered;
        std::string_view log;
        std::function<void(std::unique_ptr<Tablio> &)> answer;
    };
    const auto mark = [](auto &table) { table->MarkActiveRow(); };
    const auto fail = [](auto &) { throw std::runtime_error("no"); };
    const auto destroy = [](auto &table) { table.reset(); };
    // A character starts an edit, Enter ends it, and then a row is marked.
    const Case cases[] = {
        {"", "pre;.change;.post;..", {}},
        // What a handler does is shown while it still runs.
        // Unmarking raises an event on the way.
        {"pre", "pre.;..change;.post;..", mark},
        {"change", "pre;.change.;.post;..", mark},
        {"post", "pre;.change;.post.;..", mark},
        {"pre", "pre.", fail},
        {"change", "pre;.change.", fail},
        {"post", "pre;.change;.post.", fail},
        {"pre", "pre;", destroy},
        {"change", "pre;.change;", destroy},
        {"post", "pre;.change;.post;", destroy},
    };
    for (const Case &one : cases) {
        Watch watch;
        auto table = std::make_unique<Tablio>();
        table->setFace(&watch);
        table->Show();
        table->SetColProperty(0, "A", 1000, TColumnStyle::ColumnInput);
        table->input().focusEntered();
        table->setHost(&watch);
        watch.log.clear();
        watch.answered = one.answered;
        watch.answer = [&] { one.answer ? one.answer(table) : void(); };
        try {
            table->input().keyPress(U'a');
            if (table != nullptr)
                table->input().keyDown(Key::Enter, Shift::None);
        } catch (const std::runtime_error &) {
        }
        if (table != nullptr)
            table->MarkActiveRow();
        EXPECT_EQ(watch.log, one.log) << one.answered;
    }
}

} // namespace
} // namespace tablio
