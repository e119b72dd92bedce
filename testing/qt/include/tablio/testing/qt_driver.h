#pragma once

/// Plays scenarios against the Qt widget in a window, a host's own form for one: keys, clicks and
/// compositions are native events that take the way a user's take, through Qt's own routing. It
/// never calls the host's code but through the widget's signals.

#include <tablio/testing/driver.h>

#include <tablio/qt/tablio_widget.h>

#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

namespace tablio::scenario {

/// It needs a QApplication, of the offscreen platform where there is no display. After each step
/// that is not played inside a handler it compares the widget's native children with the control;
/// a difference fails the step.
class QtDriver final : public Driver {
public:
    /// Makes a form, a window of its own with a grid in it, ready to be shown.
    using FormMaker = std::function<std::unique_ptr<QWidget>()>;

    /// Drives a grid that has the control's own defaults in place of a theme's and is alone in a
    /// window with one other field. Sizes are exact where scroll bars take no room.
    QtDriver();
    /// Drives the grid of a host's form. The form is made anew for each scenario, which finds it as
    /// its maker left it, data and size included, and is hidden and destroyed after it. What the
    /// form's own slots answer comes before the scenario's answers. Of several grids it is the one
    /// with this object name.
    explicit QtDriver(FormMaker makeForm, QString gridName = {});
    ~QtDriver() override;
    QtDriver(const QtDriver &) = delete;
    QtDriver &operator=(const QtDriver &) = delete;

    /// Throws ScriptError for a form without such a grid.
    void create(Twips width, Twips height) override;
    /// The form with its grid.
    void destroy() override;
    [[nodiscard]] Tablio *core() override { return grid_ ? &grid_->core() : nullptr; }
    /// Shows the form. A host's keeps its data, and the keyboard is where the form puts it.
    void show() override;
    /// The form becomes as large as this size of the grid needs.
    void resize(Twips width, Twips height) override;
    void enterFocus() override;
    /// Throws ScriptError for a form that has no other widget to take the keyboard.
    void leaveFocus() override;

    void setHost(HostEvents *host) override;
    Value callMember(std::string_view name, const Values &arguments) override;
    void setMember(std::string_view name, const Values &index, const Value &value) override;
    [[nodiscard]] Value readMember(std::string_view name, const Values &index) override;
    /// The grid gets a locale with these signs; throws Error where Qt knows none.
    void setLocale(const NumberFormat &locale) override;
    void setRightToLeft(bool rightToLeft) override;
    void setClipboard(std::string_view text) override;

    void strike(const KeyStroke &stroke) override;
    void compose(std::string_view text) override;
    void enterText(std::string_view text) override;
    void settle(WidgetId editor, std::string_view text, int caret) override;

    void pressMouse(MouseButton button, Twips x, Twips y) override;
    void moveMouse(Twips x, Twips y) override;
    void releaseMouse(MouseButton button, Twips x, Twips y) override;
    void doubleClick(Twips x, Twips y) override;
    void scrollTo(int topRow, int leftCol) override;
    void pushButton(WidgetId button) override;

    void chooseMenuEntry(MenuEntry entry) override;
    void chooseItem(int index) override;
    void pickDay(const Date &day) override;

private:
    /// What the host or the user does. When it is not done inside a handler, the native widgets are
    /// compared with the control after it.
    template <typename Action> auto outermost(Action action);
    /// Throws what handlers threw meanwhile.
    template <typename Action> void deliver(Action action);
    [[nodiscard]] QWidget *canvas() const;
    [[nodiscard]] QPoint inWindow(Twips x, Twips y) const;
    [[nodiscard]] QWidget *elsewhere() const;

    FormMaker makeForm_;
    QString gridName_;
    bool isBare_ = false;
    QPointer<QWidget> window_;
    QPointer<qt::TablioWidget> grid_;
    Face *ownFace_ = nullptr;
    /// While it lives, the scenario hears the grid's signals.
    std::unique_ptr<QObject> listener_;
    Qt::MouseButton held_ = Qt::NoButton;
    int depth_ = 0;
};

} // namespace tablio::scenario
