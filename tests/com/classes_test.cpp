// Creating the eight classes, and what every object of them offers.
#include <gtest/gtest.h>

#include <ocidl.h>

#include <set>

#include "Vintrel.h"
#include "client.h"

namespace vintrel::testing {
namespace {

struct PublicClass {
    std::wstring name;
    CLSID clsid;
    IID iid;
};

GUID GuidOf(const Ref<ITypeInfo>& info) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const GUID guid = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    return guid;
}

/// The classes that the type library describes.
std::vector<PublicClass> PublicClasses() {
    std::vector<PublicClass> classes;
    const Ref<ITypeLib> library = TypeLibrary();
    for (UINT i = 0; library && i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind = {};
        library->GetTypeInfoType(i, &kind);
        if (kind != TKIND_COCLASS) continue;
        Ref<ITypeInfo> info;
        library->GetTypeInfo(i, info.Out());
        Text name;
        info->GetDocumentation(MEMBERID_NIL, name.Var(), nullptr, nullptr, nullptr);
        HREFTYPE reference = 0;
        Ref<ITypeInfo> first;
        info->GetRefTypeOfImplType(0, &reference);
        info->GetRefTypeInfo(reference, first.Out());
        classes.push_back({.name = name.Str(), .clsid = GuidOf(info), .iid = GuidOf(first)});
    }
    return classes;
}

TEST(Classes, AreEightAndEachIsCreatedByItsProgId) {
    const std::vector<PublicClass> classes = PublicClasses();
    EXPECT_EQ(classes.size(), 8U);
    for (const PublicClass& each : classes) {
        CLSID clsid = {};
        const std::wstring prog_id = L"Vintrel." + each.name;
        ASSERT_EQ(CLSIDFromProgID(prog_id.c_str(), &clsid), S_OK) << prog_id.c_str();
        EXPECT_TRUE(IsEqualGUID(clsid, each.clsid));
        Ref<IUnknown> object;
        ASSERT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, each.iid, object.OutVoid()), S_OK);
        EXPECT_TRUE(object.As<IDispatch>());
        EXPECT_FALSE(ServerIsIdle());
    }
}

TEST(Classes, HaveOneIdentityAndDescribeThemselves) {
    for (const PublicClass& each : PublicClasses()) {
        Ref<IUnknown> object;
        CoCreateInstance(each.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.OutVoid());
        ASSERT_TRUE(object);
        const auto dispatch = object.As<IDispatch>();
        const auto errors = object.As<ISupportErrorInfo>();
        const auto class_info = object.As<IProvideClassInfo>();
        ASSERT_TRUE(dispatch && errors && class_info);
        for (const auto& same : {dispatch.As<IUnknown>(), errors.As<IUnknown>(), class_info.As<IUnknown>()})
            EXPECT_EQ(same.Get(), object.Get());
        EXPECT_EQ(errors->InterfaceSupportsErrorInfo(each.iid), S_OK);
        EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
        void* none = &none;
        EXPECT_EQ(object->QueryInterface(IID_IPersist, &none), E_NOINTERFACE);
        EXPECT_EQ(none, nullptr);

        UINT count = 0;
        EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1U);
        Ref<ITypeInfo> info;
        ASSERT_EQ(dispatch->GetTypeInfo(0, LOCALE_NEUTRAL, info.Out()), S_OK);
        EXPECT_TRUE(IsEqualGUID(GuidOf(info), each.iid));
        ASSERT_EQ(class_info->GetClassInfo(info.Out()), S_OK);
        EXPECT_TRUE(IsEqualGUID(GuidOf(info), each.clsid));
        EXPECT_EQ(dispatch->GetTypeInfo(1, LOCALE_NEUTRAL, info.Out()), DISP_E_BADINDEX);

        Ref<IClassFactory> factory;
        CoGetClassObject(each.clsid, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.OutVoid());
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

/// Hosts that bind early know every operation by its place and its identifier.
TEST(TypeLibrary, NumbersTheOperationsFromOneAndHasAHelpTextForEach) {
    std::size_t operations = 0;
    for (const PublicClass& each : PublicClasses()) {
        Ref<ITypeInfo> info;
        TypeLibrary()->GetTypeInfoOfGuid(each.iid, info.Out());
        ASSERT_TRUE(info);
        HREFTYPE reference = 0;
        Ref<ITypeInfo> table;
        ASSERT_EQ(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
        ASSERT_EQ(info->GetRefTypeInfo(reference, table.Out()), S_OK);
        TYPEATTR* attributes = nullptr;
        table->GetTypeAttr(&attributes);
        const UINT count = attributes->cFuncs;
        table->ReleaseTypeAttr(attributes);
        for (UINT i = 0; i < count; ++i, ++operations) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(table->GetFuncDesc(i, &function), S_OK);
            EXPECT_EQ(function->memid, static_cast<MEMBERID>(i + 1));
            EXPECT_EQ(static_cast<std::size_t>(function->oVft), (7 + i) * sizeof(void*));
            Text name;
            Text help;
            table->GetDocumentation(function->memid, name.Var(), help.Var(), nullptr, nullptr);
            EXPECT_FALSE(help.Str().empty()) << name.Str().c_str();
            table->ReleaseFuncDesc(function);
        }
    }
    EXPECT_EQ(operations, 117U);
}

}  // namespace
}  // namespace vintrel::testing
