#pragma once

/// Makes objects of one of the registered classes for the component runtime.

#include "object/com_object.h"

namespace tablio::com {

/// As DllGetClassObject does.
HRESULT classObject(REFCLSID classId, REFIID iid, void **object) noexcept;

} // namespace tablio::com
