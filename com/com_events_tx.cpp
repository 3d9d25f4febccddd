// The class ComEventsTX: pacing and orders. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "com/automation.h"
#include "server/orders.h"
#include "server/pacing.h"

namespace vintrel::com {
namespace {

class ComEventsTX final : public Automation<_ComEventsTX> {
 public:
    using Automation::Automation;

    STDMETHODIMP ComPortTxWaitConfirm(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::ComPortTxWaitConfirm, TypeX);
    }
    STDMETHODIMP ComPortTXIntervalWithWait(BSTR* TypeX, long* result) noexcept override {
        return Answer(result, server::ComPortTXIntervalWithWait, TypeX);
    }
    STDMETHODIMP ComPortTXInterval(BSTR* TypeX, long* result) noexcept override {
        return Answer(result, server::ComPortTXInterval, TypeX);
    }
    STDMETHODIMP ComEventConfirmDataRecordTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::ComEventConfirmDataRecordTX, TypeX);
    }
    STDMETHODIMP ComEventErrorHandleTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::ComEventErrorHandleTX, TypeX);
    }
    STDMETHODIMP ComEventRequestLogInTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::ComEventRequestLogInTX, TypeX);
    }
    STDMETHODIMP ComEventConfirmLogInTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::ComEventConfirmLogInTX, TypeX);
    }
    STDMETHODIMP ComEventDtrRtsEnabled(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::ComEventDtrRtsEnabled, TypeX);
    }
    STDMETHODIMP ComEventPrimaryTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::ComEventPrimaryTX, TypeX);
    }
    STDMETHODIMP ComEventAfterTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::ComEventAfterTX, TypeX);
    }
    STDMETHODIMP ComEventClockTX(BSTR* TypeX, long* UserX, BSTR* TimeX, BSTR* DateX, short* WakeUpMode,
                                 short* LanguageX, BSTR* result) noexcept override {
        return Answer(result, server::ComEventClockTX, TypeX, UserX, TimeX, DateX, WakeUpMode, LanguageX);
    }
    STDMETHODIMP ComEventCheckInTX(BSTR* TypeX, long* UserX, BSTR* NameX, short* LanguageX, short* ChangeNameEnabled,
                                   BSTR* result) noexcept override {
        return Answer(result, server::ComEventCheckInTX, TypeX, UserX, NameX, LanguageX, ChangeNameEnabled);
    }
    STDMETHODIMP ComEventCheckOutTX(BSTR* TypeX, long* UserX, short* ChangeNameEnabled,
                                    BSTR* result) noexcept override {
        return Answer(result, server::ComEventCheckOutTX, TypeX, UserX, ChangeNameEnabled);
    }
    STDMETHODIMP ComEventUserNameTX(BSTR* TypeX, long* UserX, BSTR* NameZ, BSTR* result) noexcept override {
        return Answer(result, server::ComEventUserNameTX, TypeX, UserX, NameZ);
    }
};

}  // namespace

IUnknown* NewComEventsTX(const ClassEntry& entry) { return static_cast<_ComEventsTX*>(new ComEventsTX(entry)); }

}  // namespace vintrel::com
