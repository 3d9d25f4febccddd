#include "com/registration.h"

#include <iterator>
#include <string>

#include "Vintrel.h"
#include "com/class_table.h"
#include "com/module.h"
#include "version.h"

namespace vintrel::com {
namespace {

constexpr wchar_t kLibraryName[] = L"Vintrel exchange server " VINTREL_VERSION;
constexpr wchar_t kLibraryVersion[] = L"1.0";
constexpr wchar_t kAutomationMarshaler[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kPlatform = sizeof(void*) == 8 ? L"win64" : L"win32";

std::wstring GuidText(const GUID& guid) {
    wchar_t text[39] = {};
    StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
    return text;
}

/// The classes branch of the registry, for the machine or the user.
class ClassesRoot {
 public:
    explicit ClassesRoot(Scope scope) : root_(scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {}

    /// Nothing is written any more after the first failure.
    void Write(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
        if (error_ != ERROR_SUCCESS) return;
        const DWORD bytes = static_cast<DWORD>(value.size() + 1) * DWORD{sizeof(wchar_t)};
        error_ = RegSetKeyValueW(root_, Path(key).c_str(), name, REG_SZ, value.c_str(), bytes);
    }
    void Write(const std::wstring& key, const std::wstring& value = {}) { Write(key, nullptr, value); }

    void DeleteTree(const std::wstring& key) {
        const LONG result = RegDeleteTreeW(root_, Path(key).c_str());
        if (result != ERROR_SUCCESS && result != ERROR_FILE_NOT_FOUND && error_ == ERROR_SUCCESS) error_ = result;
    }
    bool HasSubkeys(const std::wstring& key) const { return Counts(key).subkeys != 0; }
    void DeleteIfEmpty(const std::wstring& key) {
        const auto [subkeys, values] = Counts(key);
        if (subkeys == 0 && values == 0) RegDeleteKeyW(root_, Path(key).c_str());
    }
    HRESULT Result() const { return HRESULT_FROM_WIN32(static_cast<DWORD>(error_)); }

 private:
    struct KeyCounts {
        DWORD subkeys = 0;
        DWORD values = 0;
    };

    static std::wstring Path(const std::wstring& key) {
        return key.empty() ? L"Software\\Classes" : L"Software\\Classes\\" + key;
    }

    KeyCounts Counts(const std::wstring& key) const {
        KeyCounts counts{.subkeys = 0, .values = 0};
        HKEY opened = nullptr;
        if (RegOpenKeyExW(root_, Path(key).c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) return counts;
        RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &counts.subkeys, nullptr, nullptr, &counts.values, nullptr,
                         nullptr, nullptr, nullptr);
        RegCloseKey(opened);
        return counts;
    }

    HKEY root_;
    LONG error_ = ERROR_SUCCESS;
};

/// "_ServerInfo" of "Vintrel.ServerInfo".
std::wstring InterfaceName(const ClassEntry& entry) {
    const std::wstring prog_id = entry.prog_id;
    return L"_" + prog_id.substr(prog_id.find(L'.') + 1);
}

void WriteClass(ClassesRoot& root, const ClassEntry& entry, const std::wstring& library, const std::wstring& path) {
    const std::wstring clsid = GuidText(entry.clsid);
    root.Write(entry.prog_id, entry.prog_id);
    root.Write(entry.prog_id + std::wstring(L"\\CLSID"), clsid);

    const std::wstring key = L"CLSID\\" + clsid;
    root.Write(key, entry.prog_id);
    root.Write(key + L"\\InprocServer32", path);
    root.Write(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    root.Write(key + L"\\ProgID", entry.prog_id);
    root.Write(key + L"\\Programmable");
    root.Write(key + L"\\TypeLib", library);
    root.Write(key + L"\\Version", kLibraryVersion);
}

void WriteInterface(ClassesRoot& root, const ClassEntry& entry, const std::wstring& library) {
    const std::wstring key = L"Interface\\" + GuidText(entry.iid);
    root.Write(key, InterfaceName(entry));
    root.Write(key + L"\\ProxyStubClsid32", kAutomationMarshaler);
    root.Write(key + L"\\TypeLib", library);
    root.Write(key + L"\\TypeLib", L"Version", kLibraryVersion);
}

void WriteTypeLibrary(ClassesRoot& root, const std::wstring& library, const std::wstring& path) {
    const std::wstring key = L"TypeLib\\" + library + L"\\" + kLibraryVersion;
    root.Write(key, kLibraryName);
    root.Write(key + L"\\0\\" + kPlatform, path);
    root.Write(key + L"\\FLAGS", L"0");
    root.Write(key + L"\\HELPDIR", path.substr(0, path.find_last_of(L'\\')));
}

/// The 32-bit and the 64-bit server share this entry: it goes with the last of them.
void DeleteTypeLibrary(ClassesRoot& root, const std::wstring& library) {
    const std::wstring key = L"TypeLib\\" + library + L"\\" + kLibraryVersion;
    root.DeleteTree(key + L"\\0\\" + kPlatform);
    if (!root.HasSubkeys(key + L"\\0")) root.DeleteTree(key);
    root.DeleteIfEmpty(L"TypeLib\\" + library);
}

}  // namespace

HRESULT Register(Scope scope) {
    ClassesRoot root(scope);
    const std::wstring path = ModulePath();
    const std::wstring library = GuidText(LIBID_Vintrel);
    for (const ClassEntry& entry : Classes()) {
        WriteClass(root, entry, library, path);
        WriteInterface(root, entry, library);
    }
    WriteTypeLibrary(root, library, path);
    if (FAILED(root.Result())) Unregister(scope);
    return root.Result();
}

HRESULT Unregister(Scope scope) {
    ClassesRoot root(scope);
    for (const ClassEntry& entry : Classes()) {
        root.DeleteTree(entry.prog_id);
        root.DeleteTree(L"CLSID\\" + GuidText(entry.clsid));
        root.DeleteTree(L"Interface\\" + GuidText(entry.iid));
    }
    DeleteTypeLibrary(root, GuidText(LIBID_Vintrel));
    // A user's branch may have had none of these before.
    if (scope == Scope::User)
        for (const wchar_t* parent : {L"CLSID", L"Interface", L"TypeLib", L""}) root.DeleteIfEmpty(parent);
    return root.Result();
}

}  // namespace vintrel::com
