#include "floor.h"

#include <oleauto.h>

namespace vintrel::bench {
namespace {

constexpr UINT kRecordLength = 87;

class FloorObject final : public Floor {
 public:
    STDMETHODIMP QueryInterface(REFIID, void** object) noexcept override {
        *object = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
    STDMETHODIMP FreshRecord(BSTR*, BSTR*, BSTR* result) noexcept override {
        static constexpr wchar_t kRecord[] =
            L"\x2"
            L"0000100123041448001122   0000001001201920403240802                                 \x3";
        *result = SysAllocStringLen(kRecord, kRecordLength);
        return *result ? S_OK : E_OUTOFMEMORY;
    }
} the_floor;

}  // namespace
}  // namespace vintrel::bench

extern "C" __declspec(dllexport) vintrel::bench::Floor* STDMETHODCALLTYPE NewFloor() {
    return &vintrel::bench::the_floor;
}
