// The class ComEventsRX: received frames and call records. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "com/automation.h"
#include "server/call_records.h"
#include "server/external_transfer.h"
#include "server/framing.h"
#include "server/login.h"
#include "server/received_frames.h"

namespace vintrel::com {
namespace {

class ComEventsRX final : public Automation<_ComEventsRX> {
 public:
    using Automation::Automation;

    STDMETHODIMP GetComLngEndReadRx(BSTR* TypeX, long* result) noexcept override {
        return Answer(result, server::GetComLngEndReadRx, TypeX);
    }
    STDMETHODIMP GetComEtxEndReadRx(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetComEtxEndReadRx, TypeX);
    }
    STDMETHODIMP GetComEtxEndReadRx2(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetComEtxEndReadRx2, TypeX);
    }
    STDMETHODIMP GetComACKRx(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::GetComACKRx, TypeX);
    }
    STDMETHODIMP GetRepeatErrorEventRX(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetRepeatErrorEventRX, TypeX);
    }
    STDMETHODIMP GetIPXComColumn(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetIPXComColumn, TypeX);
    }
    STDMETHODIMP GetIPXComSpace(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetIPXComSpace, TypeX);
    }
    STDMETHODIMP GetIPXComComma(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetIPXComComma, TypeX);
    }
    STDMETHODIMP GetComIsRoomState(BSTR* TypeX, BSTR* InstringX, short* result) noexcept override {
        return Answer(result, server::GetComIsRoomState, TypeX, InstringX);
    }
    STDMETHODIMP GetComIsRoomAlarm(BSTR* TypeX, BSTR* InstringX, short* result) noexcept override {
        return Answer(result, server::GetComIsRoomAlarm, TypeX, InstringX);
    }
    STDMETHODIMP GetComIsConfirmClock(BSTR* TypeX, BSTR* InstringX, short* result) noexcept override {
        return Answer(result, server::GetComIsConfirmClock, TypeX, InstringX);
    }
    STDMETHODIMP GetComIsSetClock(BSTR* TypeX, BSTR* InstringX, short* result) noexcept override {
        return Answer(result, server::GetComIsSetClock, TypeX, InstringX);
    }
    STDMETHODIMP ComEventRequestLogInRX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::ComEventRequestLogInRX, TypeX);
    }
    STDMETHODIMP ComEventConfirmLogInRX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, server::ComEventConfirmLogInRX, TypeX);
    }
    STDMETHODIMP CheckExternalTransfert(long* UserS, BSTR* DateS, BSTR* TimeS, long* DurationS, BSTR* DirectionS,
                                        BSTR* ConditionS, BSTR* PABXType, short* result) noexcept override {
        return Answer(result, server::CheckExternalTransfert, UserS, DateS, TimeS, DurationS, DirectionS, ConditionS,
                      PABXType);
    }
    STDMETHODIMP GetComConvertSetClockRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, server::GetComConvertSetClockRX, TypeX, StringX);
    }
    STDMETHODIMP GetComConvertStringRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, server::GetComConvertStringRX, TypeX, StringX);
    }
    STDMETHODIMP GetComConvertRoomStateRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, server::GetComConvertRoomStateRX, TypeX, StringX);
    }
    STDMETHODIMP GetComConvertRoomAlarmRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, server::GetComConvertRoomAlarmRX, TypeX, StringX);
    }
    STDMETHODIMP GetComConvertConfirmClockRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, server::GetComConvertConfirmClockRX, TypeX, StringX);
    }
};

}  // namespace

IUnknown* NewComEventsRX(const ClassEntry& entry) { return static_cast<_ComEventsRX*>(new ComEventsRX(entry)); }

}  // namespace vintrel::com
