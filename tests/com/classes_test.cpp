// Creating the eight classes, and what every object of them offers.
#include <gtest/gtest.h>

#include <ocidl.h>

#include "Vintrel.h"
#include "client.h"

namespace vintrel::testing {
namespace {

GUID GuidOf(const Ref<ITypeInfo>& info) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const GUID guid = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    return guid;
}

TEST(Classes, HaveOneIdentityAndDescribeThemselves) {
    for (const wchar_t* prog_id : kProgIds) {
        const Ref<IDispatch> dispatch = Create(prog_id);
        const auto object = dispatch.As<IUnknown>();
        const auto errors = object.As<ISupportErrorInfo>();
        const auto class_info = object.As<IProvideClassInfo>();
        ASSERT_TRUE(dispatch && errors && class_info) << prog_id;
        Ref<ITypeInfo> info;
        ASSERT_EQ(dispatch->GetTypeInfo(0, LOCALE_NEUTRAL, info.Out()), S_OK);
        const IID iid = GuidOf(info);
        ASSERT_EQ(class_info->GetClassInfo(info.Out()), S_OK);
        const CLSID described = GuidOf(info);
        CLSID clsid = {};
        EXPECT_EQ(CLSIDFromProgID(prog_id, &clsid), S_OK);
        EXPECT_TRUE(IsEqualGUID(described, clsid));
        Ref<IUnknown> early;
        EXPECT_EQ(object->QueryInterface(iid, early.OutVoid()), S_OK);
        for (const auto& same : {early.As<IUnknown>(), errors.As<IUnknown>(), class_info.As<IUnknown>()})
            EXPECT_EQ(same.Get(), object.Get());
        EXPECT_EQ(errors->InterfaceSupportsErrorInfo(iid), S_OK);
        EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
        void* none = &none;
        EXPECT_EQ(object->QueryInterface(IID_IPersist, &none), E_NOINTERFACE);
        EXPECT_EQ(none, nullptr);

        UINT count = 0;
        EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1U);
        EXPECT_EQ(dispatch->GetTypeInfo(1, LOCALE_NEUTRAL, info.Out()), DISP_E_BADINDEX);

        Ref<IClassFactory> factory;
        CoGetClassObject(clsid, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.OutVoid());
        ASSERT_TRUE(factory);
        none = &none;
        EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &none), CLASS_E_NOAGGREGATION);
        EXPECT_EQ(none, nullptr);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    }
}

TEST(Module, IsInUseWhileAFactoryAnObjectOrALockIsHeld) {
    EXPECT_TRUE(ServerIsIdle());
    Ref<IClassFactory> factory;
    CoGetClassObject(CLSID_ServerInfo, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.OutVoid());
    ASSERT_TRUE(factory);
    EXPECT_FALSE(ServerIsIdle());
    factory->LockServer(TRUE);
    factory.Reset();
    EXPECT_FALSE(ServerIsIdle());
    CoGetClassObject(CLSID_ServerInfo, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.OutVoid());
    factory->LockServer(FALSE);
    Ref<IUnknown> object;
    factory->CreateInstance(nullptr, IID_IUnknown, object.OutVoid());
    factory.Reset();
    EXPECT_FALSE(ServerIsIdle());
    object.Reset();
    EXPECT_TRUE(ServerIsIdle());
}

TEST(ExternalTransfer, PairsTwoLegsWithinFourSecondsOfTheRealClock) {
    const Ref<IDispatch> events = Create(L"Vintrel.ComEventsRX");
    const struct {
        DWORD after;
        const wchar_t* direction;
        short pairs;
    } rows[] = {{0, L"0", 0}, {1500, L"1", 1}, {0, L"0", 0}, {4300, L"1", 0}, {0, L"0", 1}};
    for (const auto& row : rows) {
        Sleep(row.after);
        const Outcome outcome = Call(events.Get(), L"CheckExternalTransfert",
                                     {Variant(204L), Variant(L"15.11.26"), Variant(L"07:30"), Variant(60L),
                                      Variant(row.direction), Variant(L"1111"), Variant(L"TYPE10017")});
        EXPECT_EQ(outcome.answer.iVal, row.pairs) << row.after;
    }
}

}  // namespace
}  // namespace vintrel::testing
