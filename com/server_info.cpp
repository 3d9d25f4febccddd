// The class ServerInfo: version and catalogue. Each operation calls the core function of its name.
#include "server/server_info.h"
#include "Vintrel.h"
#include "com/automation.h"

namespace vintrel::com {
namespace {

class ServerInfo final : public Automation<_ServerInfo> {
 public:
    using Automation::Automation;

    STDMETHODIMP GetServerVersion(BSTR* result) noexcept override { return Answer(result, server::GetServerVersion); }
    STDMETHODIMP GetServerVersionCur(CURRENCY* result) noexcept override {
        return Answer(result, server::GetServerVersionCur);
    }
    STDMETHODIMP GetPabxActiveType(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetPabxActiveType, TypeX);
    }
    STDMETHODIMP GetPabxTypeName(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPabxTypeName, TypeX);
    }
    STDMETHODIMP GetPabxTypeList(VARIANT* result) noexcept override { return Answer(result, server::GetPabxTypeList); }
};

}  // namespace

IUnknown* NewServerInfo(const ClassEntry& entry) { return static_cast<_ServerInfo*>(new ServerInfo(entry)); }

}  // namespace vintrel::com
