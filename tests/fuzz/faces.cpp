/// The same session on two faces, of which one says everything twice, comes late and asks for all
/// that it can: the host hears the same.

#include "session.h"

#include <algorithm>

namespace tablio::fuzz {

namespace {

/// Native widgets report what they were shown; what they say is no news.
class EchoingFace final : public SessionFace {
public:
    Session *session = nullptr;

    void shown() override {
        if (session == nullptr || session->table() == nullptr)
            return;
        Tablio &table = *session->table();
        const Screen &screen = table.screen();
        (void)screen.menu();
        (void)screen.calendarMonth(0);
        (void)screen.arranged(9000, 4500, 255, 255);
        if (const auto cell = screen.currentCell())
            (void)screen.facts(*cell);
        const auto editor = screen.editor();
        if (!editor || isEchoing_)
            return;
        isEchoing_ = true;
        const EditNumber old = editor->edit - 1;
        table.input().textSettled(old, "late", 0, 4);
        table.input().comboItemChosen(old, 0);
        table.input().calendarPicked(old, {2004, 5, 3});
        table.input().textSettled(editor->edit, std::string(editor->text), editor->anchor,
                                  editor->caret);
        isEchoing_ = false;
    }

private:
    bool isEchoing_ = false;
};

} // namespace

void faces(Bytes &bytes) {
    Bytes same = bytes;
    SessionFace plain;
    Session first(bytes, plain);
    first.play();
    EchoingFace echoing;
    Session second(same, echoing);
    echoing.session = &second;
    second.play();
    const std::size_t common = std::min(first.log().size(), second.log().size());
    for (std::size_t event = 0; event < common; ++event)
        expect(first.log()[event] == second.log()[event],
               "one face's host hears \"" + first.log()[event] + "\", the other's \"" +
                   second.log()[event] + "\"");
    expect(first.log().size() == second.log().size(), "one face's host hears more");
}

} // namespace tablio::fuzz
