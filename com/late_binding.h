// IDispatch, served from a table of the operations that is read from the type library once per class.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "com/class_table.h"

namespace vintrel::com {

/// Every parameter of every operation is by reference, and so is the result.
struct Operation {
    static constexpr std::size_t kMaxParameters = 7;

    std::wstring name;
    std::size_t slot = 0;  ///< in the interface's table of functions
    VARTYPE result = VT_EMPTY;
    std::size_t parameter_count = 0;
    std::array<VARTYPE, kMaxParameters> types{};  ///< what each parameter refers to
    std::array<std::wstring, kMaxParameters> parameter_names;
};

class OperationTable {
 public:
    /// @throws std::bad_alloc, or another exception when the type library cannot be read or is not this server's
    explicit OperationTable(const IID& iid);

    /// Null for an unknown identifier.
    const Operation* Find(DISPID id) const {
        const auto index = static_cast<std::size_t>(id) - 1;
        return index < operations_.size() ? &operations_[index] : nullptr;
    }
    /// The identifier of a name, in any case; DISPID_UNKNOWN.
    DISPID Find(std::wstring_view name) const;

 private:
    std::vector<Operation> operations_;  // identifiers count from 1 in this order
};

/// The operations of a class, read with its first late-bound call and kept to the end of the DLL.
const OperationTable& OperationsOf(const ClassEntry& entry);

HRESULT LateNames(const OperationTable& operations, REFIID iid, LPOLESTR* names, UINT count, DISPID* ids);

/// Calls an operation with whatever forms of its arguments the caller has; see arguments.h.
HRESULT LateCall(IDispatch* object, const OperationTable& operations, DISPID id, REFIID iid, WORD flags,
                 DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* bad_argument);

}  // namespace vintrel::com
