// The class PMSEvents: FIAS link records. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "com/automation.h"
#include "exchanges/fias/link_records.h"

namespace vintrel::com {
namespace {

class PMSEvents final : public Automation<_PMSEvents> {
 public:
    using Automation::Automation;

    STDMETHODIMP GetPMS_LS_String(BSTR* result) noexcept override {
        return Answer(result, exchanges::fias::GetPMS_LS_String);
    }
    STDMETHODIMP GetPMS_LA_String(BSTR* result) noexcept override {
        return Answer(result, exchanges::fias::GetPMS_LA_String);
    }
    STDMETHODIMP GetPMS_LE_String(BSTR* result) noexcept override {
        return Answer(result, exchanges::fias::GetPMS_LE_String);
    }
    STDMETHODIMP GetPMS_DE_String(BSTR* result) noexcept override {
        return Answer(result, exchanges::fias::GetPMS_DE_String);
    }
    STDMETHODIMP GetPMS_ColumnData(BSTR* PMSString, BSTR* PMSColumn, BSTR* result) noexcept override {
        return Answer(result, exchanges::fias::GetPMS_ColumnData, PMSString, PMSColumn);
    }
    STDMETHODIMP GetPMS_PSConfirm(BSTR* PSString, BSTR* result) noexcept override {
        return Answer(result, exchanges::fias::GetPMS_PSConfirm, PSString);
    }
};

}  // namespace

IUnknown* NewPMSEvents(const ClassEntry& entry) { return static_cast<_PMSEvents*>(new PMSEvents(entry)); }

}  // namespace vintrel::com
