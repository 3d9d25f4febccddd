// The DLL as a file: what it needs, what it offers, how it may be loaded.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "client.h"

namespace vintrel::testing {
namespace {

constexpr ULONGLONG kLargestSize = ULONGLONG{400} * 1024;

class Library : public ::testing::Test {
 protected:
    Library() : module_(LoadLibraryW(Path().c_str())) {}
    ~Library() override { FreeLibrary(module_); }

    static std::wstring Path() { return ProgramFolder() + L"\\Vintrel.dll"; }
    template <typename Type>
    const Type* At(DWORD offset) const {
        return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(module_) + offset);
    }
    const IMAGE_OPTIONAL_HEADER& Header() const {
        return At<IMAGE_NT_HEADERS>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew))->OptionalHeader;
    }

    HMODULE module_;
};

TEST_F(Library, IsSmallAndNeedsNothingButWindows) {
    const std::set<std::string> system = {"advapi32", "comctl32", "gdi32",  "kernel32", "msvcrt",  "ole32",
                                          "oleaut32", "shell32",  "tapi32", "user32",   "winhttp", "ws2_32"};
    const auto* import =
        At<IMAGE_IMPORT_DESCRIPTOR>(Header().DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
    ASSERT_NE(import->Name, 0U);
    for (; import->Name; ++import) {
        std::string name = At<char>(import->Name);
        name = name.substr(0, name.find('.'));
        for (char& letter : name) letter = static_cast<char>(tolower(letter));
        EXPECT_EQ(system.count(name), 1U) << name;
    }
    EXPECT_LT(std::filesystem::file_size(Path()), kLargestSize);
}

TEST_F(Library, OffersItsExportsUndecoratedMayBeLoadedAnywhereAndRunsNoData) {
    const auto* exports =
        At<IMAGE_EXPORT_DIRECTORY>(Header().DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress);
    std::set<std::string> names;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) names.insert(At<char>(At<DWORD>(exports->AddressOfNames)[i]));
    EXPECT_EQ(names, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllInstall", "DllRegisterServer",
                                            "DllUnregisterServer"}));
    const WORD flags = Header().DllCharacteristics;
    EXPECT_TRUE(flags & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE);
    EXPECT_TRUE(flags & IMAGE_DLLCHARACTERISTICS_NX_COMPAT);
    EXPECT_NE(Header().DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0U);
}

TEST_F(Library, SaysItsVersionToWindowsAsToTheHost) {
    DWORD ignored = 0;
    std::vector<char> information(GetFileVersionInfoSizeW(Path().c_str(), &ignored));
    ASSERT_TRUE(GetFileVersionInfoW(Path().c_str(), 0, static_cast<DWORD>(information.size()), information.data()));
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(information.data(), L"\\", reinterpret_cast<void**>(&fixed), &length));
    wchar_t* text = nullptr;
    ASSERT_TRUE(VerQueryValueW(information.data(), L"\\StringFileInfo\\040904B0\\FileVersion",
                               reinterpret_cast<void**>(&text), &length));
    EXPECT_EQ(std::to_wstring(HIWORD(fixed->dwFileVersionMS)) + L"." + std::to_wstring(LOWORD(fixed->dwFileVersionMS)),
              text);
    const Ref<IDispatch> info = Create(L"Vintrel.ServerInfo");
    EXPECT_EQ(Call(info.Get(), L"GetServerVersion", {}).answer.Str(), text);
    const CY number = Call(info.Get(), L"GetServerVersionCur", {}).answer.cyVal;
    EXPECT_DOUBLE_EQ(static_cast<double>(number.int64) / 10'000, std::stod(text));
    Ref<ITypeLib> library;
    ASSERT_EQ(LoadTypeLibEx(Path().c_str(), REGKIND_NONE, library.Out()), S_OK);
    Text about;
    library->GetDocumentation(MEMBERID_NIL, nullptr, about.Var(), nullptr, nullptr);
    EXPECT_EQ(about.Str(), std::wstring(L"Vintrel exchange server ") + text);
}

}  // namespace
}  // namespace vintrel::testing
