#include "server/type_library.h"

#include "object/com_object.h"
#include "object/entry.h"

namespace tablio::com {

HRESULT loadTypeLibrary(ITypeLib **library) noexcept {
    try {
        return LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, library);
    } catch (...) {
        return codeOfException();
    }
}

HRESULT typeInfoOf(const GUID &id, ITypeInfo **info) noexcept {
    if (info == nullptr)
        return E_POINTER;
    *info = nullptr;
    ComPtr<ITypeLib> library;
    const HRESULT code = loadTypeLibrary(library.out());
    return FAILED(code) ? code : library->GetTypeInfoOfGuid(id, info);
}

} // namespace tablio::com
