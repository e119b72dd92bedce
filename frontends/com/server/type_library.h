#pragma once

/// The type library that lies in this file as a resource.

#include <windows.h>

#include <ole2.h>

namespace tablio::com {

/// Loads it, which the platform does once for all who use it at the same time.
HRESULT loadTypeLibrary(ITypeLib **library) noexcept;
/// What it says of an interface or a class.
HRESULT typeInfoOf(const GUID &id, ITypeInfo **info) noexcept;

} // namespace tablio::com
