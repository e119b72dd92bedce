/// What tablio.dll exports. The component runtime calls it.

#include "server/class_factory.h"
#include "server/module.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void **object) {
    return tablio::com::classObject(classId, iid, object);
}

STDAPI DllCanUnloadNow() { return tablio::com::moduleUsers() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return E_NOTIMPL; }

STDAPI DllUnregisterServer() { return E_NOTIMPL; }
