// The server's entries in the registry: eight classes with their ProgIDs, their interfaces, and the type library.
#pragma once

#include <windows.h>

#include <cstdint>

namespace vintrel::com {

enum class Scope : std::uint8_t {
    Machine,  ///< for everybody; needs administrator rights
    User,     ///< for the current user only; elevated processes do not see it
};

/// Writes all entries. When one cannot be written those already there are removed again.
HRESULT Register(Scope scope);
/// Removes what Register wrote, and the parents that it leaves empty. Entries that are not there are no failure.
HRESULT Unregister(Scope scope);

}  // namespace vintrel::com
