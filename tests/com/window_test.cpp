/// The control in a container's window: what screen readers hear of it, and what it shows a form
/// that is being designed. What is typed and clicked there, scenarios play.

#include "com_host.h"

#include "container.h"

#include <oleacc.h>

namespace tablio::com {

namespace {

class WindowTest : public ComTest {
protected:
    WindowTest() {
        window_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr,
                                  nullptr, nullptr);
        ShowWindow(window_, SW_SHOW);
    }
    ~WindowTest() override { DestroyWindow(window_); }

    HWND window_;
};

std::string textOf(BSTR text) {
    std::string result = narrow(viewOf(text));
    SysFreeString(text);
    return result;
}

VARIANT childNumber(LONG number) {
    VARIANT child{};
    V_VT(&child) = VT_I4;
    V_I4(&child) = number;
    return child;
}

} // namespace

TEST_F(WindowTest, ScreenReadersFindATableItsHeadersAndTheCurrentCell) {
    const ComPtr<IDispatch> control = newControl();
    Container container(window_);
    container.hold(control.get());
    ASSERT_EQ(container.show({0, 0, 400, 300}), S_OK);
    put(*control.get(), "ColTextHeader", {1, "Unit"});
    put(*control.get(), "TextMatrix", {2, 1, "Bag"});
    get(*control.get(), "CellFocus", {2, 1});

    ComPtr<IAccessible> table;
    ASSERT_EQ(AccessibleObjectFromWindow(container.controlWindow(),
                                         static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                         reinterpret_cast<void **>(table.out())),
              S_OK);
    LONG count = 0;
    EXPECT_EQ(table->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 20);
    VARIANT current{};
    EXPECT_EQ(table->get_accFocus(&current), S_OK);
    EXPECT_EQ(V_I4(&current), 2 * 4 + 1 + 1);
    BSTR text = nullptr;
    EXPECT_EQ(table->get_accName(current, &text), S_OK);
    EXPECT_EQ(textOf(text), "Unit");
    EXPECT_EQ(table->get_accValue(current, &text), S_OK);
    EXPECT_EQ(textOf(text), "Bag");
    for (const auto &[child, expected] :
         {std::pair(0L, ROLE_SYSTEM_TABLE), std::pair(2L, ROLE_SYSTEM_COLUMNHEADER)}) {
        VARIANT role{};
        EXPECT_EQ(table->get_accRole(childNumber(child), &role), S_OK);
        EXPECT_EQ(V_I4(&role), expected);
    }
    VARIANT up{};
    EXPECT_EQ(table->accNavigate(NAVDIR_UP, current, &up), S_OK);
    EXPECT_EQ(V_I4(&up), 4 + 1 + 1);
    LONG left = 0, top = 0, width = 0, height = 0;
    EXPECT_EQ(table->accLocation(&left, &top, &width, &height, current), S_OK);
    VARIANT hit{};
    EXPECT_EQ(table->accHitTest(left + width / 2, top + height / 2, &hit), S_OK);
    EXPECT_EQ(V_I4(&hit), V_I4(&current));
    EXPECT_EQ(table->get_accName(childNumber(21), &text), E_INVALIDARG);
    container.letGo();
    EXPECT_NE(table->get_accName(current, &text), S_OK) << "a reader may hold it for longer";
}

TEST_F(WindowTest, AFormThatIsDesignedShowsTheTableAndTakesNoKeyboard) {
    const ComPtr<IDispatch> control = newControl();
    Container container(window_);
    container.isRunning = false;
    container.hold(control.get());
    ASSERT_EQ(container.show({0, 0, 400, 300}), S_OK);
    container.enter();
    const HWND window = container.controlWindow();
    ASSERT_NE(window, nullptr);
    SendMessageW(window, WM_LBUTTONDOWN, 0, MAKELPARAM(30, 30));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(30, 30));
    EXPECT_FALSE(IsChild(window, GetFocus()));
    EXPECT_FALSE(tableOf(control).input().hasKeyboard());
}

} // namespace tablio::com
