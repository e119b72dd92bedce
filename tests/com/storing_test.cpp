/// Saving to a container's property bag and to a stream, and loading from them.

#include "com_host.h"

#include <map>

namespace tablio::com {
namespace {

/// A container's property bag in memory.
class MemoryBag final : public ComObject<IPropertyBag> {
public:
    std::map<std::string, Any> values;

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT *value, IErrorLog *) override {
        const auto found = values.find(narrow(name));
        return found == values.end() ? E_INVALIDARG : VariantCopy(value, &found->second.get());
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT *value) override {
        return VariantCopy(&values[narrow(name)].get(), value);
    }
};

class StoredControls : public ComTest {
protected:
    ComPtr<IDispatch> control = newControl();
    ComPtr<MemoryBag> bag = ComPtr<MemoryBag>::taken(new MemoryBag);

    static ComPtr<IPersistPropertyBag> bagOf(const ComPtr<IDispatch> &one) {
        return ComPtr<IPersistPropertyBag>::of(one.get());
    }
};

TEST_F(StoredControls, LieInAContainersBag) {
    put(*control, "HeaderRowHeight", {0});
    put(*control, "ColTextHeader", {1, "Größe"});
    ASSERT_EQ(bagOf(control)->Save(bag.get(), TRUE, TRUE), S_OK);
    const auto typeOf = [&](const char *name) {
        const auto found = bag->values.find(name);
        return found == bag->values.end() ? -1 : int{found->second.type()};
    };
    EXPECT_EQ(typeOf("Cols"), VT_I4);
    EXPECT_EQ(typeOf("ForeColorFixed"), VT_I4) << "always stored";
    EXPECT_EQ(typeOf("ColStyle1"), VT_R8);
    EXPECT_EQ(typeOf("ColTextHeader1"), VT_BSTR);
    EXPECT_EQ(typeOf("HeaderRowHeight"), -1) << "the default, whatever the container asks for";
    EXPECT_EQ(typeOf("Font"), -1) << "the container's own";
    EXPECT_EQ(ComPtr<IPersistStreamInit>::of(control.get())->IsDirty(), S_FALSE);

    ComPtr<IDispatch> loaded = newControl();
    // What does not fit is skipped; an amount in place of a number is none.
    bag->values["RowMinHeight"] = Any("high");
    bag->values["ColWidth2"] = Any(VT_CY, 12340000);
    ASSERT_EQ(bagOf(loaded)->Load(bag.get(), nullptr), S_OK);
    EXPECT_EQ(get(*loaded, "ColTextHeader", {1}).text(), "Größe");
    EXPECT_EQ(get(*loaded, "HeaderRowHeight").text(), "700");
    EXPECT_EQ(get(*loaded, "ColWidth", {2}).text(), "1234");
    EXPECT_EQ(get(*loaded, "Cols").text(), "4");
}

TEST_F(StoredControls, KeepTheirFontAsAnObject) {
    tableOf(control).setFont({.name = "Arial", .size = 12, .italic = true});
    ASSERT_EQ(bagOf(control)->Save(bag.get(), FALSE, FALSE), S_OK);
    ASSERT_TRUE(ComPtr<IFont>::of(bag->values["Font"].object().get()));
    ComPtr<IDispatch> loaded = newControl();
    ASSERT_EQ(bagOf(loaded)->Load(bag.get(), nullptr), S_OK);
    EXPECT_TRUE(tableOf(loaded).Font().italic);
    EXPECT_NEAR(tableOf(loaded).Font().size, 12, 0.5);
}

TEST_F(StoredControls, LieInAStream) {
    put(*control, "ColTextHeader", {1, "Größe"});
    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.out()), S_OK);
    const auto stored = ComPtr<IPersistStreamInit>::of(control.get());
    EXPECT_EQ(stored->IsDirty(), S_OK);
    ULARGE_INTEGER size{};
    EXPECT_EQ(stored->GetSizeMax(&size), S_OK);
    ASSERT_EQ(stored->Save(stream.get(), TRUE), S_OK);
    ULARGE_INTEGER end{};
    ASSERT_EQ(stream->Seek({}, STREAM_SEEK_CUR, &end), S_OK);
    EXPECT_EQ(end.QuadPart, size.QuadPart);
    stream->Write("rest", 4, nullptr);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);

    ComPtr<IDispatch> loaded = newControl();
    const auto loader = ComPtr<IPersistStreamInit>::of(loaded.get());
    ASSERT_EQ(loader->Load(stream.get()), S_OK);
    EXPECT_EQ(get(*loaded, "ColTextHeader", {1}).text(), "Größe");
    // What follows is another's.
    EXPECT_EQ(stream->Seek({}, STREAM_SEEK_CUR, &end), S_OK);
    EXPECT_EQ(end.QuadPart, size.QuadPart);
    EXPECT_TRUE(FAILED(loader->Load(stream.get()))) << "no settings";
    CLSID id{};
    EXPECT_EQ(loader->GetClassID(&id), S_OK);
    EXPECT_TRUE(id == tablioClassId);
}

} // namespace
} // namespace tablio::com
