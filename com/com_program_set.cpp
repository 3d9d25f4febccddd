// The class ComProgramSet: the link of each model. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "com/automation.h"
#include "server/link.h"

namespace vintrel::com {
namespace {

class ComProgramSet final : public Automation<_ComProgramSet> {
 public:
    using Automation::Automation;

    STDMETHODIMP ComPortReadyType(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::ComPortReadyType, TypeX);
    }
    STDMETHODIMP ComPortDTRTime(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::ComPortDTRTime, TypeX);
    }
    STDMETHODIMP GetComSTXRx(BSTR* result) noexcept override { return Answer(result, server::GetComSTXRx); }
    STDMETHODIMP GetComETXRx(BSTR* result) noexcept override { return Answer(result, server::GetComETXRx); }
    STDMETHODIMP GetComDLERx(BSTR* result) noexcept override { return Answer(result, server::GetComDLERx); }
    STDMETHODIMP GetComEtxEndReadRxType(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetComEtxEndReadRxType, TypeX);
    }
    STDMETHODIMP GetComMultiDurationReadRx(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetComMultiDurationReadRx, TypeX);
    }
    STDMETHODIMP UseDataReadBuffer(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::UseDataReadBuffer, TypeX);
    }
    STDMETHODIMP GetPABXConnectionType(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetPABXConnectionType, TypeX);
    }
    STDMETHODIMP GetTCPIPWinsockAB(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetTCPIPWinsockAB, TypeX);
    }
    STDMETHODIMP GetTCPIPConnectDirection(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetTCPIPConnectDirection, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPConnectionType(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPConnectionType, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPREConnection(BSTR* TypeX, long* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPREConnection, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPIDRequest(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPIDRequest, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPIDConfirm(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPIDConfirm, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPPWRequest(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPPWRequest, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPPWConfirm(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPPWConfirm, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPIDRequest2(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPIDRequest2, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPIDConfirm2(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPIDConfirm2, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPPWRequest2(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPPWRequest2, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPPWConfirm2(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPPWConfirm2, TypeX);
    }
    STDMETHODIMP GetPABXTCPIPDLCommand(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetPABXTCPIPDLCommand, TypeX);
    }
    STDMETHODIMP GetCheckInType(BSTR* TypeX, long* result) noexcept override {
        return Answer(result, server::GetCheckInType, TypeX);
    }
    STDMETHODIMP GetINIEnabled(BSTR* TypeX, long* result) noexcept override {
        return Answer(result, server::GetINIEnabled, TypeX);
    }
};

}  // namespace

IUnknown* NewComProgramSet(const ClassEntry& entry) { return static_cast<_ComProgramSet*>(new ComProgramSet(entry)); }

}  // namespace vintrel::com
