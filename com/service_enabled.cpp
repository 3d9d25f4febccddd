// The class ServiceEnabled: hotel services of each model. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "com/automation.h"
#include "server/services.h"

namespace vintrel::com {
namespace {

class ServiceEnabled final : public Automation<_ServiceEnabled> {
 public:
    using Automation::Automation;

    STDMETHODIMP GetRoomStateEnabled(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetRoomStateEnabled, TypeX);
    }
    STDMETHODIMP GetClockEnabled(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetClockEnabled, TypeX);
    }
    STDMETHODIMP GetClockCentral(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetClockCentral, TypeX);
    }
    STDMETHODIMP GetCallListEnabled(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetCallListEnabled, TypeX);
    }
    STDMETHODIMP GetCheckInOutEnabled(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetCheckInOutEnabled, TypeX);
    }
    STDMETHODIMP GetModifyNameEnabled(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetModifyNameEnabled, TypeX);
    }
    STDMETHODIMP GetClockDateEnabled(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetClockDateEnabled, TypeX);
    }
    STDMETHODIMP GetRoomAlarmEnabled(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetRoomAlarmEnabled, TypeX);
    }
};

}  // namespace

IUnknown* NewServiceEnabled(const ClassEntry& entry) {
    return static_cast<_ServiceEnabled*>(new ServiceEnabled(entry));
}

}  // namespace vintrel::com
