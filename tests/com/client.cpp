#include "client.h"

#include <algorithm>

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

Outcome Call(IDispatch* object, const wchar_t* name, const std::vector<Variant>& arguments, WORD flags,
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
    EXCEPINFO exception = {};
    VARIANT* answer = flags == DISPATCH_METHOD ? nullptr : static_cast<VARIANT*>(&outcome.answer);
    outcome.result = object->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, answer, &exception,
                                    &outcome.bad_argument);
    outcome.failure = exception.scode;
    outcome.source = Taken(exception.bstrSource);
    outcome.description = Taken(exception.bstrDescription);
    return outcome;
}

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program = path;
    return program.substr(0, program.find_last_of(L'\\'));
}

HRESULT CallExport(const char* name) {
    HMODULE module = LoadLibraryW((ProgramFolder() + L"\\Vintrel.dll").c_str());
    FARPROC function = module ? GetProcAddress(module, name) : nullptr;
    const HRESULT result =
        function ? reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)()>(reinterpret_cast<void (*)()>(function))() : E_FAIL;
    if (module) FreeLibrary(module);
    return result;
}

}  // namespace vintrel::testing
