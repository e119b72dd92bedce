/// The property pages as a property frame uses them, in a window that nobody sees.

#include "com_host.h"

#include <commctrl.h>

namespace tablio::com {
namespace {

class Site final : public ComObject<IPropertyPageSite> {
public:
    int changes = 0;
    HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD) override {
        ++changes;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetLocaleID(LCID *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG *) override { return S_FALSE; }
};

class Pages : public ComTest {
protected:
    Pages() {
        parent = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 800, 600, nullptr, nullptr,
                                 nullptr, nullptr);
    }
    ~Pages() override { DestroyWindow(parent); }

    void open(const CLSID &id) {
        ComPtr<IClassFactory> factory;
        ASSERT_EQ(classObject(id, IID_IClassFactory, reinterpret_cast<void **>(factory.out())),
                  S_OK);
        ASSERT_EQ(factory->CreateInstance(nullptr, IID_IPropertyPage,
                                          reinterpret_cast<void **>(page.out())),
                  S_OK);
        IUnknown *object = control.get();
        ASSERT_EQ(page->SetPageSite(site.get()), S_OK);
        ASSERT_EQ(page->SetObjects(1, &object), S_OK);
        const RECT place{0, 0, 700, 500};
        ASSERT_EQ(page->Activate(parent, &place, FALSE), S_OK);
    }
    /// The widget behind this label, or with this text on it; a window of this kind.
    [[nodiscard]] HWND widget(const std::string &text) const {
        const HWND window = GetWindow(parent, GW_CHILD);
        HWND child = GetWindow(window, GW_CHILD);
        for (; child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
            WCHAR shown[80]{};
            GetWindowTextW(child, shown, 80);
            WCHAR kind[20]{};
            GetClassNameW(child, kind, 20);
            if (narrow(shown) == text)
                return narrow(kind) == "Static" ? GetWindow(child, GW_HWNDNEXT) : child;
        }
        ADD_FAILURE() << "no widget " << text;
        return nullptr;
    }
    [[nodiscard]] std::string shown(const std::string &label) const {
        WCHAR text[80]{};
        GetWindowTextW(widget(label), text, 80);
        return narrow(text);
    }
    void type(const std::string &label, const std::string &text) const {
        const HWND box = widget(label);
        SendMessageW(box, EM_SETSEL, 0, -1);
        for (const char character : text)
            SendMessageW(box, WM_CHAR, static_cast<WPARAM>(character), 1);
    }

    HWND parent;
    ComPtr<IDispatch> control = newControl();
    ComPtr<Site> site = ComPtr<Site>::taken(new Site);
    ComPtr<IPropertyPage> page;
};

TEST_F(Pages, ApplyWhatIsTyped) {
    open(generalPageId);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    EXPECT_EQ(shown("&Rows"), "5");
    type("&Rows", "1x2");
    EXPECT_EQ(shown("&Rows"), "12") << "a letter is no digit";
    EXPECT_GT(site->changes, 0);
    const HWND arrows = GetWindow(widget("&Rows"), GW_HWNDNEXT);
    NMUPDOWN step{{arrows, 0, static_cast<UINT>(UDN_DELTAPOS)}, 0, -1};
    SendMessageW(GetParent(arrows), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&step));
    EXPECT_EQ(shown("&Rows"), "13");
    SendMessageW(widget("Word&Wrap"), BM_CLICK, 0, 0);
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    EXPECT_EQ(tableOf(control).Rows(), 5) << "not yet";
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    EXPECT_EQ(tableOf(control).Rows(), 13);
    EXPECT_FALSE(tableOf(control).WordWrap());
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr);
}

TEST_F(Pages, TakeBackWhatWasDoneAtOnceAndNeverApplied) {
    open(columnsPageId);
    SendMessageW(widget("&Insert"), BM_CLICK, 0, 0);
    EXPECT_EQ(tableOf(control).Cols(), 5);
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(tableOf(control).Cols(), 4);
}

TEST_F(Pages, OfferAllThatThePlatformAsks) {
    open(entryPageId);
    SendMessageW(widget("Entry &rules"), CB_SETCURSEL, 1, 0);
    SendMessageW(GetParent(widget("Entry &rules")), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(widget("Entry &rules")));
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(tableOf(control).EntryRules(), TEntryRules::Careful);

    PROPPAGEINFO info{};
    ASSERT_EQ(page->GetPageInfo(&info), S_OK);
    EXPECT_EQ(narrow(info.pszTitle), "Entry");
    EXPECT_GT(info.size.cx, 0);
    CoTaskMemFree(info.pszTitle);
    CAUUID pages{};
    ASSERT_EQ(ComPtr<ISpecifyPropertyPages>::of(control.get())->GetPages(&pages), S_OK);
    ASSERT_EQ(pages.cElems, 3U);
    EXPECT_TRUE(pages.pElems[1] == columnsPageId);
    CoTaskMemFree(pages.pElems);
    page->Deactivate();
    // Other objects are none of ours.
    IUnknown *stranger = site.get();
    EXPECT_EQ(page->SetObjects(1, &stranger), E_INVALIDARG);
}

} // namespace
} // namespace tablio::com
