#pragma once

/// Plays keys on the model of a text box, for the tests of text, combo and masked box.

#include <tablio/input.h>

#include <string_view>

namespace tablio {

/// "L" "R" "H" "E": the caret keys, small ones with Shift; "D" Delete, "<" Backspace; with Ctrl
/// "(" Left, ")" Right, "{" Left and "}" Right with Shift too, "-" Backspace, "+" Delete, "A"
/// selects all and "Z" undoes. Anything else is typed. Whether the box took all keys.
template <typename Box> bool playKeys(Box &box, std::string_view actions) {
    const std::string_view keys = "LRHEDlrheAZ()-+{}";
    const KeyCode codes[] = {Key::Left,  Key::Right, Key::Home,   Key::End,  Key::Delete, Key::Left,
                             Key::Right, Key::Home,  Key::End,    Key::A,    Key::Z,      Key::Left,
                             Key::Right, Key::Back,  Key::Delete, Key::Left, Key::Right};
    bool takesAll = true;
    for (const char action : actions) {
        const std::size_t at = keys.find(action);
        if (action == '<')
            box.backspace();
        else if (at == std::string_view::npos)
            box.type(static_cast<unsigned char>(action));
        else
            takesAll = box.keyDown(codes[at], at < 5    ? Shift::None
                                              : at < 9  ? Shift::Shift
                                              : at < 15 ? Shift::Ctrl
                                                        : Shift::Shift | Shift::Ctrl) &&
                       takesAll;
    }
    return takesAll;
}

} // namespace tablio
