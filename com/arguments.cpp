#include "com/arguments.h"

#include <cstring>

namespace vintrel::com {
namespace {

constexpr LCID kFixedLocale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
constexpr int kMaxReferences = 8;  // a reference to a reference ... : a caller's mistake must not hang the server

HRESULT Convert(VARIANT& target, const VARIANT& source, VARTYPE type) {
    return VariantChangeTypeEx(&target, const_cast<VARIANT*>(&source),  // NOLINT: it is only read
                               kFixedLocale, VARIANT_ALPHABOOL | VARIANT_NOUSEROVERRIDE, type);
}

/// Bytes of a plain value; 0 for what needs more than copying.
std::size_t PlainSize(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1: return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL: return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR: return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE: return 8;
        default: return 0;
    }
}

/// Puts a value into the variable that `reference` refers to.
HRESULT Store(const VARIANT& reference, VARIANT& value) {
    const auto type = static_cast<VARTYPE>(V_VT(&reference) & ~VT_BYREF);
    if (type != VT_BSTR && type != VT_DECIMAL && PlainSize(type) == 0) return S_OK;  // an object keeps itself
    VARIANT converted;
    VariantInit(&converted);
    const HRESULT result = Convert(converted, value, type);
    if (FAILED(result)) return result;
    if (type == VT_BSTR) {
        SysFreeString(*V_BSTRREF(&reference));
        *V_BSTRREF(&reference) = V_BSTR(&converted);
        return S_OK;
    }
    if (type == VT_DECIMAL) {
        const USHORT reserved = V_DECIMALREF(&reference)->wReserved;
        *V_DECIMALREF(&reference) = V_DECIMAL(&converted);
        V_DECIMALREF(&reference)->wReserved = reserved;
        return S_OK;
    }
    std::memcpy(V_BYREF(&reference), &V_BYREF(&converted), PlainSize(type));
    return S_OK;
}

}  // namespace

HRESULT LateArgument::BindOther(VARIANT& given, VARTYPE declared) {
    VARIANT* source = &given;
    for (int i = 0; V_VT(source) == (VT_BYREF | VT_VARIANT); ++i) {
        source = V_VARIANTREF(source);
        if (!source || i == kMaxReferences) return DISP_E_TYPEMISMATCH;
    }
    if (V_ISBYREF(source) && !V_BYREF(source)) return DISP_E_TYPEMISMATCH;
    if (V_VT(source) == VT_ERROR)
        return V_ERROR(source) == DISP_E_PARAMNOTFOUND ? DISP_E_PARAMNOTOPTIONAL : DISP_E_TYPEMISMATCH;
    if (V_VT(source) == (VT_BYREF | declared)) {
        pointer_ = V_BYREF(source);
        return S_OK;
    }
    const bool by_reference = source != &given || V_ISBYREF(source);
    if (by_reference && V_VT(source) == declared) {
        pointer_ = &V_BYREF(source);
        return S_OK;
    }

    HRESULT result = Convert(value_, *source, declared);
    if (FAILED(result)) return result;
    owned_ = true;
    pointer_ = &V_BYREF(&value_);
    // An object that gave its default value stays in the caller's variable.
    if (!by_reference || V_VT(source) == VT_DISPATCH || V_VT(source) == VT_UNKNOWN) return S_OK;
    VariantInit(&before_);
    result = VariantCopy(&before_, &value_);
    if (SUCCEEDED(result)) target_ = source;
    return result;
}

bool LateArgument::Changed() const {
    if (V_VT(&value_) != VT_BSTR)
        return std::memcmp(&V_BYREF(&value_), &V_BYREF(&before_), PlainSize(V_VT(&value_))) != 0;
    const UINT bytes = SysStringByteLen(V_BSTR(&value_));
    if (bytes != SysStringByteLen(V_BSTR(&before_))) return true;
    return bytes != 0 && std::memcmp(V_BSTR(&value_), V_BSTR(&before_), bytes) != 0;
}

HRESULT LateArgument::WriteChange() {
    if (!Changed()) return S_OK;
    if (V_ISBYREF(target_)) return Store(*target_, value_);
    const HRESULT result = VariantClear(target_);
    if (FAILED(result)) return result;
    *target_ = value_;
    VariantInit(&value_);
    return S_OK;
}

void LateArgument::Discard() {
    VariantClear(&value_);
    if (target_) VariantClear(&before_);
}

}  // namespace vintrel::com
