// The class ComEventsTX: pacing and orders. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "com/automation.h"
#include "tx/guests.h"
#include "tx/pacing.h"
#include "tx/wake_up.h"

namespace vintrel::com {
namespace {

class ComEventsTX final : public Automation<_ComEventsTX> {
 public:
    using Automation::Automation;

    STDMETHODIMP ComPortTxWaitConfirm(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, tx::ComPortTxWaitConfirm, TypeX);
    }
    STDMETHODIMP ComPortTXIntervalWithWait(BSTR* TypeX, long* result) noexcept override {
        return Answer(result, tx::ComPortTXIntervalWithWait, TypeX);
    }
    STDMETHODIMP ComPortTXInterval(BSTR* TypeX, long* result) noexcept override {
        return Answer(result, tx::ComPortTXInterval, TypeX);
    }
    STDMETHODIMP ComEventConfirmDataRecordTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, tx::ComEventConfirmDataRecordTX, TypeX);
    }
    STDMETHODIMP ComEventErrorHandleTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, tx::ComEventErrorHandleTX, TypeX);
    }
    STDMETHODIMP ComEventRequestLogInTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, tx::ComEventRequestLogInTX, TypeX);
    }
    STDMETHODIMP ComEventConfirmLogInTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, tx::ComEventConfirmLogInTX, TypeX);
    }
    STDMETHODIMP ComEventDtrRtsEnabled(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, tx::ComEventDtrRtsEnabled, TypeX);
    }
    STDMETHODIMP ComEventPrimaryTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, tx::ComEventPrimaryTX, TypeX);
    }
    STDMETHODIMP ComEventAfterTX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, tx::ComEventAfterTX, TypeX);
    }
    STDMETHODIMP ComEventClockTX(BSTR* TypeX, long* UserX, BSTR* TimeX, BSTR* DateX, short* WakeUpMode,
                                 short* LanguageX, BSTR* result) noexcept override {
        return Answer(result, tx::ComEventClockTX, TypeX, UserX, TimeX, DateX, WakeUpMode, LanguageX);
    }
    STDMETHODIMP ComEventCheckInTX(BSTR* TypeX, long* UserX, BSTR* NameX, short* LanguageX, short* ChangeNameEnabled,
                                   BSTR* result) noexcept override {
        return Answer(result, tx::ComEventCheckInTX, TypeX, UserX, NameX, LanguageX, ChangeNameEnabled);
    }
    STDMETHODIMP ComEventCheckOutTX(BSTR* TypeX, long* UserX, short* ChangeNameEnabled,
                                    BSTR* result) noexcept override {
        return Answer(result, tx::ComEventCheckOutTX, TypeX, UserX, ChangeNameEnabled);
    }
    STDMETHODIMP ComEventUserNameTX(BSTR* TypeX, long* UserX, BSTR* NameZ, BSTR* result) noexcept override {
        return Answer(result, tx::ComEventUserNameTX, TypeX, UserX, NameZ);
    }
};

}  // namespace

IUnknown* NewComEventsTX(const ClassEntry& entry) { return static_cast<_ComEventsTX*>(new ComEventsTX(entry)); }

}  // namespace vintrel::com
