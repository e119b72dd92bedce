#pragma once

/// Plays scenarios against the Qt widget in a window: keys, clicks and compositions are native
/// events that take the way a user's take, through Qt's own routing.

#include <tablio/testing/driver.h>

#include <tablio/qt/tablio_widget.h>

#include <QDialog>
#include <QLineEdit>
#include <QPointer>

#include <memory>

namespace tablio::scenario {

class QtDriver final : public Driver {
public:
    void create(Twips width, Twips height) override;
    void destroy() override;
    [[nodiscard]] Tablio *core() override { return grid_ ? &grid_->core() : nullptr; }
    void show() override;
    void resize(Twips width, Twips height) override;
    void enterFocus() override;
    void leaveFocus() override;

    void setHost(HostEvents *host) override;
    Value callMember(std::string_view name, const Values &arguments) override;
    void setMember(std::string_view name, const Values &index, const Value &value) override;
    [[nodiscard]] Value readMember(std::string_view name, const Values &index) override;
    void setLocale(const NumberFormat &locale) override;
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

    std::unique_ptr<QDialog> window_;
    QPointer<qt::TablioWidget> grid_;
    QLineEdit *elsewhere_ = nullptr;
    /// Where the mouse was pressed, in the window; the button comes up there even if the control
    /// is gone by then.
    QPoint pressed_;
    Qt::MouseButton held_ = Qt::NoButton;
    Face *qtFace_ = nullptr;
    int depth_ = 0;
};

} // namespace tablio::scenario
