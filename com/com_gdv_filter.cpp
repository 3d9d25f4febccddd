// The class ComGdvFilter: the layout of a converted call record. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "com/automation.h"
#include "server/gdv_filter.h"

namespace vintrel::com {
namespace {

class ComGdvFilter final : public Automation<_ComGdvFilter> {
 public:
    using Automation::Automation;

    STDMETHODIMP GetGdvRealClockLen(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::GetGdvRealClockLen, TypeX);
    }
    STDMETHODIMP GetGdvRealStringLen(short* result) noexcept override {
        return Answer(result, server::GetGdvRealStringLen);
    }
    STDMETHODIMP GetGdvRealStringLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvRealStringLenStart);
    }
    STDMETHODIMP GetGdvRealStringLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvRealStringLenStop);
    }
    STDMETHODIMP GetGdvLineLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvLineLenStart);
    }
    STDMETHODIMP GetGdvLineLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvLineLenStop);
    }
    STDMETHODIMP GetGdvUserLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvUserLenStart);
    }
    STDMETHODIMP GetGdvUserLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvUserLenStop);
    }
    STDMETHODIMP GetGdvNumberLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvNumberLenStart);
    }
    STDMETHODIMP GetGdvNumberLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvNumberLenStop);
    }
    STDMETHODIMP GetGdvUserCodeLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvUserCodeLenStart);
    }
    STDMETHODIMP GetGdvUserCodeLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvUserCodeLenStop);
    }
    STDMETHODIMP GetGdvUnityLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvUnityLenStart);
    }
    STDMETHODIMP GetGdvUnityLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvUnityLenStop);
    }
    STDMETHODIMP GetGdvDateDLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvDateDLenStart);
    }
    STDMETHODIMP GetGdvDateDLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvDateDLenStop);
    }
    STDMETHODIMP GetGdvDateMLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvDateMLenStart);
    }
    STDMETHODIMP GetGdvDateMLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvDateMLenStop);
    }
    STDMETHODIMP GetGdvDateYLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvDateYLenStart);
    }
    STDMETHODIMP GetGdvDateYLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvDateYLenStop);
    }
    STDMETHODIMP GetGdvTimeHLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvTimeHLenStart);
    }
    STDMETHODIMP GetGdvTimeHLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvTimeHLenStop);
    }
    STDMETHODIMP GetGdvTimeMLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvTimeMLenStart);
    }
    STDMETHODIMP GetGdvTimeMLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvTimeMLenStop);
    }
    STDMETHODIMP GetGdvDurationSLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvDurationSLenStart);
    }
    STDMETHODIMP GetGdvDurationSLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvDurationSLenStop);
    }
    STDMETHODIMP GetGdvTypeLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvTypeLenStart);
    }
    STDMETHODIMP GetGdvTypeLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvTypeLenStop);
    }
    STDMETHODIMP GetGdvInfoLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvInfoLenStart);
    }
    STDMETHODIMP GetGdvInfoLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvInfoLenStop);
    }
    STDMETHODIMP GetGdvPTYNumberLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvPTYNumberLenStart);
    }
    STDMETHODIMP GetGdvPTYNumberLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvPTYNumberLenStop);
    }
    STDMETHODIMP GetGdvMacAddressLenStart(short* result) noexcept override {
        return Answer(result, server::GetGdvMacAddressLenStart);
    }
    STDMETHODIMP GetGdvMacAddressLenStop(short* result) noexcept override {
        return Answer(result, server::GetGdvMacAddressLenStop);
    }
};

}  // namespace

IUnknown* NewComGdvFilter(const ClassEntry& entry) { return static_cast<_ComGdvFilter*>(new ComGdvFilter(entry)); }

}  // namespace vintrel::com
