// The forms in which clients pass their variables to a late-bound call.
#include <gtest/gtest.h>

#include "client.h"

namespace vintrel::testing {
namespace {

class LateBinding : public ::testing::Test {
 protected:
    Ref<IDispatch> server_ = Create(L"Vintrel.ServerInfo");
    Ref<IDispatch> orders_ = Create(L"Vintrel.ComEventsTX");

    Outcome TypeName(const Variant& type) { return Call(server_.Get(), L"GetPabxTypeName", {type}); }
    /// A wake-up command with the extension and the mode in the given forms.
    Outcome WakeUp(const Variant& extension, const Variant& mode) {
        return Call(orders_.Get(), L"ComEventClockTX",
                    {Variant(L"TYPE10014"), extension, Variant(L"0715"), Variant(L"1511"), mode, Variant(short{0})});
    }
};

TEST_F(LateBinding, WritesTheChangeIntoAnyFormOfAStringVariable) {
    Text plain(L"type10017");
    Text indirect(L"type10017");
    Variant variable(L"type10017");
    Variant inner(L"type10017");
    Variant outer = Variant::To(inner);  // a script's parameter that was itself passed by reference
    Variant outer_text = Variant::To(indirect.Var());
    for (const Variant& form :
         {Variant::To(plain.Var()), Variant::To(variable), Variant::To(outer), Variant::To(outer_text)})
        EXPECT_EQ(TypeName(form).answer.Str(), L"Avaya - IP Office");
    for (const std::wstring& text : {plain.Str(), variable.Str(), inner.Str(), indirect.Str()})
        EXPECT_EQ(text, L"TYPE10017");
}

TEST_F(LateBinding, LeavesAValueAlone) {
    const Variant literal(L"type10017");
    VARIANT passed = literal;
    DISPPARAMS parameters = {&passed, nullptr, 1, 0};
    Variant answer;
    EXPECT_EQ(server_->Invoke(4, IID_NULL, 0, DISPATCH_METHOD, &parameters, &answer, nullptr, nullptr), S_OK);
    EXPECT_EQ(answer.Str(), L"Avaya - IP Office");
    EXPECT_EQ(literal.Str(), L"type10017");
}

TEST_F(LateBinding, TakesWhatIsNotSetAsTheEmptyText) {
    Variant unset;
    BSTR null = nullptr;
    EXPECT_EQ(TypeName(Variant::To(unset)).answer.Str(), L"type not found");
    EXPECT_EQ(unset.vt, VT_EMPTY);
    EXPECT_EQ(TypeName(unset).answer.Str(), L"type not found");
    EXPECT_EQ(TypeName(Variant::To(&null)).answer.Str(), L"type not found");
    EXPECT_EQ(null, nullptr);
}

TEST_F(LateBinding, TakesNumbersOfAnyWidthByValueAndByReference) {
    const std::wstring expected = L"h6\t204\t0\t0715\r";
    short narrow = 204;
    long wide = 1;
    double real = 204.0;
    Text text(L"204");
    unsigned char byte = 1;
    Variant variable(short{1});
    const struct {
        Variant extension;
        Variant mode;
    } cases[] = {
        {Variant(204L), Variant(short{1})},
        {Variant(short{204}), Variant(1L)},
        {Variant(L"204"), Variant(1.0)},
        {Variant::To(&narrow), Variant::To(&wide)},
        {Variant::To(&real), Variant::Reference(VT_UI1, &byte)},
        {Variant::To(text.Var()), Variant::To(variable)},
        {Variant::Of(VT_UI4, 204), Variant::Of(VT_I8, 1)},
    };
    for (const auto& each : cases) {
        const Outcome outcome = WakeUp(each.extension, each.mode);
        EXPECT_EQ(outcome.result, S_OK) << each.extension.vt << ' ' << each.mode.vt;
        EXPECT_EQ(outcome.answer.Str(), expected) << each.extension.vt << ' ' << each.mode.vt;
    }
    EXPECT_EQ(variable.vt, VT_I2);  // unchanged, so it keeps its type
    EXPECT_EQ(text.Str(), L"204");
}

TEST_F(LateBinding, WritesAChangedNumberedTextBackAsText) {
    // A blank or numeric name becomes "I" and the room, in the caller's variable, too.
    Variant name(12L);
    const Outcome outcome =
        Call(orders_.Get(), L"ComEventUserNameTX", {Variant(L"TYPE10014"), Variant(204L), Variant::To(name)});
    EXPECT_EQ(outcome.answer.Str(), L"h4\t204\tI204\r");
    EXPECT_EQ(name.Str(), L"I204");

    double typed = 12.0;  // has no place for a text
    const Outcome refused =
        Call(orders_.Get(), L"ComEventUserNameTX", {Variant(L"TYPE10014"), Variant(204L), Variant::To(&typed)});
    EXPECT_EQ(refused.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refused.bad_argument, 0U);
    EXPECT_EQ(typed, 12.0);
}

TEST_F(LateBinding, DoesNotDependOnTheUsersLocale) {
    const LCID before = GetThreadLocale();
    SetThreadLocale(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
    Variant name(5.5);
    const Outcome outcome = Call(orders_.Get(), L"ComEventUserNameTX", {Variant(L"TYPE10001"), Variant(204L), name});
    EXPECT_EQ(outcome.answer.Str(),
              L"\x2"
              L"06002045.5\x3");
    SetThreadLocale(before);
}

TEST_F(LateBinding, NamesTheArgumentThatCannotBeUsed) {
    const Variant type(L"TYPE10014");
    const Variant zero(short{0});
    const struct {
        const char* what;
        Variant extension;
        Variant mode;
        HRESULT result;
        UINT index;  // in the caller's list, which is in reverse order
    } cases[] = {
        {"text that is no number", Variant(L"room"), zero, DISP_E_TYPEMISMATCH, 4},
        {"null", Variant(1L), Variant::Of(VT_NULL), DISP_E_TYPEMISMATCH, 1},
        {"too large for 16 bits", Variant(1L), Variant(70000L), DISP_E_OVERFLOW, 1},
        {"too large for 32 bits", Variant(3e9), zero, DISP_E_OVERFLOW, 4},
        {"left out", Variant(1L), Variant::Of(VT_ERROR, DISP_E_PARAMNOTFOUND), DISP_E_PARAMNOTOPTIONAL, 1},
        {"a null reference", Variant::Reference(VT_I4, nullptr), zero, DISP_E_TYPEMISMATCH, 4},
    };
    for (const auto& each : cases) {
        const Outcome outcome = WakeUp(each.extension, each.mode);
        EXPECT_EQ(outcome.result, each.result) << each.what;
        EXPECT_EQ(outcome.bad_argument, each.index) << each.what;
    }
    EXPECT_EQ(Call(server_.Get(), L"GetPabxTypeName", {}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Call(server_.Get(), L"GetPabxTypeName", {type, type}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(TypeName(Variant::Of(VT_NULL)).result, DISP_E_TYPEMISMATCH);
}

TEST_F(LateBinding, TakesArgumentsByName) {
    const Outcome all =
        CallNamed(orders_.Get(), L"ComEventCheckOutTX", {Variant(L"TYPE10001"), Variant(short{0}), Variant(123L)},
                  {L"ChangeNameEnabled", L"userx"});
    EXPECT_EQ(all.result, S_OK);
    EXPECT_EQ(all.answer.Str(),
              L"\x2"
              L"040012322\x3");
    EXPECT_EQ(CallNamed(orders_.Get(), L"ComEventCheckOutTX", {Variant(L"TYPE10001"), Variant(1L)}, {L"UserX"}).result,
              DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(
        CallNamed(orders_.Get(), L"ComEventCheckOutTX", {Variant(L"x"), Variant(1L), Variant(1L)}, {L"TypeX", L"UserX"})
            .result,
        DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(CallNamed(orders_.Get(), L"ComEventCheckOutTX", {Variant(1L)}, {L"Nothing"}).result, DISP_E_UNKNOWNNAME);
}

TEST_F(LateBinding, SurvivesOneVariableGivenTwice) {
    const Ref<IDispatch> pms = Create(L"Vintrel.PMSEvents");
    Variant both(L"  |RN12|  ");
    const Outcome outcome = Call(pms.Get(), L"GetPMS_ColumnData", {Variant::To(both), Variant::To(both)});
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_EQ(both.Str(), L"|RN12|");  // trimmed in place
}

TEST_F(LateBinding, AnswersAStatementAndAFunctionCallAlike) {
    Variant type(L"type10001");
    EXPECT_EQ(Call(server_.Get(), L"GetPabxTypeName", {Variant::To(type)}, DISPATCH_METHOD).result, S_OK);
    EXPECT_EQ(type.Str(), L"TYPE10001");
    EXPECT_EQ(Call(server_.Get(), L"getserverversion", {}, DISPATCH_PROPERTYGET).answer.Str(), L"2.841");
    EXPECT_EQ(Call(server_.Get(), L"GetServerVersion", {}, DISPATCH_PROPERTYPUT).result, DISP_E_MEMBERNOTFOUND);

    const Variant number = Call(server_.Get(), L"GetServerVersionCur", {}).answer;
    EXPECT_EQ(number.vt, VT_CY);
    EXPECT_EQ(number.cyVal.int64, 28410);
    EXPECT_EQ(Call(server_.Get(), L"GetPabxActiveType", {type}).answer.vt, VT_I2);
}

TEST_F(LateBinding, RefusesWhatIsNotThere) {
    DISPPARAMS none = {};
    EXPECT_EQ(Call(server_.Get(), L"GetServerVersions", {}).result, DISP_E_UNKNOWNNAME);
    for (const DISPID id : {DISPID{0}, DISPID{-1}, DISPID{6}, DISPID{-2147483647}})
        EXPECT_EQ(server_->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
                  DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(server_->Invoke(1, IID_IUnknown, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(server_->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_POINTER);
}

}  // namespace
}  // namespace vintrel::testing
