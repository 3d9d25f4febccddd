// The base of the eight classes: reference counting, early and late binding, error information, class information.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>

#include <atomic>

#include "com/answer.h"
#include "com/class_table.h"
#include "com/late_binding.h"
#include "com/module.h"
#include "com/type_library.h"

namespace vintrel::com {

template <typename Interface>
class Automation : public Interface, public ISupportErrorInfo, public IProvideClassInfo {
 public:
    explicit Automation(const ClassEntry& entry) : entry_(entry) { ObjectCreated(); }
    Automation(const Automation&) = delete;
    Automation& operator=(const Automation&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept final {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (IsEqualIID(iid, entry_.iid) || IsEqualIID(iid, IID_IDispatch) || IsEqualIID(iid, IID_IUnknown))
            *object = static_cast<Interface*>(this);
        else if (IsEqualIID(iid, IID_ISupportErrorInfo))
            *object = static_cast<ISupportErrorInfo*>(this);
        else if (IsEqualIID(iid, IID_IProvideClassInfo))
            *object = static_cast<IProvideClassInfo*>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept final { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept final {
        const ULONG left = --references_;
        if (left == 0 && calls_ == 0) delete this;
        return left;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept final {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept final {
        if (!info) return E_POINTER;
        *info = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        return LoadTypeInfo(entry_.iid, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept final {
        return GuardedResult([&] { return LateNames(OperationsOf(entry_), iid, names, count, ids); });
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* bad_argument) noexcept final {
        return GuardedResult([&] {
            return LateCall(static_cast<Interface*>(this), OperationsOf(entry_), id, iid, flags, parameters, result,
                            exception, bad_argument);
        });
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept final {
        return IsEqualIID(iid, entry_.iid) ? S_OK : S_FALSE;
    }
    STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept final {
        return info ? LoadTypeInfo(entry_.clsid, info) : E_POINTER;
    }

 protected:
    virtual ~Automation() { ObjectDestroyed(); }

    /// The whole of an operation: `core` is the function of the same name, called with the caller's arguments and with
    /// what else it needs of the server.
    template <typename Result, typename Core, typename... Arguments>
    HRESULT Answer(Result* result, Core core, Arguments*... arguments) noexcept {
        // The host may be called during the operation and give the object up. A plain count serves: operations run on
        // the apartment's one thread.
        struct KeepAlive {
            explicit KeepAlive(Automation& object) : kept(object) { ++kept.calls_; }
            ~KeepAlive() {
                if (--kept.calls_ == 0 && kept.references_.load(std::memory_order_relaxed) == 0) delete &kept;
            }
            KeepAlive(const KeepAlive&) = delete;
            KeepAlive& operator=(const KeepAlive&) = delete;
            Automation& kept;
        } const keep_alive(*this);
        return AnswerOperation(entry_, result, core, arguments...);
    }

 private:
    std::atomic<ULONG> references_ = 1;
    ULONG calls_ = 0;  ///< operations in progress
    const ClassEntry& entry_;
};

}  // namespace vintrel::com
