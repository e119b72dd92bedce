/// Events, notices and what sinks do while they hear them.

#include "com_host.h"

#include "object/failure.h"

#include <olectl.h>

#include <tablio/errors.h>
#include <tablio/members.h>

#include <optional>

namespace tablio::com {
namespace {

/// A window that always has the keyboard.
class KeyboardFace final : public PlatformFace {
public:
    using PlatformFace::PlatformFace;
    [[nodiscard]] bool canTakeFocus() const override { return true; }
};

class EventSinks : public ComTest {
protected:
    ComPtr<IDispatch> control = newControl();

    /// Does what raises each event, by its number; what is thrown is told as a host sees it.
    HRESULT raise(DISPID event) {
        const ComPtr<IUnknown> keeps(control.get());
        tablio::Tablio &table = tableOf(control);
        try {
            raiseIn(table, event);
        } catch (const HandlerFailed &failed) {
            return failed.failure().number;
        } catch (const Error &) { // of the table, whose cell a handler has taken away
            return E_FAIL;
        }
        return S_OK;
    }

    /// A column of text, of lookups, of numbers; the cursor on the first cell, with the keyboard.
    void prepare() {
        tablio::Tablio &table = tableOf(control);
        face_.emplace(*Control::of(*control));
        table.setFace(&*face_);
        table.setFixedRows(1);
        table.setColStyle(1, TColumnStyle::ColumnInputWithLookup);
        for (const int col : {0, 2, 3})
            table.setColStyle(col, TColumnStyle::ColumnInput);
        table.input().resized(6000, 4000);
        table.Show();
        for (const int row : {1, 2, 3})
            table.setTextMatrix(row, 0, "row");
        table.CellFocus(1, 0);
        table.input().focusEntered();
    }

    static void type(tablio::Tablio &table, char32_t character) {
        if (table.input().keyDown(static_cast<KeyCode>(character), Shift::None) == Dealt::No)
            table.input().keyPress(character);
    }

private:
    std::optional<KeyboardFace> face_;

    static void raiseIn(tablio::Tablio &table, DISPID event) {
        using namespace TablioLib::event;
        switch (event) {
        case EditPreValidation:
        case EditOnChange:
        case CellKeyPress:
            type(table, 'A');
            type(table, 'B');
            break;
        case EditPostValidation:
            type(table, 'A');
            table.input().keyDown(Key::Enter, Shift::None);
            break;
        case EditLookup:
            table.CellFocus(1, 1);
            type(table, 'A');
            table.input().keyDown(Key::F10, Shift::None);
            break;
        case TablioLib::event::CellFocus:
            table.CellFocus(2, 2);
            break;
        case TableChange:
            table.AddRow();
            break;
        case TableKeyDown:
        case TableRowChange:
            table.input().keyDown(Key::Down, Shift::None);
            break;
        case DoubleClick: {
            const tablio::Rect cell = table.screen().cellRect({1, 0});
            table.input().doubleClick(cell.left + 30, cell.top + 30);
            break;
        }
        default:
            FAIL() << event;
        }
    }
};

bool has(const ComPtr<Sink> &sink, DISPID event) {
    return std::count(sink->heard.begin(), sink->heard.end(), event) > 0;
}

TEST_F(EventSinks, ReadBackWhatEachSinkHasWritten) {
    prepare();
    const ComPtr<Sink> first = newSink();
    const ComPtr<Sink> second = newSink();
    connect(control, first);
    connect(control, second);
    // The first replaces the key, the second sees that and hears the edit's end before it refuses.
    first->handlers[TablioLib::event::CellKeyPress] = [](DISPPARAMS &arguments, EXCEPINFO &) {
        EXPECT_EQ(V_VT(&arguments.rgvarg[0]), VT_I2 | VT_BYREF);
        *V_I2REF(&arguments.rgvarg[0]) = 'x';
        return S_OK;
    };
    std::string seen;
    second->handlers[TablioLib::event::CellKeyPress] = [&](DISPPARAMS &arguments, EXCEPINFO &) {
        seen += static_cast<char>(*V_I2REF(&arguments.rgvarg[0]));
        return S_OK;
    };
    second->handlers[TablioLib::event::EditPostValidation] = [&](DISPPARAMS &arguments,
                                                                 EXCEPINFO &) {
        EXPECT_EQ(arguments.cArgs, 6U);
        seen += ":" + narrow(viewOf(*V_BSTRREF(&arguments.rgvarg[2]))) + ">" +
                narrow(viewOf(*V_BSTRREF(&arguments.rgvarg[1])));
        SysFreeString(*V_BSTRREF(&arguments.rgvarg[1]));
        *V_BSTRREF(&arguments.rgvarg[1]) = newBstr("a longer text of its own");
        *V_BOOLREF(&arguments.rgvarg[3]) = VARIANT_FALSE;
        return S_OK;
    };
    tableOf(control).CellFocus(1, 2);
    type(tableOf(control), 'A'); // begins the edit
    type(tableOf(control), 'B');
    tableOf(control).input().keyDown(Key::Enter, Shift::None);
    EXPECT_EQ(seen, "x:>Ax");
    EXPECT_EQ(tableOf(control).TextMatrix(1, 2), "") << "refused";
}

TEST_F(EventSinks, MayComeAndGo) {
    const ComPtr<IConnectionPoint> point = pointOf(*control.get(), eventsId);
    const ComPtr<Sink> first = newSink();
    const ComPtr<Sink> second = newSink();
    connect(control, first);
    const DWORD cookie = connect(control, second);
    first->handlers[TablioLib::event::TableChange] = [&](DISPPARAMS &, EXCEPINFO &) {
        EXPECT_EQ(point->Unadvise(cookie), S_OK);
        return S_OK;
    };
    EXPECT_EQ(raise(TablioLib::event::TableChange), S_OK);
    EXPECT_FALSE(has(second, TablioLib::event::TableChange)) << "gone before its turn";
    EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);

    ComPtr<IEnumConnections> all;
    ASSERT_EQ(point->EnumConnections(all.out()), S_OK);
    CONNECTDATA data[2]{};
    ULONG count = 0;
    EXPECT_EQ(all->Next(2, data, &count), S_FALSE);
    ASSERT_EQ(count, 1U);
    EXPECT_EQ(data[0].pUnk, static_cast<IUnknown *>(first.get()));
    data[0].pUnk->Release();
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(
        ComPtr<IConnectionPointContainer>::of(control.get())->EnumConnectionPoints(points.out()),
        S_OK);
    IConnectionPoint *found[3]{};
    EXPECT_EQ(points->Next(3, found, &count), S_FALSE);
    EXPECT_EQ(count, 2U);
    EXPECT_EQ(found[0], point.get());
    for (ULONG place = 0; place < count; ++place)
        found[place]->Release();

    GUID guid{};
    const auto info = ComPtr<IProvideClassInfo2>::of(control.get());
    EXPECT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid), S_OK);
    EXPECT_TRUE(guid == eventsId);
}

/// A host may do anything in any handler. Nothing crashes and, as the end of each test asserts,
/// nothing is left over.
TEST_F(EventSinks, MayDoAnythingInAnyEvent) {
    enum class Deed { Release, Change, Fail };
    for (const Event &event : events()) {
        for (const Deed deed : {Deed::Release, Deed::Change, Deed::Fail}) {
            control = newControl();
            prepare();
            const ComPtr<Sink> sink = newSink();
            connect(control, sink);
            sink->handlers[event.number] = [&](DISPPARAMS &, EXCEPINFO &exception) {
                if (deed == Deed::Release)
                    control.reset();
                if (deed == Deed::Change && control) {
                    sink->handlers.clear();
                    put(*control, "Rows", {2});
                    get(*control, "TableClear");
                    put(*control, "Cols", {1});
                }
                if (deed != Deed::Fail)
                    return S_OK;
                exception.scode = 0x800A01C9;
                exception.bstrDescription = newBstr("the host's own");
                return DISP_E_EXCEPTION;
            };
            const HRESULT code = raise(event.number);
            EXPECT_TRUE(has(sink, event.number)) << event.name;
            if (deed == Deed::Change)
                continue;
            EXPECT_EQ(code, deed == Deed::Fail ? static_cast<HRESULT>(0x800A01C9) : S_OK)
                << event.name;
        }
    }
    control.reset();
}

TEST_F(EventSinks, HandOnWhatAHandlerReports) {
    const ComPtr<Sink> sink = newSink();
    connect(control, sink);
    sink->handlers[TablioLib::event::TableChange] = [](DISPPARAMS &, EXCEPINFO &exception) {
        exception.wCode = 77;
        exception.bstrDescription = newBstr("not now");
        return DISP_E_EXCEPTION;
    };
    const Outcome outcome = invoke(*control, "AddRow", {.arguments = {}, .names = {}});
    EXPECT_EQ(outcome.code, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.description, "not now");
    EXPECT_EQ(outcome.number, static_cast<HRESULT>(0x8004004D));
    // Any other code is a sink without this event, as most are.
    sink->handlers.clear();
    EXPECT_EQ(invoke(*control, "AddRow", {.arguments = {}, .names = {}}).code, S_OK);
}

class Notices final : public ComObject<IPropertyNotifySink> {
public:
    std::vector<DISPID> numbers;
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID number) override {
        numbers.push_back(number);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }
};

TEST_F(EventSinks, HearOfProperties) {
    const auto notices = ComPtr<Notices>::taken(new Notices);
    DWORD cookie = 0;
    const ComPtr<IConnectionPoint> point = pointOf(*control.get(), IID_IPropertyNotifySink);
    EXPECT_EQ(point->Advise(newSink().get(), &cookie), CONNECT_E_CANNOTCONNECT);
    ASSERT_EQ(point->Advise(notices.get(), &cookie), S_OK);
    put(*control, "WordWrap", {false});
    put(*control, "TextMatrix", {1, 1, "x"});
    EXPECT_EQ(notices->numbers,
              (std::vector<DISPID>{TablioLib::member::WordWrap, TablioLib::member::TextMatrix}));
}

} // namespace
} // namespace tablio::com
