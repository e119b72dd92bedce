#include "server/class_factory.h"

#include "automation/matrix_object.h"
#include "object/control.h"
#include "pages/property_page_object.h"
#include "server/guid.h"

#include <array>
#include <new>

namespace tablio::com {

namespace {

struct RegisteredClass {
    CLSID id;
    HRESULT (*create)(IUnknown *outer, REFIID iid, void **object) noexcept;
};

constexpr std::array registeredClasses{
    RegisteredClass{tablioClassId, &Control::create},
    RegisteredClass{matrixClassId, &createMatrix},
    RegisteredClass{generalPageId, &createGeneralPage},
    RegisteredClass{columnsPageId, &createColumnsPage},
    RegisteredClass{entryPageId, &createEntryPage},
};

class ClassFactory final : public ComObject<IClassFactory> {
public:
    explicit ClassFactory(const RegisteredClass &made) noexcept : made_(made) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID iid, void **object) override {
        return made_.create(outer, iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL locks) override {
        lockModule(locks != FALSE);
        return S_OK;
    }

private:
    const RegisteredClass &made_;
};

} // namespace

HRESULT classObject(REFCLSID classId, REFIID iid, void **object) noexcept {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    for (const RegisteredClass &one : registeredClasses) {
        if (one.id != classId)
            continue;
        const auto factory = ComPtr<IClassFactory>::taken(new (std::nothrow) ClassFactory(one));
        return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

} // namespace tablio::com
