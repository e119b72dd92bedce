#pragma once

/// What the core asks of a front end. A face shows with its toolkit's own widgets what the core
/// decides, and answers what only the platform knows. Nothing here waits for the user: a menu, a
/// warning or a calendar is shown at once and answered later through `Input`.

#include <tablio/date.h>
#include <tablio/number_format.h>
#include <tablio/types.h>

#include <string>
#include <string_view>

namespace tablio {

/// The stock widgets inside the control, under its own names. `Grid` stands for the grid itself.
enum class WidgetId {
    Grid,
    picText,
    txtEdit,
    picEdit,
    cboEdit,
    txtDateEdit,
    cmdLookup,
    cmdCalender,
    picDate,
    mvCalender,
};

/// Every function has a neutral answer, so that a face without, say, a clipboard leaves it out.
/// Lengths are twips. A face does not throw: the core calls it also while an error is on its way.
class Face {
public:
    virtual ~Face() = default;

    /// Something that is shown besides the cells has changed since this was last called: an editor,
    /// a button, a list, the calendar, the menu, whose the keyboard is. Show them as they are now.
    /// Comes once at the end of a call into the control, and before the host hears an event. It may
    /// come again while the face is still in it, when what the face does calls the control.
    virtual void shown() {}
    /// Whether takeFocus() can get the keyboard: a control that is not in sight has none.
    [[nodiscard]] virtual bool canTakeFocus() const { return true; }
    /// The keyboard is wanted inside the control: take the platform's, if it is elsewhere.
    virtual void takeFocus() {}
    /// An area of the grid has to be painted again.
    virtual void areaChanged(const Rect & /*area*/) {}
    /// The grid has scrolled, or its scroll range is another. After a scroll all of the grid has to
    /// be shown anew, for which no area is reported: a face may move what stays in sight.
    virtual void scrolled() {}
    /// Show the pop-up menu with its corner, where its captions begin, at this point of the
    /// control.
    virtual void popUpMenu(Twips /*x*/, Twips /*y*/) {}
    /// Show a warning that the user confirms; the core goes on meanwhile.
    virtual void showWarning(std::string_view /*title*/, std::string_view /*text*/) {}
    /// Ask the user, who answers later by Input::questionAnswered(). False: this face cannot ask,
    /// and what it was to ask about is done at once.
    [[nodiscard]] virtual bool showQuestion(std::string_view /*title*/, std::string_view /*text*/) {
        return false;
    }

    [[nodiscard]] virtual std::string clipboardText() { return {}; }
    virtual void setClipboardText(std::string_view /*text*/) {}

    [[nodiscard]] virtual NumberFormat numberFormat() const { return {}; }
    /// The one character that this character becomes in upper or lower case.
    [[nodiscard]] virtual char32_t toUpper(char32_t character) const;
    [[nodiscard]] virtual char32_t toLower(char32_t character) const;
    [[nodiscard]] virtual Date today() const { return {}; }
    /// How dates are written that come from elsewhere; the control's own are day, month, year.
    [[nodiscard]] virtual DateOrder dateOrder() const { return DateOrder::DayMonthYear; }

    /// What text without a font of its own is shown in.
    [[nodiscard]] virtual Font defaultFont() const { return {}; }

    /// How wide a text is in one line of such a font, in which what is empty is the face's own. A
    /// face that cannot measure answers what is usual.
    [[nodiscard]] virtual Twips textWidth(std::string_view text, const Font &font) const;

    /// Lets the user interface breathe during a long scan. It may come very often; the face
    /// decides how seldom it really does something.
    virtual void letPendingEventsRun() {}
    /// A property has another value; findMember() of `tablio/members.h` knows its name.
    virtual void propertyChanged(MemberNumber /*number*/) {}
    /// Whether anybody listens to propertyChanged(), which comes for each cell that a host writes.
    [[nodiscard]] bool hearsProperties() const noexcept { return hearsProperties_; }
    /// Whether the host's form may see keys before the control does.
    virtual void setHostKeyPreview(bool /*preview*/) {}

protected:
    /// For a face that knows that nobody listens; at first it is asked to tell everything.
    void setHearsProperties(bool hears) noexcept { hearsProperties_ = hears; }

private:
    bool hearsProperties_ = true;
};

} // namespace tablio
