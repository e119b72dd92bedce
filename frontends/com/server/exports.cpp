/// What tablio.dll exports. The component runtime calls it.

#include "server/class_factory.h"
#include "server/module.h"
#include "server/registration.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void **object) {
    return tablio::com::classObject(classId, iid, object);
}

STDAPI DllCanUnloadNow() { return tablio::com::moduleUsers() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return tablio::com::registerServer(); }

STDAPI DllUnregisterServer() { return tablio::com::unregisterServer(); }
