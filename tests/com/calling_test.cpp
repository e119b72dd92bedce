/// Calls through IDispatch, as late-bound hosts make them.

#include "automation/font_object.h"
#include "com_host.h"

#include <tablio/errors.h>
#include <tablio/members.h>

namespace tablio::com {
namespace {

class Calling : public ComTest {
protected:
    ComPtr<IDispatch> control = newControl();

    /// What a text column's and a number property's cells make of a value.
    std::string asText(const Any &value) {
        put(*control, "ColTextHeader", {1, value});
        return get(*control, "ColTextHeader", {1}).text();
    }
    Outcome put1(const std::string &name, std::vector<Any> arguments) {
        return invoke(
            *control, name,
            {.flags = DISPATCH_PROPERTYPUT, .arguments = std::move(arguments), .names = {}});
    }
};

Any bits(VARTYPE type, long long value) { return {type, value}; }

Any currency(const char *text) {
    Any amount(text);
    EXPECT_EQ(VariantChangeTypeEx(&amount.get(), &amount.get(), 0x409, 0, VT_CY), S_OK);
    return amount;
}

TEST_F(Calling, TakesEveryKindOfNumber) {
    const struct {
        Any given;
        const char *asText;
        int asLong;
    } cases[] = {
        {bits(VT_I1, -5), "-5", -5},
        {bits(VT_UI1, 200), "200", 200},
        {bits(VT_I2, -30000), "-30000", -30000},
        {bits(VT_UI2, 60000), "60000", 60000},
        {bits(VT_I4, 70000), "70000", 70000},
        {bits(VT_INT, 70000), "70000", 70000},
        {bits(VT_UI4, 70000), "70000", 70000},
        {bits(VT_UINT, 70000), "70000", 70000},
        {bits(VT_I8, 70000), "70000", 70000},
        {bits(VT_UI8, 70000), "70000", 70000},
        {Any(2.5), "2.5", 2},
        {Any("17"), "17", 17},
        {Any(true), "True", -1},
        {currency("12.5"), "12.5", 12},
    };
    for (const auto &one : cases) {
        EXPECT_EQ(asText(one.given), one.asText) << "type " << one.given.type();
        put(*control, "RowHeight", {1, one.given});
        const std::string height = get(*control, "RowHeight", {1}).text();
        if (one.asLong > 0) {
            EXPECT_EQ(height, std::to_string(one.asLong)) << "type " << one.given.type();
        }
    }
    Any single(VT_R4, 0);
    V_R4(&single.get()) = 0.1F;
    EXPECT_EQ(asText(single), "0.1");
    // More digits than a Double has.
    EXPECT_EQ(asText(bits(VT_CY, 922337203685477580)), "92233720368547.758");
    EXPECT_EQ(asText(bits(VT_I8, 9007199254740993)), "9007199254740993");
    // The unsigned reading of a system colour.
    put(*control, "BackColor", {bits(VT_UI4, 0x8000000DLL)});
    EXPECT_EQ(get(*control, "BackColor").text(), std::to_string(static_cast<int>(0x8000000D)));
}

TEST_F(Calling, TakesDatesReferencesAndObjectsWithAValue) {
    Any date("2026-11-23");
    ASSERT_EQ(VariantChangeTypeEx(&date.get(), &date.get(), 0x409, 0, VT_DATE), S_OK);
    // As the user writes it, as a compiled host would have handed it over.
    Any own(date);
    VariantChangeTypeEx(&own.get(), &own.get(), LOCALE_USER_DEFAULT, 0, VT_BSTR);
    EXPECT_EQ(asText(date), own.text());

    short number = 321;
    VARIANT inner{};
    V_VT(&inner) = VT_I2 | VT_BYREF;
    V_I2REF(&inner) = &number;
    VARIANT outer{};
    V_VT(&outer) = VT_VARIANT | VT_BYREF;
    V_VARIANTREF(&outer) = &inner;
    DISPID value = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&outer, &value, 1, 1};
    ASSERT_EQ(control->Invoke(TablioLib::member::MarkRow, IID_NULL, 0, DISPATCH_PROPERTYPUT,
                              &parameters, nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(get(*control, "MarkRow").text(), "321");
    EXPECT_EQ(get(*control, "MarkRow").type(), VT_I2);
}

TEST_F(Calling, PutsArgumentsInTheirPlaces) {
    const auto settings = [&] {
        std::string text;
        for (const char *name : {"ColTextHeader", "ColWidth", "ColStyle", "ColMaxLength"})
            text += get(*control, name, {2}).text() + " ";
        return text;
    };
    const auto call = [&](Call how) { return invoke(*control, "SetColProperty", std::move(how)); };
    EXPECT_EQ(call({.arguments = {2}, .names = {}}).code, S_OK);
    EXPECT_EQ(settings(), " 1000 2 64 ");
    EXPECT_EQ(call({.arguments = {2, "Name", Any::leftOut(), 1}, .names = {}}).code, S_OK);
    EXPECT_EQ(settings(), "Name 1000 1 64 ");
    EXPECT_EQ(call({.arguments = {2, 9, 2000}, .names = {"newcolmaxlength", "NewColWidth"}}).code,
              S_OK);
    EXPECT_EQ(settings(), " 2000 2 9 ");
    // Methods read and properties are called: hosts cannot tell them apart.
    EXPECT_EQ(invoke(*control, "rows", {.flags = DISPATCH_METHOD, .arguments = {}, .names = {}})
                  .result.text(),
              "5");
    EXPECT_EQ(get(*control, "Checked", {1}).type(), VT_BOOL);
}

TEST_F(Calling, TellsWhatIsWrong) {
    struct Case {
        const char *name;
        std::vector<Any> arguments;
        HRESULT code;
        /// From behind, as arguments are passed; 99 for none.
        UINT wrongArgument;
    };
    const HRESULT told = DISP_E_EXCEPTION;
    for (const Case &one : {
             Case{"ColWidth", {1, "wide"}, DISP_E_TYPEMISMATCH, 0},
             Case{"ColWidth", {"one", 100}, DISP_E_TYPEMISMATCH, 1},
             Case{"ColWidth", {1, bits(VT_NULL, 0)}, DISP_E_TYPEMISMATCH, 0},
             Case{"TextMatrix", {1, bits(VT_NULL, 0), "x"}, DISP_E_TYPEMISMATCH, 1},
             Case{"ColWidth", {1, bits(VT_ERROR, E_FAIL)}, DISP_E_TYPEMISMATCH, 0},
             Case{"TextMatrix", {70000, 1, "x"}, DISP_E_OVERFLOW, 2},
             Case{"MarkRow", {40000}, DISP_E_OVERFLOW, 0},
             Case{"TextMatrix", {1, "x"}, DISP_E_BADPARAMCOUNT, 99},
             Case{"Rows", {1, 2, 3}, DISP_E_BADPARAMCOUNT, 99},
             Case{"DataCount", {1}, DISP_E_MEMBERNOTFOUND, 99},
             Case{"AddRow", {1}, DISP_E_MEMBERNOTFOUND, 99},
             Case{"Nothing", {1}, DISP_E_UNKNOWNNAME, 99},
             Case{"TextMatrix", {99, 1, "x"}, told, 99},
         }) {
        const Outcome outcome = put1(one.name, one.arguments);
        EXPECT_EQ(outcome.code, one.code) << one.name;
        EXPECT_EQ(outcome.wrongArgument, one.wrongArgument) << one.name;
    }
    const Outcome grid = put1("TextMatrix", {99, 1, "x"});
    EXPECT_EQ(grid.number, static_cast<HRESULT>(0x80040201));
    EXPECT_EQ(grid.description, "TextMatrix: row 99 is outside 0 to 4");
}

// The platform rounds a font to whole pixels.
TEST_F(Calling, SharesItsFontWithTheHost) {
    const auto font = ComPtr<IFont>::of(get(*control, "Font").object().get());
    ASSERT_TRUE(font);
    font->put_Bold(TRUE);
    font->put_Size(CY{.int64 = 140000});
    EXPECT_TRUE(tableOf(control).Font().bold);
    EXPECT_NEAR(tableOf(control).Font().size, 14, 1);
    EXPECT_EQ(ComPtr<IUnknown>::of(get(*control, "Font").object().get()).get(),
              ComPtr<IUnknown>::of(font.get()).get());
    tableOf(control).setFont({.name = "Arial", .size = 9});
    BOOL bold = TRUE;
    get(*control, "Font");
    font->get_Bold(&bold);
    EXPECT_FALSE(bold) << "the object follows the table";

    // By reference the host's own object becomes the table's; as a value it is only read.
    const ComPtr<IFont> own = newFont({.name = "Arial", .size = 20});
    put(*control, "Font", {Any(own)}, DISPATCH_PROPERTYPUTREF);
    own->put_Italic(TRUE);
    EXPECT_TRUE(tableOf(control).Font().italic);
    font->put_Underline(TRUE);
    EXPECT_FALSE(tableOf(control).Font().underline) << "the first one is the host's alone now";
    const ComPtr<IFont> other = newFont({.name = "Arial", .size = 30});
    put(*control, "Font", {Any(other)});
    EXPECT_NEAR(tableOf(control).Font().size, 30, 1);
    other->put_Italic(TRUE);
    EXPECT_FALSE(tableOf(control).Font().italic);
    control.reset();
    own->put_Bold(TRUE);
}

TEST_F(Calling, GivesOneObjectForOneMatrix) {
    const ComPtr<IDispatch> tags = get(*control, "CellTag").object();
    EXPECT_EQ(get(*control, "CellTag").object().get(), tags.get());
    ComPtr<IDispatch> second = newControl();
    put(*second, "CellTag", {Any(tags)}, DISPATCH_PROPERTYPUTREF);
    EXPECT_EQ(get(*second, "CellTag").object().get(), tags.get());

    Any date(VT_DATE, 0);
    V_DATE(&date.get()) = 46000.75;
    for (const Any &value : {Any(7), Any("text"), Any(true), Any(2.5), bits(VT_I2, 3),
                             bits(VT_NULL, 0), bits(VT_EMPTY, 0), currency("1.5"), date,
                             Any(control), bits(VT_UI1, 4), bits(VT_I8, 5)}) {
        put(*tags, "Text", {1, 2, value});
        const Any back = get(*second, "CellTag").object() ? get(*tags, "Text", {1, 2}) : Any();
        EXPECT_EQ(back.type(), value.type());
        EXPECT_EQ(back.text(), value.text());
        EXPECT_EQ(back.object().get(), value.object().get());
    }
    EXPECT_EQ(get(*tags, "Text", {3, 3}).text(), "");
    put(*tags, "Text", {1, 2, ""});
    second.reset();
    control.reset();
    EXPECT_EQ(get(*tags, "Text", {1, 2}).text(), "") << "hosts may keep it longer";

    ComPtr<IClassFactory> factory;
    ASSERT_EQ(
        classObject(matrixClassId, IID_IClassFactory, reinterpret_cast<void **>(factory.out())),
        S_OK);
    ComPtr<IDispatch> own;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void **>(own.out())),
              S_OK);
    put(*own, "Text", {1, 11, "x"});
    EXPECT_EQ(get(*own, "Text", {11, 1}).text(), "x");
}

TEST_F(Calling, ServesAHostThatAggregates) {
    ComPtr<IUnknown> inner;
    IUnknown *outer = control.get();
    EXPECT_EQ(Control::create(outer, IID_IDispatch, reinterpret_cast<void **>(inner.out())),
              CLASS_E_NOAGGREGATION);
    ASSERT_EQ(Control::create(outer, IID_IUnknown, reinterpret_cast<void **>(inner.out())), S_OK);
    ComPtr<IUnknown> asked;
    ASSERT_EQ(inner->QueryInterface(IID_IDispatch, reinterpret_cast<void **>(asked.out())), S_OK);
    EXPECT_EQ(ComPtr<IUnknown>::of(asked.get()).get(), ComPtr<IUnknown>::of(outer).get())
        << "an interface of the part is one of the whole";
    asked.reset();
}

} // namespace
} // namespace tablio::com
