#include "com/guarded.h"

#include <oleauto.h>

#include <new>
#include <string>

#include "platform/operation_error.h"
#include "win32/wide.h"

namespace vintrel::com {
namespace {

void SetDescription(const ClassEntry& entry, const wchar_t* source, const wchar_t* description) noexcept {
    SetErrorInfo(0, nullptr);  // what an earlier failure left must not be taken for this one
    ICreateErrorInfo* creation = nullptr;
    if (FAILED(CreateErrorInfo(&creation))) return;
    creation->SetGUID(entry.iid);
    creation->SetSource(const_cast<LPOLESTR>(source));  // NOLINT(cppcoreguidelines-pro-type-const-cast): it is copied
    creation->SetDescription(const_cast<LPOLESTR>(description));
    IErrorInfo* information = nullptr;
    if (SUCCEEDED(creation->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&information)))) {
        SetErrorInfo(0, information);
        information->Release();
    }
    creation->Release();
}

}  // namespace

HRESULT Failure(const ClassEntry& entry, HRESULT result, const wchar_t* description) noexcept {
    SetDescription(entry, entry.prog_id, description);
    return result;
}

HRESULT CurrentFailure(const ClassEntry& entry) noexcept {
    try {
        throw;
    } catch (const platform::OperationError& error) {
        SetDescription(entry, error.Source().empty() ? entry.prog_id : win32::Wide(error.Source()),
                       win32::Wide(error.Description()));
        return static_cast<HRESULT>(error.Result());
    } catch (const std::bad_alloc&) {
        return Failure(entry, E_OUTOFMEMORY, L"Out of memory.");
    } catch (...) {
        return Failure(entry, E_UNEXPECTED, L"Unexpected failure inside the server.");
    }
}

}  // namespace vintrel::com
