#include "client.h"

#include <algorithm>
#include <vector>

namespace vintrel::testing {

Ref<IDispatch> Create(const wchar_t* prog_id) {
    Ref<IDispatch> object;
    CLSID clsid = {};
    if (SUCCEEDED(CLSIDFromProgID(prog_id, &clsid)))
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.OutVoid());
    return object;
}

namespace {

std::wstring Taken(BSTR string) {
    std::wstring text = string ? std::wstring(string, SysStringLen(string)) : std::wstring();
    SysFreeString(string);
    return text;
}

}  // namespace

Outcome Call(IDispatch* object, const wchar_t* name, std::initializer_list<Variant> arguments, WORD flags) {
    Outcome outcome;
    DISPID id = DISPID_UNKNOWN;
    auto* names = const_cast<LPOLESTR>(name);  // NOLINT: it is only read
    outcome.result = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(outcome.result)) return outcome;

    std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));
    DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    EXCEPINFO exception = {};
    VARIANT* answer = flags == DISPATCH_METHOD ? nullptr : static_cast<VARIANT*>(&outcome.answer);
    outcome.result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, answer, &exception,
                                    &outcome.bad_argument);
    outcome.failure = exception.scode;
    outcome.source = Taken(exception.bstrSource);
    outcome.description = Taken(exception.bstrDescription);
    return outcome;
}

Outcome CallNamed(IDispatch* object, const wchar_t* name, std::initializer_list<Variant> arguments,
                  std::initializer_list<const wchar_t*> names) {
    Outcome outcome;
    std::vector<LPOLESTR> all = {const_cast<LPOLESTR>(name)};                     // NOLINT: only read
    for (const wchar_t* each : names) all.push_back(const_cast<LPOLESTR>(each));  // NOLINT: only read
    std::vector<DISPID> ids(all.size());
    outcome.result =
        object->GetIDsOfNames(IID_NULL, all.data(), static_cast<UINT>(all.size()), LOCALE_USER_DEFAULT, ids.data());
    if (FAILED(outcome.result)) return outcome;

    std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));
    std::reverse(ids.begin() + 1, ids.end());
    DISPPARAMS parameters = {reversed.data(), ids.data() + 1, static_cast<UINT>(reversed.size()),
                             static_cast<UINT>(names.size())};
    outcome.result = object->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                    &outcome.answer, nullptr, &outcome.bad_argument);
    return outcome;
}

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program = path;
    return program.substr(0, program.find_last_of(L'\\'));
}

Ref<ITypeLib> TypeLibrary() {
    Ref<ITypeLib> library;
    LoadTypeLibEx((ProgramFolder() + L"\\Vintrel.dll").c_str(), REGKIND_NONE, library.Out());
    return library;
}

bool ServerIsIdle() {
    HMODULE module = GetModuleHandleW(L"Vintrel.dll");
    if (!module) return true;
    const FARPROC function = GetProcAddress(module, "DllCanUnloadNow");
    return function &&
           reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)()>(reinterpret_cast<void (*)()>(function))() == S_OK;
}

}  // namespace vintrel::testing
