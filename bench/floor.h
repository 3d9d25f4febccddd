// The floor that COM calls are measured against: an object in a DLL of its own whose method only returns a fresh text.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace vintrel::bench {

struct Floor : IUnknown {
    /// A fresh text of 87 characters, as long as a call record.
    virtual HRESULT STDMETHODCALLTYPE FreshRecord(BSTR* type, BSTR* record, BSTR* result) = 0;
};

/// What the DLL exports under the name "NewFloor".
using NewFloorFunction = Floor*(STDMETHODCALLTYPE*)();

}  // namespace vintrel::bench
