// Counts what the program takes from the heap, for the rules that promise to take nothing.
#pragma once

#include <cstddef>

namespace vintrel::testing {

/// Calls of operator new since the program began.
std::size_t Allocations();

}  // namespace vintrel::testing
