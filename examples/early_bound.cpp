// An early-bound client: the catalogue, and a failed call with its error information.
#include <windows.h>

#include <cwchar>
#include <iostream>

#include "Vintrel.h"

namespace {

/// A BSTR that frees itself; every operation takes its texts by reference.
class Text {
 public:
    explicit Text(const wchar_t* text = nullptr) : value_(SysAllocString(text)) {}
    ~Text() { SysFreeString(value_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    BSTR* InOut() { return &value_; }
    BSTR* Out() {
        SysFreeString(value_);
        value_ = nullptr;
        return &value_;
    }
    const wchar_t* c_str() const { return value_ != nullptr ? value_ : L""; }

 private:
    BSTR value_;
};

int ShowModels() {
    _ServerInfo* info = nullptr;
    const HRESULT created = CoCreateInstance(CLSID_ServerInfo, nullptr, CLSCTX_INPROC_SERVER, IID__ServerInfo,
                                             reinterpret_cast<void**>(&info));
    if (FAILED(created)) {
        std::wcerr << L"the server is not registered (0x" << std::hex << created << L")\n";
        return 1;
    }
    for (int number = 10001;; ++number) {
        wchar_t code[16];
        std::swprintf(code, 16, L"type%d", number);  // any case: it comes back in upper case
        Text type(code);
        Text name;
        if (FAILED(info->GetPabxTypeName(type.InOut(), name.Out()))) break;
        if (std::wcscmp(name.c_str(), L"type not found") == 0) break;
        std::wcout << type.c_str() << L"  " << name.c_str() << L'\n';
    }
    info->Release();
    return 0;
}

int ShowFailedCall() {
    _PMSEvents* link = nullptr;
    if (FAILED(CoCreateInstance(CLSID_PMSEvents, nullptr, CLSCTX_INPROC_SERVER, IID__PMSEvents,
                                reinterpret_cast<void**>(&link))))
        return 1;
    Text record(L"PS|RN102");  // no "|" closes the field
    Text column(L"|RN");
    Text value;
    const HRESULT result = link->GetPMS_ColumnData(record.InOut(), column.InOut(), value.Out());
    IErrorInfo* error = nullptr;
    if (FAILED(result) && GetErrorInfo(0, &error) == S_OK) {
        Text source;
        Text description;
        error->GetSource(source.Out());
        error->GetDescription(description.Out());
        std::printf("0x%08lX from %ls: %ls\n", static_cast<unsigned long>(result), source.c_str(), description.c_str());
        error->Release();
    }
    link->Release();
    return 0;
}

}  // namespace

int main() {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    const int status = ShowModels() | ShowFailedCall();
    CoUninitialize();
    return status;
}
