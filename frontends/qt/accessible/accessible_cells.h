#pragma once

/// The cells that a screen reader has asked for. Each is one object for as long as it is kept, so
/// that its changes can be told; of those asked for longest ago no more than a screen or two is
/// kept, and one that is asked for again is a new one.

#include <tablio/tablio.h>

#include <QAccessible>

#include <list>
#include <map>
#include <string>
#include <utility>

namespace tablio::qt {

class TablioWidgetPrivate;

/// One cell, by its place in the table: who stands there after rows have moved is another content
/// of the same cell.
class AccessibleCell final : public QAccessibleInterface,
                             public QAccessibleTableCellInterface,
                             public QAccessibleActionInterface {
public:
    AccessibleCell(TablioWidgetPrivate &parts, CellAddress address)
        : parts_(parts), address_(address) {}

    [[nodiscard]] CellAddress address() const noexcept { return address_; }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject *object() const override { return nullptr; }
    [[nodiscard]] QWindow *window() const override;
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface *parent() const override;
    /// The open editor, where it is here.
    [[nodiscard]] QAccessibleInterface *child(int index) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] bool isSelected() const override;
    [[nodiscard]] QList<QAccessibleInterface *> columnHeaderCells() const override;
    [[nodiscard]] QList<QAccessibleInterface *> rowHeaderCells() const override;
    [[nodiscard]] int columnIndex() const override;
    [[nodiscard]] int rowIndex() const override;
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface *table() const override { return parent(); }

    [[nodiscard]] QStringList actionNames() const override;
    [[nodiscard]] QString localizedActionName(const QString &name) const override;
    void doAction(const QString &name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString &name) const override;

private:
    TablioWidgetPrivate &parts_;
    CellAddress address_;
};

class AccessibleCells {
public:
    explicit AccessibleCells(TablioWidgetPrivate &parts) : parts_(parts) {}
    ~AccessibleCells();
    AccessibleCells(const AccessibleCells &) = delete;
    AccessibleCells &operator=(const AccessibleCells &) = delete;

    /// Null for a cell that the grid does not have. Qt owns the object.
    [[nodiscard]] QAccessibleInterface *at(CellAddress address);
    /// Forgets cells that have gone, and tells what has changed of the others.
    void tellChanges();

private:
    /// What a screen reader knows of a cell.
    struct Told {
        std::string text;
        QAccessible::State state;
        bool isRefused = false;

        friend bool operator==(const Told &, const Told &) = default;
    };
    struct Kept {
        CellAddress address;
        QAccessible::Id id = 0;
        AccessibleCell *cell = nullptr;
        Told told;
    };
    static constexpr std::size_t mostKept = 500;

    [[nodiscard]] Told now(const Kept &kept) const;

    TablioWidgetPrivate &parts_;
    /// Those asked for last come first.
    std::list<Kept> kept_;
    std::map<std::pair<int, int>, std::list<Kept>::iterator> places_;
};

} // namespace tablio::qt
