// The class ComGdvFilter: the layout of a converted call record. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "cdr/gdv_filter.h"
#include "com/automation.h"

namespace vintrel::com {
namespace {

class ComGdvFilter final : public Automation<_ComGdvFilter> {
 public:
    using Automation::Automation;

    STDMETHODIMP GetGdvRealClockLen(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, cdr::GetGdvRealClockLen, TypeX);
    }
    STDMETHODIMP GetGdvRealStringLen(short* result) noexcept override {
        return Answer(result, cdr::GetGdvRealStringLen);
    }
    STDMETHODIMP GetGdvRealStringLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvRealStringLenStart);
    }
    STDMETHODIMP GetGdvRealStringLenStop(short* result) noexcept override {
        return Answer(result, cdr::GetGdvRealStringLenStop);
    }
    STDMETHODIMP GetGdvLineLenStart(short* result) noexcept override { return Answer(result, cdr::GetGdvLineLenStart); }
    STDMETHODIMP GetGdvLineLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvLineLenStop); }
    STDMETHODIMP GetGdvUserLenStart(short* result) noexcept override { return Answer(result, cdr::GetGdvUserLenStart); }
    STDMETHODIMP GetGdvUserLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvUserLenStop); }
    STDMETHODIMP GetGdvNumberLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvNumberLenStart);
    }
    STDMETHODIMP GetGdvNumberLenStop(short* result) noexcept override {
        return Answer(result, cdr::GetGdvNumberLenStop);
    }
    STDMETHODIMP GetGdvUserCodeLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvUserCodeLenStart);
    }
    STDMETHODIMP GetGdvUserCodeLenStop(short* result) noexcept override {
        return Answer(result, cdr::GetGdvUserCodeLenStop);
    }
    STDMETHODIMP GetGdvUnityLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvUnityLenStart);
    }
    STDMETHODIMP GetGdvUnityLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvUnityLenStop); }
    STDMETHODIMP GetGdvDateDLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvDateDLenStart);
    }
    STDMETHODIMP GetGdvDateDLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvDateDLenStop); }
    STDMETHODIMP GetGdvDateMLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvDateMLenStart);
    }
    STDMETHODIMP GetGdvDateMLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvDateMLenStop); }
    STDMETHODIMP GetGdvDateYLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvDateYLenStart);
    }
    STDMETHODIMP GetGdvDateYLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvDateYLenStop); }
    STDMETHODIMP GetGdvTimeHLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvTimeHLenStart);
    }
    STDMETHODIMP GetGdvTimeHLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvTimeHLenStop); }
    STDMETHODIMP GetGdvTimeMLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvTimeMLenStart);
    }
    STDMETHODIMP GetGdvTimeMLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvTimeMLenStop); }
    STDMETHODIMP GetGdvDurationSLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvDurationSLenStart);
    }
    STDMETHODIMP GetGdvDurationSLenStop(short* result) noexcept override {
        return Answer(result, cdr::GetGdvDurationSLenStop);
    }
    STDMETHODIMP GetGdvTypeLenStart(short* result) noexcept override { return Answer(result, cdr::GetGdvTypeLenStart); }
    STDMETHODIMP GetGdvTypeLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvTypeLenStop); }
    STDMETHODIMP GetGdvInfoLenStart(short* result) noexcept override { return Answer(result, cdr::GetGdvInfoLenStart); }
    STDMETHODIMP GetGdvInfoLenStop(short* result) noexcept override { return Answer(result, cdr::GetGdvInfoLenStop); }
    STDMETHODIMP GetGdvPTYNumberLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvPTYNumberLenStart);
    }
    STDMETHODIMP GetGdvPTYNumberLenStop(short* result) noexcept override {
        return Answer(result, cdr::GetGdvPTYNumberLenStop);
    }
    STDMETHODIMP GetGdvMacAddressLenStart(short* result) noexcept override {
        return Answer(result, cdr::GetGdvMacAddressLenStart);
    }
    STDMETHODIMP GetGdvMacAddressLenStop(short* result) noexcept override {
        return Answer(result, cdr::GetGdvMacAddressLenStop);
    }
};

}  // namespace

IUnknown* NewComGdvFilter(const ClassEntry& entry) { return static_cast<_ComGdvFilter*>(new ComGdvFilter(entry)); }

}  // namespace vintrel::com
