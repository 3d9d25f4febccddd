// The type library that the DLL carries.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace vintrel::com {

/// The description of an interface or a class, by its identifier. Nothing of it is kept in the server.
HRESULT LoadTypeInfo(const GUID& guid, ITypeInfo** info) noexcept;

}  // namespace vintrel::com
