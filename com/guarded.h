// The one fence between the server's C++ and the host: no exception crosses it.
#pragma once

#include <windows.h>

#include <new>

#include "com/class_table.h"

namespace vintrel::com {

/// The HRESULT of the exception in flight, with rich error information for the host. Only inside a catch block.
HRESULT CurrentFailure(const ClassEntry& entry) noexcept;

/// A failure that needs no exception, with its description.
HRESULT Failure(const ClassEntry& entry, HRESULT result, const wchar_t* description) noexcept;

/// Runs the body; S_OK, or what became of the exception that it threw.
template <typename Body>
[[gnu::always_inline]] inline HRESULT Guarded(const ClassEntry& entry, Body&& body) noexcept {
    try {
        body();
        return S_OK;
    } catch (...) {
        return CurrentFailure(entry);
    }
}

/// The same where the host asks for no error information: factory, registration, exports.
template <typename Body>
HRESULT GuardedResult(Body&& body) noexcept {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace vintrel::com
