// Every operation of the type library with every code: none may crash, hang, or fail in a way that no rule knows.
#include <gtest/gtest.h>

#include <ranges>
#include <vector>

#include "client.h"
#include "exchanges/catalogue.h"
#include "message_box_watcher.h"

namespace vintrel::testing {
namespace {

/// A failed call with one of the classic error numbers.
bool IsRuled(HRESULT result) { return (static_cast<ULONG>(result) & 0xFFFF0000) == 0x800A0000; }

std::vector<std::wstring> Codes() {
    std::vector<std::wstring> codes;
    for (const exchanges::Model* model : exchanges::Models())
        codes.emplace_back(model->code.begin(), model->code.end());
    for (const wchar_t* other : {L"type10014", L"TYPE99999", L" TYPE10001"}) codes.emplace_back(other);
    return codes;
}

struct Parameter {
    std::wstring name;
    VARTYPE type;
};

struct FoundOperation {
    std::wstring name;
    std::vector<Parameter> parameters;
    VARTYPE answer = VT_EMPTY;
    bool takes_code = false;
};

/// As the type library describes them. Hosts that bind early know every operation by its place and its identifier.
std::vector<FoundOperation> OperationsOf(IDispatch* object) {
    std::vector<FoundOperation> operations;
    Ref<ITypeInfo> late;
    Ref<ITypeInfo> info;
    HREFTYPE reference = 0;
    object->GetTypeInfo(0, LOCALE_NEUTRAL, late.Out());
    late->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference);
    late->GetRefTypeInfo(reference, info.Out());
    FUNCDESC* function = nullptr;
    for (UINT i = 0; info->GetFuncDesc(i, &function) == S_OK; ++i) {
        EXPECT_EQ(function->memid, static_cast<MEMBERID>(i + 1));
        EXPECT_EQ(static_cast<std::size_t>(function->oVft), (7 + i) * sizeof(void*));
        BSTR names[9] = {};
        UINT found = 0;
        info->GetNames(function->memid, names, 9, &found);
        FoundOperation operation;
        operation.answer = function->lprgelemdescParam[function->cParams - 1].tdesc.lptdesc->vt;
        for (UINT n = 0; n < found; ++n) {
            const std::wstring name(names[n], SysStringLen(names[n]));
            SysFreeString(names[n]);
            if (n == 0)
                operation.name = name;
            else if (n < static_cast<UINT>(function->cParams))
                operation.parameters.push_back({name, function->lprgelemdescParam[n - 1].tdesc.lptdesc->vt});
            operation.takes_code = operation.takes_code || name == L"TypeX";
        }
        Text help;
        info->GetDocumentation(function->memid, nullptr, help.Var(), nullptr, nullptr);
        EXPECT_FALSE(help.Str().empty()) << operation.name.c_str();
        operations.push_back(operation);
        info->ReleaseFuncDesc(function);
    }
    return operations;
}

/// The answer's type is checked here; what became of the call is returned, and of the code.
HRESULT Invoked(IDispatch* object, const FoundOperation& operation, std::wstring& code, const std::wstring& text) {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    std::vector<Variant> variables;
    for (const Parameter& parameter : operation.parameters) {
        if (parameter.type == VT_BSTR && (parameter.name == L"TypeX" || parameter.name == L"PABXType"))
            variables.emplace_back(code.c_str());
        else if (parameter.name == L"DirX")
            variables.emplace_back(folder);
        else if (parameter.type == VT_BSTR)
            variables.emplace_back(text.c_str());
        else
            variables.push_back(Variant::Of(parameter.type));
    }
    std::vector<VARIANT> arguments;
    for (Variant& variable : std::views::reverse(variables)) arguments.push_back(Variant::To(variable));
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    auto* name = const_cast<LPOLESTR>(operation.name.c_str());  // NOLINT: only read
    DISPID id = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id);
    Variant answer;
    EXCEPINFO exception = {};
    const HRESULT result =
        object->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &parameters, &answer, &exception, nullptr);
    EXPECT_TRUE(result != S_OK || answer.vt == (operation.answer == VT_VARIANT ? VARTYPE{VT_EMPTY} : operation.answer))
        << operation.name.c_str();
    for (std::size_t i = 0; i < variables.size(); ++i)
        if (operation.parameters[i].name == L"TypeX") code = variables[i].Str();
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    return result == DISP_E_EXCEPTION ? exception.scode : result;
}

TEST(EveryOperation, AnswersOrFailsByARule) {
    MessageBoxWatcher watcher;  // unknown codes are reported
    const Ref<IDispatch> options = Create(L"Vintrel.SetServerOptions");
    Call(options.Get(), L"SetAllUserCommonDocumentsDirA", {Variant(L"C:\\")});
    std::size_t operations = 0;
    std::size_t upper_cased = 0;
    std::size_t reports = 0;
    for (const wchar_t* prog_id : kProgIds) {
        const Ref<IDispatch> object = Create(prog_id);
        ASSERT_TRUE(object);
        for (const FoundOperation& operation : OperationsOf(object.Get())) {
            ++operations;
            for (const std::wstring& code : operation.takes_code ? Codes() : std::vector<std::wstring>{L"TYPE10001"}) {
                for (const std::wstring& text : {std::wstring(L"0730"), std::wstring(100'000, L',')}) {
                    std::wstring variable = code;
                    const HRESULT result = Invoked(object.Get(), operation, variable, text);
                    EXPECT_TRUE(result == S_OK || IsRuled(result))
                        << operation.name.c_str() << ' ' << code.c_str() << ' ' << std::hex << result;
                    if (code == L"type10014" && variable == L"TYPE10014") ++upper_cased;
                    for (const SeenMessage& report : watcher.Take()) {
                        ++reports;
                        // The report of one operation lacks its last letter.
                        EXPECT_EQ(report.text,
                                  (operation.name == L"GetComLngEndReadRx" ? L"GetComLngEndReadR" : operation.name) +
                                      L": FATAL ERROR !");
                    }
                }
            }
        }
    }
    EXPECT_EQ(operations, 117U);
    EXPECT_EQ(upper_cased, 2U * 67U);
    EXPECT_EQ(reports, 2U * (2U * 60U + 1U))
        << "two unknown codes each, and one operation that names its code otherwise";
    // One of them showed the list window, which stays for the operator.
    SendMessageW(FindWindowW(L"SupportList", nullptr), WM_CLOSE, 0, 0);
}

}  // namespace
}  // namespace vintrel::testing
