#include "host/server.h"

#include <cstring>
#include <string>

#include "host/console.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

// A BSTR holds wchar_t, our texts char16_t: the same 16 bits under two names.
const char16_t* AsText(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }
const wchar_t* AsWide(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }

std::string HexNumber(HRESULT result) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text = "0x";
    for (unsigned shift = 32; shift > 0; shift -= 4)
        text += kDigits[static_cast<unsigned long>(result) >> (shift - 4) & 15U];
    return text;
}

/// The description that the failed call left on this thread, or what the system says about the number.
std::string Description(HRESULT result) {
    ComPointer<IErrorInfo> information;
    Bstr text;
    if (GetErrorInfo(0, reinterpret_cast<IErrorInfo**>(information.Receive())) == S_OK &&
        information->GetDescription(text.Out()) == S_OK && !text.View().empty())
        return ToUtf8(text.View());
    return SystemMessage(static_cast<DWORD>(result));
}

template <typename Interface>
void Create(const wchar_t* program_id, const IID& interface_id, ComPointer<Interface>& object) {
    CLSID class_id{};
    HRESULT result = CLSIDFromProgID(program_id, &class_id);
    if (SUCCEEDED(result))
        result = CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, interface_id, object.Receive());
    if (SUCCEEDED(result)) return;
    const std::string name = FromWide(program_id);
    if (result == CO_E_CLASSSTRING || result == REGDB_E_CLASSNOTREG)
        throw Failure(ExitCode::NotRegistered,
                      "the server is not registered (" + name + " is unknown): register it with regsvr32 Vintrel.dll");
    throw Failure(ExitCode::NotRegistered,
                  name + " cannot be created: " + SystemMessage(static_cast<DWORD>(result)) + " " + HexNumber(result));
}

}  // namespace

void Bstr::Assign(std::u16string_view text) {
    if (SysReAllocStringLen(&text_, AsWide(text.data()), static_cast<UINT>(text.size())) == 0) throw std::bad_alloc();
}

void Bstr::AssignBytes(std::string_view bytes) {
    if (!text_ || SysStringLen(text_) != bytes.size()) {
        SysFreeString(text_);
        text_ = SysAllocStringLen(nullptr, static_cast<UINT>(bytes.size()));
        if (!text_) throw std::bad_alloc();
    }
    wchar_t* to = text_;
    for (const char byte : bytes) *to++ = static_cast<unsigned char>(byte);
}

std::u16string_view Bstr::View() const {
    return text_ ? std::u16string_view(AsText(text_), SysStringLen(text_)) : std::u16string_view();
}

BSTR* Bstr::Out() {
    SysFreeString(text_);
    text_ = nullptr;
    return &text_;
}

Apartment::Apartment() {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        throw Failure(ExitCode::NotRegistered, "COM cannot be started");
}

void CheckCall(HRESULT result) {
    if (FAILED(result))
        throw Failure(ExitCode::Failed, "the server failed: " + Description(result) + " (" + HexNumber(result) + ")");
}

Server::Server() {
    Create(L"Vintrel.ServerInfo", IID__ServerInfo, info);
    Create(L"Vintrel.SetServerOptions", IID__SetServerOptions, setup);
    Create(L"Vintrel.ComProgramSet", IID__ComProgramSet, link);
    Create(L"Vintrel.ServiceEnabled", IID__ServiceEnabled, services);
    Create(L"Vintrel.ComEventsTX", IID__ComEventsTX, tx);
    Create(L"Vintrel.ComEventsRX", IID__ComEventsRX, rx);
    Create(L"Vintrel.ComGdvFilter", IID__ComGdvFilter, gdv);
    Create(L"Vintrel.PMSEvents", IID__PMSEvents, pms);
}

Model::Model(const Server& server, const std::string& code) : server_(server), code_(FromUtf8(code)) {
    Bstr type(code_);
    if (server.Value<short>(server.info, &_ServerInfo::GetPabxActiveType, type.InOut()) == 0)
        throw Failure(ExitCode::Usage, "the server knows no model \"" + code + "\": vintrel-host models lists them");
    code_ = type.View();
    name_ = Text(server.info, &_ServerInfo::GetPabxTypeName);
}

std::vector<std::string> AllCodes(const Server& server) {
    // The server shows its list in a window only: a program finds the codes by asking for one after the other.
    constexpr unsigned kLowest = 10'000;
    constexpr unsigned kHighest = 99'999;
    std::vector<std::string> codes;
    for (unsigned number = kLowest; number <= kHighest; ++number) {
        const std::string code = "TYPE" + std::to_string(number);
        Bstr type(FromUtf8(code));
        if (server.Value<short>(server.info, &_ServerInfo::GetPabxActiveType, type.InOut()) != 0) codes.push_back(code);
    }
    return codes;
}

void Initialize(const Server& server, const Model& model, const std::string& folder) {
    if (folder.empty()) return;
    if (!IsFolder(folder)) throw Failure(ExitCode::Failed, "there is no folder " + folder + " for the settings");
    Bstr directory(FromUtf8(folder));
    VARIANT nothing{};
    CheckCall(server.setup->SetAllUserCommonDocumentsDirA(directory.InOut(), &nothing));
    model.Value(server.setup, &_SetServerOptions::InitializeServer);
    model.Value(server.setup, &_SetServerOptions::InitializeServerSec);
}

}  // namespace vintrel::host
