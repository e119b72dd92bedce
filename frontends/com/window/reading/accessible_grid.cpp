#include "window/reading/accessible_grid.h"

#include "object/text.h"
#include "window/window.h"

#include <optional>

namespace tablio::com {

namespace {

/// Rows and columns, headers included.
struct TableSize {
    int rows = 0;
    int cols = 0;
};

TableSize sizeOf(const Window &window) { return {window.rows(), window.cols()}; }

void setNumber(VARIANT *variant, LONG number) {
    V_VT(variant) = VT_I4;
    V_I4(variant) = number;
}

} // namespace

HRESULT AccessibleGrid::none(BSTR *text) {
    *text = nullptr;
    return S_FALSE;
}

template <typename Action> HRESULT AccessibleGrid::answer(const VARIANT &child, Action action) {
    const std::shared_ptr<Window> window = window_.lock();
    if (window == nullptr || !window->isOpen())
        return CO_E_OBJNOTCONNECTED;
    if (V_VT(&child) != VT_I4)
        return E_INVALIDARG;
    const auto [rows, cols] = sizeOf(*window);
    const LONG number = V_I4(&child);
    if (number < 0 || (number > 0 && (cols == 0 || (number - 1) / cols >= rows)))
        return E_INVALIDARG;
    std::optional<CellAddress> cell;
    if (number > 0)
        cell =
            CellAddress{static_cast<int>(number - 1) / cols, static_cast<int>(number - 1) % cols};
    try {
        return action(*window, cell);
    } catch (...) {
        return E_FAIL;
    }
}

HRESULT AccessibleGrid::get_accParent(IDispatch **parent) {
    *parent = nullptr;
    const std::shared_ptr<Window> window = window_.lock();
    return window == nullptr
               ? CO_E_OBJNOTCONNECTED
               : AccessibleObjectFromWindow(window->handle(), static_cast<DWORD>(OBJID_WINDOW),
                                            IID_IDispatch, reinterpret_cast<void **>(parent));
}

HRESULT AccessibleGrid::get_accChildCount(LONG *count) {
    const std::shared_ptr<Window> window = window_.lock();
    const TableSize size = window != nullptr && window->isOpen() ? sizeOf(*window) : TableSize{};
    *count = size.rows * size.cols;
    return S_OK;
}

HRESULT AccessibleGrid::get_accChild(VARIANT /*child*/, IDispatch **object) {
    // Cells are no objects of their own.
    *object = nullptr;
    return S_FALSE;
}

HRESULT AccessibleGrid::get_accName(VARIANT child, BSTR *name) {
    *name = nullptr;
    return answer(child, [&](const Window &window, std::optional<CellAddress> cell) {
        *name = newBstr(cell ? window.screen().facts(*cell).header : "Data entry grid");
        return S_OK;
    });
}

HRESULT AccessibleGrid::get_accValue(VARIANT child, BSTR *value) {
    *value = nullptr;
    return answer(child, [&](const Window &window, std::optional<CellAddress> cell) {
        if (!cell)
            return S_FALSE;
        const CellFacts facts = window.screen().facts(*cell);
        const std::optional<ScreenEditor> editor = window.screen().editor();
        *value = newBstr(facts.isEdited && editor ? editor->text : facts.text);
        return S_OK;
    });
}

/// Where a cell is, for readers that tell tables.
HRESULT AccessibleGrid::get_accDescription(VARIANT child, BSTR *text) {
    *text = nullptr;
    return answer(child, [&](const Window &, std::optional<CellAddress> cell) {
        if (!cell)
            return S_FALSE;
        *text = newBstr("Row " + std::to_string(cell->row) + ", column " +
                        std::to_string(cell->col + 1));
        return S_OK;
    });
}

HRESULT AccessibleGrid::get_accRole(VARIANT child, VARIANT *role) {
    return answer(child, [&](const Window &window, std::optional<CellAddress> cell) {
        if (!cell) {
            setNumber(role, ROLE_SYSTEM_TABLE);
            return S_OK;
        }
        const CellFacts facts = window.screen().facts(*cell);
        const bool isHeader = cell->row < window.screen().rowRange().first;
        setNumber(role, isHeader           ? ROLE_SYSTEM_COLUMNHEADER
                        : facts.isFixed    ? ROLE_SYSTEM_ROWHEADER
                        : facts.isCheckBox ? ROLE_SYSTEM_CHECKBUTTON
                                           : ROLE_SYSTEM_CELL);
        return S_OK;
    });
}

HRESULT AccessibleGrid::get_accState(VARIANT child, VARIANT *state) {
    return answer(child, [&](const Window &window, std::optional<CellAddress> cell) {
        LONG states = window.isEnabled() ? STATE_SYSTEM_FOCUSABLE : STATE_SYSTEM_UNAVAILABLE;
        if (cell) {
            const CellFacts facts = window.screen().facts(*cell);
            const bool isCurrent = window.screen().currentCell() == cell;
            states |= facts.isFixed ? 0 : STATE_SYSTEM_SELECTABLE;
            states |= facts.isReadOnly ? STATE_SYSTEM_READONLY : 0;
            states |= facts.isTicked ? STATE_SYSTEM_CHECKED : 0;
            states |= facts.isMarked ? STATE_SYSTEM_MARQUEED : 0;
            states |= isCurrent ? STATE_SYSTEM_SELECTED : 0;
            states |= isCurrent && window.hasKeyboard() ? STATE_SYSTEM_FOCUSED : 0;
        } else if (window.hasKeyboard()) {
            states |= STATE_SYSTEM_FOCUSED;
        }
        setNumber(state, states);
        return S_OK;
    });
}

HRESULT AccessibleGrid::get_accFocus(VARIANT *child) {
    VariantInit(child);
    VARIANT self{};
    setNumber(&self, CHILDID_SELF);
    return answer(self, [&](const Window &window, std::optional<CellAddress>) {
        const std::optional<CellAddress> cell = window.screen().currentCell();
        if (!cell)
            return S_FALSE;
        setNumber(child, window.childOf(*cell));
        return S_OK;
    });
}

HRESULT AccessibleGrid::accLocation(LONG *left, LONG *top, LONG *width, LONG *height,
                                    VARIANT child) {
    return answer(child, [&](const Window &window, std::optional<CellAddress> cell) {
        RECT area;
        GetClientRect(window.handle(), &area);
        if (cell) {
            const PixelRect place = window.pixels().rect(window.screen().cellRect(*cell));
            area = {place.left, place.top, place.right(), place.bottom()};
        }
        MapWindowPoints(window.handle(), nullptr, reinterpret_cast<POINT *>(&area), 2);
        *left = area.left;
        *top = area.top;
        *width = area.right - area.left;
        *height = area.bottom - area.top;
        return S_OK;
    });
}

HRESULT AccessibleGrid::accNavigate(LONG direction, VARIANT from, VARIANT *to) {
    VariantInit(to);
    return answer(from, [&](const Window &window, std::optional<CellAddress> cell) {
        const auto [rows, cols] = sizeOf(window);
        CellAddress next = cell.value_or(CellAddress{});
        switch (direction) {
        case NAVDIR_FIRSTCHILD:
            break;
        case NAVDIR_LASTCHILD:
            next = {rows - 1, cols - 1};
            break;
        case NAVDIR_UP:
            --next.row;
            break;
        case NAVDIR_DOWN:
            ++next.row;
            break;
        case NAVDIR_LEFT:
        case NAVDIR_PREVIOUS:
            --next.col;
            break;
        case NAVDIR_RIGHT:
        case NAVDIR_NEXT:
            ++next.col;
            break;
        default:
            return E_INVALIDARG;
        }
        const bool isChild = direction == NAVDIR_FIRSTCHILD || direction == NAVDIR_LASTCHILD;
        if (isChild == cell.has_value() || next.row < 0 || next.col < 0 || next.row >= rows ||
            next.col >= cols)
            return S_FALSE;
        setNumber(to, window.childOf(next));
        return S_OK;
    });
}

HRESULT AccessibleGrid::accHitTest(LONG left, LONG top, VARIANT *child) {
    VariantInit(child);
    VARIANT self{};
    setNumber(&self, CHILDID_SELF);
    return answer(self, [&](const Window &window, std::optional<CellAddress>) {
        POINT at{left, top};
        ScreenToClient(window.handle(), &at);
        RECT area;
        GetClientRect(window.handle(), &area);
        if (PtInRect(&area, at) == FALSE)
            return S_FALSE;
        const auto cell = window.screen().cellAt(window.twips(at.x), window.twips(at.y));
        setNumber(child, cell ? window.childOf(*cell) : CHILDID_SELF);
        return S_OK;
    });
}

HRESULT AccessibleGrid::GetTypeInfoCount(UINT *count) {
    *count = 0;
    return S_OK;
}

} // namespace tablio::com
