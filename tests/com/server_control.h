// The DLL's exports, as regsvr32 calls them.
#pragma once

#include <windows.h>

namespace vintrel::testing {

/// DllRegisterServer, DllUnregisterServer or DllCanUnloadNow of the DLL beside the program; E_FAIL without it.
HRESULT CallExport(const char* name);
HRESULT CallInstall(bool install, const wchar_t* command_line);

}  // namespace vintrel::testing
