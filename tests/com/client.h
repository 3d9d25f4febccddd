// A COM client for tests: objects by ProgID, variables of every form, late-bound calls.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vintrel::testing {

/// One reference to a COM object.
template <typename Interface>
class Ref {
 public:
    Ref() = default;
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref& operator=(Ref&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    Ref(const Ref&) = delete;
    Ref& operator=(const Ref&) = delete;
    ~Ref() { Reset(); }

    void Reset() {
        if (Interface* object = std::exchange(object_, nullptr)) object->Release();
    }
    Interface* Get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    /// For a function that hands a reference out.
    Interface** Out() {
        Reset();
        return &object_;
    }
    void** OutVoid() { return reinterpret_cast<void**>(Out()); }

    template <typename Other>
    Ref<Other> As() const {
        Ref<Other> other;
        if (object_) object_->QueryInterface(__uuidof(Other), other.OutVoid());
        return other;
    }

 private:
    Interface* object_ = nullptr;
};

/// A string of the caller.
class Text {
 public:
    Text() = default;
    explicit Text(std::wstring_view text) : string_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(string_); }

    BSTR* Var() { return &string_; }
    std::wstring Str() const { return string_ ? std::wstring(string_, SysStringLen(string_)) : std::wstring(); }

 private:
    BSTR string_ = nullptr;
};

/// A VARIANT of the caller, by value or referring to another variable.
class Variant : public VARIANT {
 public:
    Variant() { VariantInit(this); }
    explicit Variant(const wchar_t* text) : Variant() {
        vt = VT_BSTR;
        bstrVal = SysAllocString(text);
    }
    explicit Variant(short number) : Variant() {
        vt = VT_I2;
        iVal = number;
    }
    explicit Variant(long number) : Variant() {
        vt = VT_I4;
        lVal = number;
    }
    explicit Variant(double number) : Variant() {
        vt = VT_R8;
        dblVal = number;
    }
    // Copying reads the other one only, whatever the system's declaration says.
    Variant(const Variant& other) : Variant() { VariantCopy(this, const_cast<Variant*>(&other)); }
    Variant& operator=(const Variant& other) {
        if (this != &other) VariantCopy(this, const_cast<Variant*>(&other));
        return *this;
    }
    ~Variant() { VariantClear(this); }

    /// A value of a type without content, such as VT_NULL; or an argument that was left out.
    static Variant Of(VARTYPE type, long value = 0) {
        Variant variant;
        variant.vt = type;
        variant.lVal = value;
        return variant;
    }
    /// What a script passes for its variable.
    static Variant To(VARIANT& variable) { return Reference(VT_VARIANT, &variable); }
    /// What a compiled late-bound client passes for its variable.
    static Variant To(BSTR* variable) { return Reference(VT_BSTR, variable); }
    static Variant Reference(VARTYPE type, void* variable) {
        Variant reference;
        reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
        reference.byref = variable;
        return reference;
    }

    /// The text of a string; "" for anything else.
    std::wstring Str() const {
        return vt == VT_BSTR && bstrVal ? std::wstring(bstrVal, SysStringLen(bstrVal)) : std::wstring();
    }
};

/// The eight classes.
inline constexpr const wchar_t* kProgIds[] = {
    L"Vintrel.ServerInfo",  L"Vintrel.SetServerOptions", L"Vintrel.ComProgramSet", L"Vintrel.ServiceEnabled",
    L"Vintrel.ComEventsTX", L"Vintrel.ComEventsRX",      L"Vintrel.ComGdvFilter",  L"Vintrel.PMSEvents"};

/// An object by its ProgID, created as every host does. Empty when it cannot be created.
Ref<IDispatch> Create(const wchar_t* prog_id);

/// What became of a late-bound call.
struct Outcome {
    HRESULT result = E_FAIL;
    Variant answer;
    UINT bad_argument = 0xFFFF;
    HRESULT failure = S_OK;  ///< of the operation, when the result is DISP_E_EXCEPTION
    std::wstring source;
    std::wstring description;
};

/// Calls an operation by its name; the arguments in the order of its parameters, the last ones under `names`.
Outcome Call(IDispatch* object, const wchar_t* name, const std::vector<Variant>& arguments,
             WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::initializer_list<const wchar_t*> names = {});

/// The folder of the test program, the DLL and the scripts, without a backslash at its end.
std::wstring ProgramFolder();
/// DllRegisterServer, DllUnregisterServer or DllCanUnloadNow of the DLL beside the program; E_FAIL without it.
HRESULT CallExport(const char* name);
/// Whether the server holds nothing any more: no object, no lock, no window.
inline bool ServerIsIdle() { return CallExport("DllCanUnloadNow") == S_OK; }

}  // namespace vintrel::testing
