#include "com/late_binding.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <utility>

#include "com/arguments.h"
#include "com/type_library.h"

namespace vintrel::com {
namespace {

/// The type library cannot be read, or describes something else than this server.
class UnknownSurface : public std::exception {};

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};

wchar_t Folded(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

bool SameName(std::wstring_view left, std::wstring_view right) {
    return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                     [](wchar_t a, wchar_t b) { return Folded(a) == Folded(b); });
}

/// What a by-reference parameter refers to.
VARTYPE Referent(const ELEMDESC& element) {
    if (element.tdesc.vt != VT_PTR) throw UnknownSurface();
    return element.tdesc.lptdesc->vt;
}

void ReadParameters(const FUNCDESC& function, Operation& operation) {
    const auto count = static_cast<std::size_t>(function.cParams);
    if (count == 0 || count - 1 > Operation::kMaxParameters) throw UnknownSurface();
    operation.parameter_count = count - 1;
    for (std::size_t i = 0; i < count - 1; ++i) operation.types[i] = Referent(function.lprgelemdescParam[i]);
    operation.result = Referent(function.lprgelemdescParam[count - 1]);
}

void ReadNames(ITypeInfo& info, MEMBERID id, Operation& operation) {
    std::array<BSTR, Operation::kMaxParameters + 2> names{};
    UINT count = 0;
    if (FAILED(info.GetNames(id, names.data(), static_cast<UINT>(names.size()), &count)) || count == 0)
        throw UnknownSurface();
    for (UINT i = 0; i < count; ++i) {
        const std::wstring name(names[i], SysStringLen(names[i]));
        SysFreeString(names[i]);
        if (i == 0)
            operation.name = name;
        else if (i - 1 < operation.parameter_count)
            operation.parameter_names[i - 1] = name;
    }
}

/// The interface as its table of functions lists it; a dual interface has another description for late binding.
std::unique_ptr<ITypeInfo, Releaser> TableDescription(const IID& iid) {
    ITypeInfo* dispatch = nullptr;
    if (FAILED(LoadTypeInfo(iid, &dispatch))) throw UnknownSurface();
    std::unique_ptr<ITypeInfo, Releaser> info(dispatch);
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetTypeAttr(&attributes))) throw UnknownSurface();
    const bool is_dispatch = attributes->typekind == TKIND_DISPATCH;
    info->ReleaseTypeAttr(attributes);
    if (!is_dispatch) return info;

    HREFTYPE reference = 0;
    ITypeInfo* table = nullptr;
    if (FAILED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
        FAILED(info->GetRefTypeInfo(reference, &table)))
        throw UnknownSurface();
    return std::unique_ptr<ITypeInfo, Releaser>(table);
}

struct Place {
    std::atomic<const OperationTable*> ready = nullptr;
    std::unique_ptr<const OperationTable> table;
};
std::array<Place, kClassCount> places;
SRWLOCK places_lock = SRWLOCK_INIT;

using Function = void (*)();

Function SlotOf(IDispatch* object, std::size_t slot) { return (*reinterpret_cast<Function**>(object))[slot]; }

template <std::size_t>
using AnyPointer = void*;

template <std::size_t... Index>
HRESULT CallWith(IDispatch* object, Function function, void* const* pointers, std::index_sequence<Index...>) {
    using Method = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, AnyPointer<Index>...);
    return reinterpret_cast<Method>(function)(object, pointers[Index]...);
}

/// A method of an interface, called by its slot: what every COM client does, with the number of pointers known late.
HRESULT CallSlot(IDispatch* object, std::size_t slot, void* const* pointers, std::size_t count) {
    const Function function = SlotOf(object, slot);
    switch (count) {
        case 1: return CallWith(object, function, pointers, std::make_index_sequence<1>());
        case 2: return CallWith(object, function, pointers, std::make_index_sequence<2>());
        case 3: return CallWith(object, function, pointers, std::make_index_sequence<3>());
        case 4: return CallWith(object, function, pointers, std::make_index_sequence<4>());
        case 5: return CallWith(object, function, pointers, std::make_index_sequence<5>());
        case 6: return CallWith(object, function, pointers, std::make_index_sequence<6>());
        case 7: return CallWith(object, function, pointers, std::make_index_sequence<7>());
        case 8: return CallWith(object, function, pointers, std::make_index_sequence<8>());
        default: return E_UNEXPECTED;
    }
}

struct Matched {
    HRESULT result = S_OK;
    UINT bad_argument = 0;
    std::array<VARIANT*, Operation::kMaxParameters> given{};
    std::array<UINT, Operation::kMaxParameters> index{};  ///< of each in the caller's list
};

/// Which of the caller's arguments is which parameter: named ones stand first, the others follow in reverse order.
Matched Match(const Operation& operation, const DISPPARAMS& parameters) {
    Matched matched;
    if (parameters.cArgs > operation.parameter_count || parameters.cNamedArgs > parameters.cArgs) {
        matched.result = DISP_E_BADPARAMCOUNT;
        return matched;
    }
    const auto place = [&](std::size_t parameter, UINT argument) {
        if (parameter >= operation.parameter_count || matched.given[parameter]) {
            matched.result = DISP_E_PARAMNOTFOUND;
            matched.bad_argument = argument;
            return;
        }
        matched.given[parameter] = &parameters.rgvarg[argument];
        matched.index[parameter] = argument;
    };
    for (UINT i = parameters.cNamedArgs; i < parameters.cArgs; ++i) place(parameters.cArgs - 1 - i, i);
    for (UINT i = 0; i < parameters.cNamedArgs; ++i)
        place(static_cast<std::size_t>(parameters.rgdispidNamedArgs[i]), i);
    if (FAILED(matched.result)) return matched;

    for (std::size_t i = 0; i < operation.parameter_count; ++i)
        if (!matched.given[i])
            matched.result = parameters.cNamedArgs != 0 ? DISP_E_PARAMNOTOPTIONAL : DISP_E_BADPARAMCOUNT;
    return matched;
}

/// Hands a failed call's rich error information over in the form of late binding.
HRESULT Exception(HRESULT failure, EXCEPINFO* exception) {
    if (!exception) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = failure;
    IErrorInfo* information = nullptr;
    if (GetErrorInfo(0, &information) == S_OK) {
        information->GetSource(&exception->bstrSource);
        information->GetDescription(&exception->bstrDescription);
        information->Release();
    }
    return DISP_E_EXCEPTION;
}

}  // namespace

OperationTable::OperationTable(const IID& iid) {
    const auto info = TableDescription(iid);
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetTypeAttr(&attributes))) throw UnknownSurface();
    const UINT count = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);

    operations_.resize(count);
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* description = nullptr;
        if (FAILED(info->GetFuncDesc(i, &description))) throw UnknownSurface();
        const auto release = [&](FUNCDESC* function) { info->ReleaseFuncDesc(function); };
        const std::unique_ptr<FUNCDESC, decltype(release)> function(description, release);
        if (function->memid != static_cast<MEMBERID>(i) + 1) throw UnknownSurface();
        Operation& operation = operations_[i];
        operation.slot = static_cast<std::size_t>(function->oVft) / sizeof(void*);
        ReadParameters(*function, operation);
        ReadNames(*info, function->memid, operation);
    }
}

DISPID OperationTable::Find(std::wstring_view name) const {
    for (std::size_t i = 0; i < operations_.size(); ++i)
        if (SameName(operations_[i].name, name)) return static_cast<DISPID>(i) + 1;
    return DISPID_UNKNOWN;
}

const OperationTable& OperationsOf(const ClassEntry& entry) {
    Place& place = places[static_cast<std::size_t>(&entry - Classes().data())];
    if (const OperationTable* ready = place.ready) return *ready;

    // Two threads with objects of their own may come here together.
    auto made = std::make_unique<const OperationTable>(entry.iid);
    AcquireSRWLockExclusive(&places_lock);
    if (!place.table) place.table = std::move(made);
    place.ready = place.table.get();
    ReleaseSRWLockExclusive(&places_lock);
    return *place.ready;
}

HRESULT LateNames(const OperationTable& operations, REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) {
    if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids) return E_POINTER;
    if (count == 0) return S_OK;

    std::fill(ids, ids + count, DISPID_UNKNOWN);
    if (names[0]) ids[0] = operations.Find(names[0]);
    const Operation* operation = operations.Find(ids[0]);
    bool all_known = operation != nullptr;
    for (UINT i = 1; operation && i < count; ++i) {
        for (std::size_t p = 0; names[i] && p < operation->parameter_count; ++p)
            if (SameName(operation->parameter_names[p], names[i])) ids[i] = static_cast<DISPID>(p);
        all_known = all_known && ids[i] != DISPID_UNKNOWN;
    }
    return all_known ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT LateCall(IDispatch* object, const OperationTable& operations, DISPID id, REFIID iid, WORD flags,
                 DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) {
    if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_POINTER;
    const Operation* operation = operations.Find(id);
    // A script's function call says "method or property", its statement call "method".
    if (!operation || (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0) return DISP_E_MEMBERNOTFOUND;

    const Matched matched = Match(*operation, *parameters);
    if (FAILED(matched.result)) {
        if (bad_argument) *bad_argument = matched.bad_argument;
        return matched.result;
    }

    std::array<LateArgument, Operation::kMaxParameters> arguments;
    std::array<void*, Operation::kMaxParameters + 1> pointers{};
    for (std::size_t i = 0; i < operation->parameter_count; ++i) {
        const HRESULT bound = arguments[i].Bind(*matched.given[i], operation->types[i]);
        if (FAILED(bound)) {
            if (bad_argument) *bad_argument = matched.index[i];
            return bound;
        }
        pointers[i] = arguments[i].Pointer();
    }

    VARIANT answer;
    VariantInit(&answer);
    const bool whole = operation->result == VT_VARIANT;
    pointers[operation->parameter_count] = whole ? static_cast<void*>(&answer) : &V_BYREF(&answer);
    const HRESULT called = CallSlot(object, operation->slot, pointers.data(), operation->parameter_count + 1);
    if (!whole && SUCCEEDED(called)) V_VT(&answer) = operation->result;

    HRESULT written = S_OK;
    for (std::size_t i = 0; i < operation->parameter_count; ++i) {
        const HRESULT back = arguments[i].WriteBack();
        if (FAILED(back) && SUCCEEDED(written)) {
            written = back;
            if (bad_argument) *bad_argument = matched.index[i];
        }
    }
    if (FAILED(called)) return Exception(called, exception);
    if (FAILED(written) || !result) {
        VariantClear(&answer);
    } else {
        *result = answer;
    }
    return written;
}

}  // namespace vintrel::com
