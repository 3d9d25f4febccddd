// What the DLL exports, and its entry point.
#include <windows.h>

#include <olectl.h>

#include "com/class_factory.h"
#include "com/class_table.h"
#include "com/guarded.h"
#include "com/module.h"
#include "com/registration.h"
#include "com/runtime/threads.h"

using namespace vintrel::com;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* factory) {
    if (!factory) return E_POINTER;
    *factory = nullptr;
    const ClassEntry* entry = FindClass(clsid);
    if (!entry) return CLASS_E_CLASSNOTAVAILABLE;
    return GuardedResult([&] { return NewClassFactory(*entry, iid, factory); });
}

STDAPI DllCanUnloadNow() { return CanUnload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
    return GuardedResult([] { return Register(Scope::Machine); });
}

STDAPI DllUnregisterServer() {
    return GuardedResult([] { return Unregister(Scope::Machine); });
}

/// "regsvr32 /n /i:user Vintrel.dll" registers for the current user, without administrator rights.
STDAPI DllInstall(BOOL install, LPCWSTR command_line) {
    const bool user = command_line != nullptr && lstrcmpiW(command_line, L"user") == 0;
    return GuardedResult([&] {
        const Scope scope = user ? Scope::User : Scope::Machine;
        return install != FALSE ? Register(scope) : Unregister(scope);
    });
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID process_ends) {
    if (reason == DLL_THREAD_DETACH) EndRuntimeThread();
    if (reason == DLL_PROCESS_DETACH && !process_ends) EndRuntime();
    return TRUE;
}
