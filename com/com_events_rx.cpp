// The class ComEventsRX: received frames and call records. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "cdr/convert.h"
#include "com/automation.h"
#include "rx/external_transfer.h"
#include "rx/framing.h"
#include "rx/login.h"
#include "rx/room_events.h"
#include "rx/set_clock.h"
#include "rx/wake_up_events.h"

namespace vintrel::com {
namespace {

class ComEventsRX final : public Automation<_ComEventsRX> {
 public:
    using Automation::Automation;

    STDMETHODIMP GetComLngEndReadRx(BSTR* TypeX, long* result) noexcept override {
        return Answer(result, rx::GetComLngEndReadRx, TypeX);
    }
    STDMETHODIMP GetComEtxEndReadRx(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, rx::GetComEtxEndReadRx, TypeX);
    }
    STDMETHODIMP GetComEtxEndReadRx2(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, rx::GetComEtxEndReadRx2, TypeX);
    }
    STDMETHODIMP GetComACKRx(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, rx::GetComACKRx, TypeX);
    }
    STDMETHODIMP GetRepeatErrorEventRX(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, rx::GetRepeatErrorEventRX, TypeX);
    }
    STDMETHODIMP GetIPXComColumn(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, rx::GetIPXComColumn, TypeX);
    }
    STDMETHODIMP GetIPXComSpace(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, rx::GetIPXComSpace, TypeX);
    }
    STDMETHODIMP GetIPXComComma(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, rx::GetIPXComComma, TypeX);
    }
    STDMETHODIMP GetComIsRoomState(BSTR* TypeX, BSTR* InstringX, short* result) noexcept override {
        return Answer(result, rx::GetComIsRoomState, TypeX, InstringX);
    }
    STDMETHODIMP GetComIsRoomAlarm(BSTR* TypeX, BSTR* InstringX, short* result) noexcept override {
        return Answer(result, rx::GetComIsRoomAlarm, TypeX, InstringX);
    }
    STDMETHODIMP GetComIsConfirmClock(BSTR* TypeX, BSTR* InstringX, short* result) noexcept override {
        return Answer(result, rx::GetComIsConfirmClock, TypeX, InstringX);
    }
    STDMETHODIMP GetComIsSetClock(BSTR* TypeX, BSTR* InstringX, short* result) noexcept override {
        return Answer(result, rx::GetComIsSetClock, TypeX, InstringX);
    }
    STDMETHODIMP ComEventRequestLogInRX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, rx::ComEventRequestLogInRX, TypeX);
    }
    STDMETHODIMP ComEventConfirmLogInRX(BSTR* TypeX, BSTR* result) noexcept override {
        return Answer(result, rx::ComEventConfirmLogInRX, TypeX);
    }
    STDMETHODIMP CheckExternalTransfert(long* UserS, BSTR* DateS, BSTR* TimeS, long* DurationS, BSTR* DirectionS,
                                        BSTR* ConditionS, BSTR* PABXType, short* result) noexcept override {
        return Answer(result, rx::CheckExternalTransfert, UserS, DateS, TimeS, DurationS, DirectionS, ConditionS,
                      PABXType);
    }
    STDMETHODIMP GetComConvertSetClockRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, rx::GetComConvertSetClockRX, TypeX, StringX);
    }
    STDMETHODIMP GetComConvertStringRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, cdr::GetComConvertStringRX, TypeX, StringX);
    }
    STDMETHODIMP GetComConvertRoomStateRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, rx::GetComConvertRoomStateRX, TypeX, StringX);
    }
    STDMETHODIMP GetComConvertRoomAlarmRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, rx::GetComConvertRoomAlarmRX, TypeX, StringX);
    }
    STDMETHODIMP GetComConvertConfirmClockRX(BSTR* TypeX, BSTR* StringX, BSTR* result) noexcept override {
        return Answer(result, rx::GetComConvertConfirmClockRX, TypeX, StringX);
    }
};

}  // namespace

IUnknown* NewComEventsRX(const ClassEntry& entry) { return static_cast<_ComEventsRX*>(new ComEventsRX(entry)); }

}  // namespace vintrel::com
