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
        TYPEATTR* attributes = nullptr;
        info->GetTypeAttr(&attributes);
        PublicClass entry{.name = name.Str(), .clsid = attributes->guid, .iid = {}};
        info->ReleaseTypeAttr(attributes);
        HREFTYPE reference = 0;
        Ref<ITypeInfo> first;
        info->GetRefTypeOfImplType(0, &reference);
        info->GetRefTypeInfo(reference, first.Out());
        first->GetTypeAttr(&attributes);
        entry.iid = attributes->guid;
        first->ReleaseTypeAttr(attributes);
        classes.push_back(entry);
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

TEST(Classes, HaveOneIdentityWhateverInterfaceIsAskedFor) {
    for (const PublicClass& each : PublicClasses()) {
        Ref<IUnknown> object;
        CoCreateInstance(each.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.OutVoid());
        ASSERT_TRUE(object);
        const auto dispatch = object.As<IDispatch>();
        const auto errors = object.As<ISupportErrorInfo>();
        const auto class_info = object.As<IProvideClassInfo>();
        ASSERT_TRUE(dispatch && errors && class_info);
        EXPECT_EQ(dispatch.As<IUnknown>().Get(), object.Get());
        EXPECT_EQ(errors.As<IUnknown>().Get(), object.Get());
        EXPECT_EQ(class_info.As<IUnknown>().Get(), object.Get());

        EXPECT_EQ(errors->InterfaceSupportsErrorInfo(each.iid), S_OK);
        EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
        void* none = &none;
        EXPECT_EQ(object->QueryInterface(IID_IPersist, &none), E_NOINTERFACE);
        EXPECT_EQ(none, nullptr);
    }
}

TEST(Classes, DescribeThemselves) {
    for (const PublicClass& each : PublicClasses()) {
        Ref<IDispatch> object;
        CoCreateInstance(each.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.OutVoid());
        ASSERT_TRUE(object);
        UINT count = 0;
        EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1U);

        Ref<ITypeInfo> info;
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(object->GetTypeInfo(0, LOCALE_NEUTRAL, info.Out()), S_OK);
        info->GetTypeAttr(&attributes);
        EXPECT_TRUE(IsEqualGUID(attributes->guid, each.iid));
        info->ReleaseTypeAttr(attributes);
        EXPECT_EQ(object->GetTypeInfo(1, LOCALE_NEUTRAL, info.Out()), DISP_E_BADINDEX);

        ASSERT_EQ(object.As<IProvideClassInfo>()->GetClassInfo(info.Out()), S_OK);
        info->GetTypeAttr(&attributes);
        EXPECT_TRUE(IsEqualGUID(attributes->guid, each.clsid));
        info->ReleaseTypeAttr(attributes);
    }
}

TEST(Classes, CannotBeAggregated) {
    for (const PublicClass& each : PublicClasses()) {
        Ref<IClassFactory> factory;
        ASSERT_EQ(CoGetClassObject(each.clsid, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.OutVoid()),
                  S_OK);
        void* object = &object;
        EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
        EXPECT_EQ(object, nullptr);
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

TEST(ServerInfo, AnswersAnEarlyBoundClient) {
    Ref<_ServerInfo> server;
    ASSERT_EQ(CoCreateInstance(CLSID_ServerInfo, nullptr, CLSCTX_INPROC_SERVER, IID__ServerInfo, server.OutVoid()),
              S_OK);
    Text version;
    EXPECT_EQ(server->GetServerVersion(version.Var()), S_OK);
    EXPECT_EQ(version.Str(), L"2.841");
    CURRENCY number = {};
    EXPECT_EQ(server->GetServerVersionCur(&number), S_OK);
    EXPECT_EQ(number.int64, 28410);

    Text type(L"type10017");
    short known = -1;
    EXPECT_EQ(server->GetPabxActiveType(type.Var(), &known), S_OK);
    EXPECT_EQ(known, 1);
    EXPECT_EQ(type.Str(), L"TYPE10017");
    BSTR null = nullptr;
    EXPECT_EQ(server->GetPabxActiveType(&null, &known), S_OK);
    EXPECT_EQ(known, 0);
}

}  // namespace
}  // namespace vintrel::testing
