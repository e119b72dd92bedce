#pragma once

/// What the property pages have in common: the control they are bound to, the `Changed` flag, and
/// the ways in for what the user does. A front end drives each page through this class alone. Pages
/// reach the control by name through its public interface and show no messages: a step that fails
/// is skipped and the next one runs.

#include <tablio/dispatch.h>
#include <tablio/errors.h>
#include <tablio/pages/page_controls.h>

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tablio {

class Tablio;

class PropertyPage {
public:
    virtual ~PropertyPage() = default;
    PropertyPage(const PropertyPage &) = delete;
    PropertyPage &operator=(const PropertyPage &) = delete;

    [[nodiscard]] const std::string &name() const noexcept { return name_; }
    /// All controls of the page in tab order; a spinner follows its text box.
    [[nodiscard]] std::span<PageControl *const> controls() const noexcept { return controls_; }

    /// The page is shown for a control: loads its properties.
    virtual void SelectionChanged() = 0;
    /// OK or Apply: writes the properties back; nothing is left to apply afterwards.
    virtual void ApplyChanges() = 0;
    /// Whether there is something to apply.
    [[nodiscard]] bool Changed() const noexcept { return changed_; }
    void setChanged(bool changed);
    /// Holds what another page of the same kind holds and would apply, for a preview. No rule runs.
    void copyFrom(const PropertyPage &other);

    // What the user does. A disabled control takes nothing.
    /// Whether the box takes a character (Backspace is character 8) with this selection, counted in
    /// UTF-16 units. Keys that type nothing are not asked about.
    [[nodiscard]] bool takesKey(const PageTextBox &box, char32_t character, int selStart,
                                int selLength) const;
    /// The box holds another text. The page may put yet another one in its place.
    void typed(PageTextBox &box, std::string text);
    void lostFocus(PageTextBox &box);
    void clicked(PageCheckBox &box);
    void chosen(PageList &list, int index);
    void pressed(PageButton &button);
    /// Then the box shows the value, also when the spinner had it before.
    void spun(PageSpinner &spinner, int value);

protected:
    /// The control and the listener must outlive the page.
    PropertyPage(std::string_view name, Tablio &control, PageListener &listener)
        : control_(control), listener_(listener), selected_(control), name_(name) {}

    void setControls(std::vector<PageControl *> controls) { controls_ = std::move(controls); }
    void setFocus(const PageControl &control) { listener_.focusMoved(control); }

    /// Runs one step of a routine; its error ends the step and nothing else.
    template <typename Step> static void attempt(const Step &step) {
        try {
            step();
        } catch (const Error &) {
            return; // The routine goes on with its next step.
        }
    }
    [[nodiscard]] Value get(std::string_view property) { return selected_.get(property); }
    [[nodiscard]] Value get(std::string_view property, int index) {
        return selected_.get(property, {Value(index)});
    }
    /// One step each.
    void put(std::string_view property, const Value &value);
    void put(std::string_view property, int index, const Value &value);

    Tablio &control_;
    PageListener &listener_;

private:
    /// The first of the selected controls; others are never touched.
    Dispatch selected_;
    std::string name_;
    std::vector<PageControl *> controls_;
    bool changed_ = false;
};

} // namespace tablio
