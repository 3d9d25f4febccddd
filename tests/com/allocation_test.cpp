// A million conversions leave nothing behind, counted where COM hands out its memory.
#include <gtest/gtest.h>

#include "Vintrel.h"
#include "bench/call_records.h"
#include "client.h"

/// The system's, which its header does not declare: no string is kept for the next one that is asked for.
extern "C" void SetOaNoCache();

namespace vintrel::testing {
namespace {

/// Counts the blocks that COM's allocator gives out, strings among them, and those that it has not got back.
class AllocationSpy final : public IMallocSpy {
 public:
    long given = 0;
    long held = 0;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IMallocSpy);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // it outlives every block
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    STDMETHODIMP_(SIZE_T) PreAlloc(SIZE_T size) override { return size; }
    STDMETHODIMP_(void*) PostAlloc(void* block) override {
        ++given;
        ++held;
        return block;
    }
    STDMETHODIMP_(void*) PreFree(void* block, BOOL spied) override {
        if (spied && block) --held;
        return block;
    }
    STDMETHODIMP_(void) PostFree(BOOL) override {}
    STDMETHODIMP_(SIZE_T) PreRealloc(void* block, SIZE_T size, void** reallocated, BOOL) override {
        *reallocated = block;
        return size;
    }
    STDMETHODIMP_(void*) PostRealloc(void* block, BOOL) override { return block; }
    STDMETHODIMP_(void*) PreGetSize(void* block, BOOL) override { return block; }
    STDMETHODIMP_(SIZE_T) PostGetSize(SIZE_T size, BOOL) override { return size; }
    STDMETHODIMP_(void*) PreDidAlloc(void* block, BOOL) override { return block; }
    STDMETHODIMP_(int) PostDidAlloc(void*, BOOL, int owned) override { return owned; }
    STDMETHODIMP_(void) PreHeapMinimize() override {}
    STDMETHODIMP_(void) PostHeapMinimize() override {}
};

TEST(Allocations, AMillionConversionsLeaveNoBlockBehind) {
    static AllocationSpy spy;
    const Ref<IDispatch> object = Create(L"Vintrel.ComEventsRX");
    const auto events = object.As<_ComEventsRX>();
    ASSERT_TRUE(events);

    const auto convert = [&](const bench::CallRecord& row) {
        Text type(row.code);
        Text record(row.record);
        Text gdv;
        EXPECT_EQ(events->GetComConvertStringRX(type.Var(), record.Var(), gdv.Var()), S_OK);
        return gdv.Str().size();
    };
    const auto convert_late = [&](const bench::CallRecord& row) {
        Variant type(row.code);
        Variant record(row.record);
        return Call(object.Get(), L"GetComConvertStringRX", {Variant::To(type), Variant::To(record)})
            .answer.Str()
            .size();
    };
    int conversions = 0;
    const auto round = [&] {
        for (const bench::CallRecord& row : bench::kCallRecords) {
            EXPECT_EQ(convert(row), 87U) << row.converter;
            EXPECT_EQ(convert_late(row), 87U) << row.converter;
            const bench::CallRecord cut_off = {row.converter, row.code, row.target, L": 12|34,'"};
            EXPECT_LT(convert(cut_off), 87U) << row.converter;
            conversions += 3;
        }
    };
    SetOaNoCache();  // every string comes from the allocator
    round();         // what is made once
    ASSERT_EQ(CoRegisterMallocSpy(&spy), S_OK);
    conversions = 0;
    while (conversions < 1'000'000) round();
    EXPECT_EQ(spy.held, 0);
    EXPECT_GT(spy.given, conversions);
    EXPECT_EQ(CoRevokeMallocSpy(), S_OK);
}

}  // namespace
}  // namespace vintrel::testing
