#pragma once

/// The retained models of what stands on a property page: text boxes, check boxes, drop-down lists,
/// buttons and spinners. They are the truth about the page; a front end builds its own widgets from
/// them and mirrors each change. They know no rules: the page hangs those on their handlers.

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tablio {

class PageControl;
class PropertyPage;

/// What a front end hears of its pages. A handler runs in the middle of a page's rules, so it shows
/// what it is told and calls nothing of the page that changes it.
class PageListener {
public:
    virtual ~PageListener() = default;
    /// The control has another text, value, selection or list, or was enabled or disabled.
    virtual void controlChanged(const PageControl & /*control*/) {}
    /// The keyboard belongs to this control.
    virtual void focusMoved(const PageControl & /*control*/) {}
    /// The page's `Changed` flag went on or off.
    virtual void changedFlagSet(const PropertyPage & /*page*/) {}
    /// The pages have given their control other settings. This one may do anything.
    virtual void settingsChanged() {}
};

enum class PageControlKind { TextBox, CheckBox, List, Button, Spinner };

class PageControl {
public:
    PageControl(const PageControl &) = delete;
    PageControl &operator=(const PageControl &) = delete;

    [[nodiscard]] PageControlKind kind() const noexcept { return kind_; }
    /// As the page's rules call it: "txtRows", "cmdIndex(0)".
    [[nodiscard]] const std::string &name() const noexcept { return name_; }
    /// The text on a check box or button, the label beside anything else; "&" stands before the
    /// access key. A spinner has none.
    [[nodiscard]] const std::string &caption() const noexcept { return caption_; }
    [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled);
    /// Holds what another control of the same kind holds and would apply; no handler runs.
    virtual void copy(const PageControl & /*other*/) {}

protected:
    PageControl(PageControlKind kind, std::string_view name, std::string_view caption,
                PageListener &listener)
        : kind_(kind), name_(name), caption_(caption), listener_(listener) {}
    virtual ~PageControl() = default;
    void changed() const { listener_.controlChanged(*this); }

private:
    PageControlKind kind_;
    std::string name_;
    std::string caption_;
    PageListener &listener_;
    bool enabled_ = true;
};

/// Which characters a box takes from the keyboard.
enum class PageKeys { All, WholeNumber };

class PageTextBox final : public PageControl {
public:
    PageTextBox(std::string_view name, std::string_view caption, PageListener &listener,
                PageKeys keys = PageKeys::All)
        : PageControl(PageControlKind::TextBox, name, caption, listener), keys_(keys) {}

    /// Runs after each change of the text, whoever made it.
    std::function<void()> onChange;
    /// Runs when the user leaves the box.
    std::function<void()> onLostFocus;

    [[nodiscard]] PageKeys keys() const noexcept { return keys_; }
    [[nodiscard]] const std::string &Text() const noexcept { return text_; }
    void setText(std::string text);
    void copy(const PageControl &other) override;

private:
    std::string text_;
    PageKeys keys_;
};

/// Holds 0 (clear) or 1 (ticked).
class PageCheckBox final : public PageControl {
public:
    PageCheckBox(std::string_view name, std::string_view caption, PageListener &listener)
        : PageControl(PageControlKind::CheckBox, name, caption, listener) {}

    /// Runs after each change of the value, whoever made it.
    std::function<void()> onClick;

    [[nodiscard]] int Value() const noexcept { return value_; }
    [[nodiscard]] bool isTicked() const noexcept { return value_ == 1; }
    /// Any other value than 0 and 1 is refused.
    void setValue(int value);
    void copy(const PageControl &other) override;

private:
    int value_ = 0;
};

/// A drop-down list without a text of its own.
class PageList final : public PageControl {
public:
    PageList(std::string_view name, std::string_view caption, PageListener &listener,
             std::vector<std::string> items = {})
        : PageControl(PageControlKind::List, name, caption, listener), items_(std::move(items)) {}

    /// Runs whenever an item is selected, also the one that was selected before.
    std::function<void()> onClick;

    [[nodiscard]] const std::vector<std::string> &items() const noexcept { return items_; }
    /// Puts other items in; none of them is selected.
    void setItems(std::vector<std::string> items);
    /// −1 for none.
    [[nodiscard]] int ListIndex() const noexcept { return listIndex_; }
    /// An index that the list does not have is refused.
    void setListIndex(int index);
    void copy(const PageControl &other) override;

private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

class PageButton final : public PageControl {
public:
    PageButton(std::string_view name, std::string_view caption, PageListener &listener)
        : PageControl(PageControlKind::Button, name, caption, listener) {}

    std::function<void()> onClick;
};

/// A pair of arrows that counts up and down between two ends.
class PageSpinner final : public PageControl {
public:
    PageSpinner(std::string_view name, PageListener &listener, int min, int max)
        : PageControl(PageControlKind::Spinner, name, {}, listener), min_(min), max_(max),
          value_(min) {}

    /// Runs after each change of the value, whoever made it.
    std::function<void()> onChange;

    [[nodiscard]] int Min() const noexcept { return min_; }
    [[nodiscard]] int Max() const noexcept { return max_; }
    [[nodiscard]] int Value() const noexcept { return value_; }
    /// A value beyond the ends is refused: moving it to an end would overwrite the number that is
    /// just being typed into the box beside the arrows.
    void setValue(int value);

private:
    int min_;
    int max_;
    int value_;
};

} // namespace tablio
