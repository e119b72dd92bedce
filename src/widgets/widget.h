#pragma once

/// The retained models of the stock widgets. They are the truth about the control's editors: the
/// handlers act on them, tests read them, and a face mirrors them onto native widgets. A widget
/// reports each change to one listener and decides nothing.

#include <tablio/face.h>
#include <tablio/types.h>

#include <string>
#include <utility>

namespace tablio {

class WidgetListener {
public:
    virtual ~WidgetListener() = default;
    virtual void widgetChanged(WidgetId widget) = 0;
};

/// What all widgets have. Positions are twips from the corner of the container.
class Widget {
public:
    Widget(WidgetId id, WidgetListener &listener) : id_(id), listener_(listener) {}
    Widget(const Widget &) = delete;
    Widget &operator=(const Widget &) = delete;

    [[nodiscard]] WidgetId id() const noexcept { return id_; }

    [[nodiscard]] const Rect &place() const noexcept { return place_; }
    [[nodiscard]] Twips Left() const noexcept { return place_.left; }
    [[nodiscard]] Twips Top() const noexcept { return place_.top; }
    [[nodiscard]] Twips Width() const noexcept { return place_.width; }
    [[nodiscard]] Twips Height() const noexcept { return place_.height; }
    void setPlace(const Rect &place) { set(place_, place); }
    void moveTo(Twips left, Twips top) { setPlace({left, top, Width(), Height()}); }

    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    void setVisible(bool visible) { set(visible_, visible); }

    /// A text that the control keeps with the widget: an editor's is the cell's old text.
    [[nodiscard]] const std::string &Tag() const noexcept { return tag_; }
    void setTag(std::string tag) { tag_ = std::move(tag); }

protected:
    ~Widget() = default;

    template <typename T> void set(T &member, T value) {
        if (member == value)
            return;
        member = std::move(value);
        changed();
    }
    void changed() { listener_.widgetChanged(id_); }

private:
    WidgetId id_;
    WidgetListener &listener_;
    Rect place_;
    std::string tag_;
    bool visible_ = false;
};

/// A clipping frame, or a push button.
class PlainWidget : public Widget {
public:
    using Widget::Widget;
};

/// Colours and font that an editor takes from the grid while it lies over a cell.
struct EditorLook {
    Colour BackColor;
    Colour ForeColor;
    tablio::Font Font;

    friend bool operator==(const EditorLook &, const EditorLook &) = default;
};

} // namespace tablio
