// The forms in which clients pass their variables to a late-bound call.
#include <gtest/gtest.h>

#include "client.h"
#include "version.h"

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
    Outcome Name(const wchar_t* type, const Variant& name) {
        return Call(orders_.Get(), L"ComEventUserNameTX", {Variant(type), Variant(204L), name});
    }
};

TEST_F(LateBinding, WritesTheChangeIntoAnyFormOfAStringVariableButNotIntoAValue) {
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

    Variant value(L"type10017");
    DISPPARAMS parameters = {&value, nullptr, 1, 0};
    Variant answer;
    EXPECT_EQ(server_->Invoke(4, IID_NULL, 0, DISPATCH_METHOD, &parameters, &answer, nullptr, nullptr), S_OK);
    EXPECT_EQ(answer.Str(), L"Avaya - IP Office");
    EXPECT_EQ(value.Str(), L"type10017");
}

TEST_F(LateBinding, TakesWhatIsNotSetAsTheEmptyText) {
    Variant unset;
    BSTR null = nullptr;
    for (const Variant& form : {unset, Variant::To(unset), Variant::To(&null)})
        EXPECT_EQ(TypeName(form).answer.Str(), L"type not found");
    EXPECT_EQ(unset.vt, VT_EMPTY);
    EXPECT_EQ(null, nullptr);
}

TEST_F(LateBinding, TakesNumbersInAnyFormAndNamesTheArgumentThatCannotBeUsed) {
    short narrow = 204;
    long wide = 1;
    double real = 204.0;
    Text text(L"204");
    unsigned char byte = 1;
    Variant variable(short{1});
    const Variant zero(short{0});
    const struct {
        const char* what;
        Variant extension;
        Variant mode;
        HRESULT result = S_OK;
        UINT index = 0xFFFF;  // in the caller's list, which is in reverse order
    } rows[] = {
        {"as declared", Variant(204L), Variant(short{1})},
        {"the other widths", Variant(short{204}), Variant(1L)},
        {"a text and a real number", Variant(L"204"), Variant(1.0)},
        {"references to integers", Variant::Reference(VT_I2, &narrow), Variant::Reference(VT_I4, &wide)},
        {"references to a real number and a byte", Variant::Reference(VT_R8, &real), Variant::Reference(VT_UI1, &byte)},
        {"references to a text and a variable", Variant::To(text.Var()), Variant::To(variable)},
        {"unsigned and 64 bits", Variant::Of(VT_UI4, 204), Variant::Of(VT_I8, 1)},
        {"text that is no number", Variant(L"room"), zero, DISP_E_TYPEMISMATCH, 4},
        {"null", Variant(1L), Variant::Of(VT_NULL), DISP_E_TYPEMISMATCH, 1},
        {"too large for 16 bits", Variant(1L), Variant(70000L), DISP_E_OVERFLOW, 1},
        {"too large for 32 bits", Variant(3e9), zero, DISP_E_OVERFLOW, 4},
        {"left out", Variant(1L), Variant::Of(VT_ERROR, DISP_E_PARAMNOTFOUND), DISP_E_PARAMNOTOPTIONAL, 1},
        {"a null reference", Variant::Reference(VT_I4, nullptr), zero, DISP_E_TYPEMISMATCH, 4},
    };
    for (const auto& row : rows) {
        const Outcome outcome = WakeUp(row.extension, row.mode);
        EXPECT_EQ(outcome.result, row.result) << row.what;
        EXPECT_EQ(outcome.bad_argument, row.index) << row.what;
        EXPECT_EQ(outcome.answer.Str(), row.result == S_OK ? L"h6\t204\t0\t0715\r" : L"") << row.what;
    }
    EXPECT_EQ(variable.vt, VT_I2);  // unchanged, so it keeps its type
    EXPECT_EQ(text.Str(), L"204");
    EXPECT_EQ(TypeName(Variant::Of(VT_NULL)).result, DISP_E_TYPEMISMATCH);
}

TEST_F(LateBinding, WritesAChangedNumberedTextBackAsText) {
    // A blank or numeric name becomes "I" and the room, in the caller's variable, too.
    Variant name(12L);
    EXPECT_EQ(Name(L"TYPE10014", Variant::To(name)).answer.Str(), L"h4\t204\tI204\r");
    EXPECT_EQ(name.Str(), L"I204");

    double typed = 12.0;  // has no place for a text
    const Outcome refused = Name(L"TYPE10014", Variant::Reference(VT_R8, &typed));
    EXPECT_EQ(refused.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refused.bad_argument, 0U);
    EXPECT_EQ(typed, 12.0);
}

TEST_F(LateBinding, DoesNotDependOnTheUsersLocale) {
    const LCID before = GetThreadLocale();
    SetThreadLocale(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
    EXPECT_EQ(Name(L"TYPE10001", Variant(5.5)).answer.Str(),
              L"\u0002"
              L"06002045.5\u0003");
    SetThreadLocale(before);
}

TEST_F(LateBinding, TakesArgumentsByNameAndAllThatTheOperationHas) {
    const auto check_out = [&](std::initializer_list<Variant> arguments, std::initializer_list<const wchar_t*> names) {
        return Call(orders_.Get(), L"ComEventCheckOutTX", arguments, DISPATCH_METHOD | DISPATCH_PROPERTYGET, names);
    };
    const Variant type(L"TYPE10001");
    const Outcome all = check_out({type, Variant(short{0}), Variant(123L)}, {L"ChangeNameEnabled", L"userx"});
    EXPECT_EQ(all.result, S_OK);
    EXPECT_EQ(all.answer.Str(),
              L"\u0002"
              L"040012322\u0003");
    EXPECT_EQ(check_out({type, Variant(1L)}, {L"UserX"}).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(check_out({type, Variant(1L), Variant(1L)}, {L"TypeX", L"UserX"}).result, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(check_out({Variant(1L)}, {L"Nothing"}).result, DISP_E_UNKNOWNNAME);
    EXPECT_EQ(check_out({type}, {}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(check_out({type, type, type, type}, {}).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(LateBinding, SurvivesOneVariableGivenTwice) {
    const Ref<IDispatch> pms = Create(L"Vintrel.PMSEvents");
    Variant both(L"  |RN12|  ");
    EXPECT_EQ(Call(pms.Get(), L"GetPMS_ColumnData", {Variant::To(both), Variant::To(both)}).result, S_OK);
    EXPECT_EQ(both.Str(), L"|RN12|");  // trimmed in place
}

TEST_F(LateBinding, AnswersAStatementAndAFunctionCallAlikeAndRefusesWhatIsNotThere) {
    Variant type(L"type10001");
    EXPECT_EQ(Call(server_.Get(), L"GetPabxTypeName", {Variant::To(type)}, DISPATCH_METHOD).result, S_OK);
    EXPECT_EQ(type.Str(), L"TYPE10001");
    EXPECT_EQ(Call(server_.Get(), L"getserverversion", {}, DISPATCH_PROPERTYGET).answer.Str(), L"" VINTREL_VERSION);
    EXPECT_EQ(Call(server_.Get(), L"GetServerVersionCur", {}).answer.cyVal.int64, VINTREL_VERSION_TEN_THOUSANDTHS);
    EXPECT_EQ(Call(server_.Get(), L"GetServerVersion", {}, DISPATCH_PROPERTYPUT).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Call(server_.Get(), L"GetServerVersions", {}).result, DISP_E_UNKNOWNNAME);

    DISPPARAMS none = {};
    const auto invoke = [&](DISPID id, REFIID iid, DISPPARAMS* parameters) {
        return server_->Invoke(id, iid, 0, DISPATCH_METHOD, parameters, nullptr, nullptr, nullptr);
    };
    for (const DISPID id : {DISPID{0}, DISPID{-1}, DISPID{6}, DISPID{-2147483647}})
        EXPECT_EQ(invoke(id, IID_NULL, &none), DISP_E_MEMBERNOTFOUND) << id;
    EXPECT_EQ(invoke(1, IID_IUnknown, &none), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(invoke(1, IID_NULL, nullptr), E_POINTER);
}

}  // namespace
}  // namespace vintrel::testing
