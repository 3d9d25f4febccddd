// The class SetServerOptions: initialisation. Each operation calls the core function of its name.
#include "Vintrel.h"
#include "com/automation.h"
#include "server/initialisation.h"

namespace vintrel::com {
namespace {

class SetServerOptions final : public Automation<_SetServerOptions> {
 public:
    using Automation::Automation;

    STDMETHODIMP SetServerLanguage(BSTR* Language, VARIANT* result) noexcept override {
        return Answer(result, server::SetServerLanguage, Language);
    }
    STDMETHODIMP SetHelpFilePage(BSTR* HLPPage, BSTR* HLPIndex, VARIANT* result) noexcept override {
        return Answer(result, server::SetHelpFilePage, HLPPage, HLPIndex);
    }
    STDMETHODIMP SetAllUserCommonDocumentsDirA(BSTR* DirX, VARIANT* result) noexcept override {
        return Answer(result, server::SetAllUserCommonDocumentsDirA, DirX);
    }
    STDMETHODIMP InitializeServer(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::InitializeServer, TypeX);
    }
    STDMETHODIMP InitializeServerSec(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::InitializeServerSec, TypeX);
    }
    STDMETHODIMP UnInitializeServer(BSTR* TypeX, short* result) noexcept override {
        return Answer(result, server::UnInitializeServer, TypeX);
    }
};

}  // namespace

IUnknown* NewSetServerOptions(const ClassEntry& entry) {
    return static_cast<_SetServerOptions*>(new SetServerOptions(entry));
}

}  // namespace vintrel::com
