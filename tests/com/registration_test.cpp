// Registration for the machine and for the user, and use without it.
#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <vector>

#include "Vintrel.h"
#include "client.h"

namespace vintrel::testing {
namespace {

using Snapshot = std::map<std::wstring, std::wstring>;

/// Every key below, with the names and the texts of its values.
void Read(HKEY root, const std::wstring& path, Snapshot& snapshot) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    std::wstring& values = snapshot[path];
    wchar_t name[512];
    wchar_t data[512];
    for (DWORD i = 0;; ++i) {
        DWORD name_length = 512;
        DWORD data_length = sizeof data;
        if (RegEnumValueW(key, i, name, &name_length, nullptr, nullptr, reinterpret_cast<BYTE*>(data), &data_length) ==
            ERROR_NO_MORE_ITEMS)
            break;
        values += std::wstring(name, name_length) + L"=" + std::wstring(data, data_length / sizeof(wchar_t)) + L";";
    }
    for (DWORD i = 0;; ++i) {
        DWORD name_length = 512;
        if (RegEnumKeyExW(key, i, name, &name_length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        Read(root, path + L"\\" + std::wstring(name, name_length), snapshot);
    }
    RegCloseKey(key);
}

Snapshot ClassesOf(HKEY root) {
    Snapshot snapshot;
    Read(root, L"Software\\Classes", snapshot);
    return snapshot;
}

/// The exit code of regsvr32 with these arguments and the DLL.
int Regsvr32(const std::wstring& arguments) {
    return _wsystem((L"regsvr32.exe /s " + arguments + L" \"" + ProgramFolder() + L"\\Vintrel.dll\"").c_str());
}

/// The program registered the server before its tests; each of these ends with the server registered.
class Registration : public ::testing::Test {
 protected:
    ~Registration() override { CallExport("DllRegisterServer"); }
};

TEST_F(Registration, OfMachineOrUserTouchesItsOwnKeysAndLeavesThemAsTheyWere) {
    const struct {
        HKEY own, other;
        std::wstring arguments;
    } rows[] = {{HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER, L""}, {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, L"/n /i:user"}};
    wchar_t clsid[39] = {};
    StringFromGUID2(CLSID_PMSEvents, clsid, 39);
    const std::wstring key = std::wstring(L"Software\\Classes\\CLSID\\") + clsid + L"\\InprocServer32";
    for (const auto& row : rows) Regsvr32(L"/u " + row.arguments);  // what the program and an earlier run left
    for (const auto& row : rows) {
        const Snapshot before = ClassesOf(row.own);
        const Snapshot other = ClassesOf(row.other);
        for (const auto& [path, values] : before) EXPECT_EQ(path.find(L"Vintrel"), std::wstring::npos);
        ASSERT_FALSE(Create(L"Vintrel.ServerInfo"));

        ASSERT_EQ(Regsvr32(row.arguments), 0);
        Snapshot registered = ClassesOf(row.own);
        EXPECT_NE(registered[key].find(L"Vintrel.dll"), std::wstring::npos);
        EXPECT_NE(registered[key].find(L"ThreadingModel=Apartment"), std::wstring::npos);
        EXPECT_EQ(ClassesOf(row.other), other);
        if (row.own == HKEY_LOCAL_MACHINE) {  // not every Windows looks for classes among the user's
            EXPECT_TRUE(Create(L"Vintrel.ServerInfo"));
            Ref<ITypeLib> library;
            EXPECT_EQ(LoadRegTypeLib(LIBID_Vintrel, 1, 0, 0, library.Out()), S_OK);
        }
        for (int i = 0; i < 2; ++i) ASSERT_EQ(Regsvr32(L"/u " + row.arguments), 0);  // what is not there is no failure
        EXPECT_EQ(ClassesOf(row.own), before);
    }
}

TEST_F(Registration, IsNotNeededWithTheManifest) {
    ASSERT_EQ(CallExport("DllUnregisterServer"), S_OK);
    const std::wstring path = ProgramFolder() + L"\\client.manifest";
    FILE* file = _wfopen(path.c_str(), L"w");
    ASSERT_TRUE(file);
    std::fprintf(file,
                 "<assembly xmlns='urn:schemas-microsoft-com:asm.v1' manifestVersion='1.0'>"
                 "<assemblyIdentity type='win32' name='client' version='1.0.0.0'/>"
                 "<dependency><dependentAssembly><assemblyIdentity type='win32' name='Vintrel.Server' "
                 "version='2.841.0.0' processorArchitecture='%s'/></dependentAssembly></dependency></assembly>",
                 sizeof(void*) == 8 ? "amd64" : "x86");
    std::fclose(file);

    ACTCTXW context = {};
    context.cbSize = sizeof context;
    context.lpSource = path.c_str();
    HANDLE handle = CreateActCtxW(&context);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(ActivateActCtx(handle, &cookie));
    for (const wchar_t* prog_id : kProgIds) EXPECT_TRUE(Create(prog_id)) << prog_id;
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(handle);
    DeleteFileW(path.c_str());
}

}  // namespace
}  // namespace vintrel::testing
