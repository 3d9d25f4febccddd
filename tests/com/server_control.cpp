#include "server_control.h"

#include "client.h"

namespace vintrel::testing {
namespace {

/// Calls an export of the DLL, which is loaded for the call only.
template <typename Function, typename... Arguments>
HRESULT CallIn(const char* name, Arguments... arguments) {
    HMODULE module = LoadLibraryW((ProgramFolder() + L"\\Vintrel.dll").c_str());
    if (!module) return E_FAIL;
    const FARPROC function = GetProcAddress(module, name);
    const HRESULT result =
        function ? reinterpret_cast<Function>(reinterpret_cast<void (*)()>(function))(arguments...) : E_FAIL;
    FreeLibrary(module);
    return result;
}

}  // namespace

HRESULT CallExport(const char* name) { return CallIn<HRESULT(STDMETHODCALLTYPE*)()>(name); }

HRESULT CallInstall(bool install, const wchar_t* command_line) {
    return CallIn<HRESULT(STDMETHODCALLTYPE*)(BOOL, LPCWSTR)>("DllInstall", install ? TRUE : FALSE, command_line);
}

}  // namespace vintrel::testing
