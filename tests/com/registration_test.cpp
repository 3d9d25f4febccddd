// Registration for the machine and for the user, and use without it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "Vintrel.h"
#include "client.h"
#include "version.h"

namespace vintrel::testing {
namespace {

/// Every key of the classes below that root, with its values, as the registry's own tool writes them down.
std::wstring ClassesOf(const std::wstring& root) {
    const std::filesystem::path path = ProgramFolder() + L"\\classes.reg";
    std::filesystem::remove(path);  // a user may have no classes at all
    _wsystem((L"reg export " + root + L"\\Software\\Classes \"" + path.native() + L"\" /y > NUL 2>&1").c_str());
    std::ifstream file(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>{file}, {});
    return {reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t)};
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
        std::wstring own, other, arguments;
    } rows[] = {{L"HKEY_LOCAL_MACHINE", L"HKEY_CURRENT_USER", L""},
                {L"HKEY_CURRENT_USER", L"HKEY_LOCAL_MACHINE", L"/n /i:user"}};
    wchar_t clsid[39] = {};
    StringFromGUID2(CLSID_PMSEvents, clsid, 39);
    const std::wstring key = std::wstring(L"\\Classes\\CLSID\\") + clsid + L"\\InprocServer32]";
    for (const auto& row : rows) Regsvr32(L"/u " + row.arguments);  // what the program and an earlier run left
    for (const auto& row : rows) {
        const std::wstring before = ClassesOf(row.own);
        const std::wstring other = ClassesOf(row.other);
        EXPECT_EQ(before.find(L"Vintrel"), std::wstring::npos);
        ASSERT_FALSE(Create(L"Vintrel.ServerInfo"));

        ASSERT_EQ(Regsvr32(row.arguments), 0);
        const std::wstring registered = ClassesOf(row.own);
        ASSERT_NE(registered.find(key), std::wstring::npos);
        std::wstring values = registered.substr(registered.find(key) + key.size());
        values.erase(values.find(L'['));
        EXPECT_NE(values.find(L"Vintrel.dll\""), std::wstring::npos);
        EXPECT_NE(values.find(L"\"ThreadingModel\"=\"Apartment\""), std::wstring::npos);
        EXPECT_TRUE(ClassesOf(row.other) == other);
        if (row.arguments.empty()) {  // not every Windows looks for classes among the user's
            EXPECT_TRUE(Create(L"Vintrel.ServerInfo"));
            Ref<ITypeLib> library;
            EXPECT_EQ(LoadRegTypeLib(LIBID_Vintrel, 1, 0, 0, library.Out()), S_OK);
        }
        for (int i = 0; i < 2; ++i) ASSERT_EQ(Regsvr32(L"/u " + row.arguments), 0);  // what is not there is no failure
        EXPECT_TRUE(ClassesOf(row.own) == before);
    }
}

TEST_F(Registration, IsNotNeededWithTheManifest) {
    ASSERT_EQ(CallExport("DllUnregisterServer"), S_OK);
    const std::filesystem::path path = ProgramFolder() + L"\\client.manifest";
    std::ofstream(path) << "<assembly xmlns='urn:schemas-microsoft-com:asm.v1' manifestVersion='1.0'>"
                           "<assemblyIdentity type='win32' name='client' version='1.0.0.0'/><dependency>"
                           "<dependentAssembly><assemblyIdentity type='win32' name='Vintrel.Server' "
                           "version='" VINTREL_VERSION ".0.0' processorArchitecture='"
                        << (sizeof(void*) == 8 ? "amd64" : "x86") << "'/></dependentAssembly></dependency></assembly>";
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
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace vintrel::testing
