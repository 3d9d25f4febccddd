// An argument of a late-bound call on its way to a by-reference parameter and back.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace vintrel::com {

/// Callers pass the same variable in many forms: by value, by reference, as a reference to a VARIANT that holds it, in
/// another type that can be converted. The operation sees a variable of the declared type; where it changes it, the
/// caller's variable changes too, and only then.
///
/// Conversion does not depend on the user's locale. A value of another type that came by reference is written back in
/// the type of the caller's variable, or, when that is a VARIANT, in the declared type.
class LateArgument {
 public:
    LateArgument() { V_VT(&value_) = VT_EMPTY; }
    ~LateArgument() {
        if (owned_) Discard();
    }
    LateArgument(const LateArgument&) = delete;
    LateArgument& operator=(const LateArgument&) = delete;

    /// DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, DISP_E_PARAMNOTOPTIONAL (the argument was left out) or E_OUTOFMEMORY.
    HRESULT Bind(VARIANT& given, VARTYPE declared) {
        // What a compiled client and a script's variable of the right type look like: no copy is made.
        if (V_VT(&given) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(&given) && V_VT(V_VARIANTREF(&given)) == declared) {
            pointer_ = &V_BYREF(V_VARIANTREF(&given));
            return S_OK;
        }
        if (V_VT(&given) == (VT_BYREF | declared) && V_BYREF(&given)) {
            pointer_ = V_BYREF(&given);
            return S_OK;
        }
        return BindOther(given, declared);
    }
    /// The variable for the operation.
    void* Pointer() const { return pointer_; }
    /// DISP_E_OVERFLOW when the new value does not fit into the caller's variable.
    HRESULT WriteBack() { return target_ ? WriteChange() : S_OK; }

 private:
    HRESULT BindOther(VARIANT& given, VARTYPE declared);
    HRESULT WriteChange();
    bool Changed() const;
    void Discard();

    void* pointer_ = nullptr;
    VARIANT* target_ = nullptr;  // the caller's variable, when the value had to be converted
    bool owned_ = false;
    VARIANT value_;
    VARIANT before_;  // set together with target_
};

}  // namespace vintrel::com
