// Tells a running vintrel-host what Windows tells a program when its console is closed. Windows does so by a thread in
// the program that begins at CtrlRoutine, and so does this.
#include <windows.h>

#include <tlhelp32.h>

#include <cwchar>

namespace {

DWORD IdOf(const wchar_t* name) {
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    DWORD id = 0;
    for (BOOL more = Process32FirstW(snapshot, &entry); more != FALSE; more = Process32NextW(snapshot, &entry))
        if (std::wcscmp(entry.szExeFile, name) == 0) id = entry.th32ProcessID;
    CloseHandle(snapshot);
    return id;
}

}  // namespace

int main() {
    HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, IdOf(L"vintrel-host.exe"));
    // The same place in every program of a session.
    FARPROC routine = GetProcAddress(GetModuleHandleW(L"kernelbase.dll"), "CtrlRoutine");
    void* event = reinterpret_cast<void*>(static_cast<ULONG_PTR>(CTRL_CLOSE_EVENT));
    HANDLE thread =
        CreateRemoteThread(process, nullptr, 0, reinterpret_cast<LPTHREAD_START_ROUTINE>(routine), event, 0, nullptr);
    return thread && WaitForSingleObject(process, 10'000) == WAIT_OBJECT_0 ? 0 : 1;
}
