#include "com/class_factory.h"

#include <unknwn.h>

#include <atomic>

#include "com/guarded.h"
#include "com/module.h"

namespace vintrel::com {
namespace {

class ClassFactory final : public IClassFactory {
 public:
    explicit ClassFactory(const ClassEntry& entry) : entry_(entry) { AddModuleLock(); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IClassFactory);
        *object = known ? static_cast<IClassFactory*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return GuardedResult([&] {
            IUnknown* created = entry_.create(entry_);
            const HRESULT result = created->QueryInterface(iid, object);
            created->Release();
            return result;
        });
    }
    STDMETHODIMP LockServer(BOOL lock) noexcept override {
        lock != FALSE ? AddModuleLock() : ReleaseModuleLock();
        return S_OK;
    }

    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

 private:
    virtual ~ClassFactory() { ReleaseModuleLock(); }

    std::atomic<ULONG> references_ = 1;
    const ClassEntry& entry_;
};

}  // namespace

HRESULT NewClassFactory(const ClassEntry& entry, REFIID iid, void** factory) {
    auto* created = new ClassFactory(entry);
    const HRESULT result = created->QueryInterface(iid, factory);
    created->Release();
    return result;
}

}  // namespace vintrel::com
