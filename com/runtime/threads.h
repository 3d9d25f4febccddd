// What the DLL's entry point tells the exception runtime, which keeps a state per thread.
#pragma once

namespace vintrel::com {

/// The calling thread ends: its state goes.
void EndRuntimeThread() noexcept;
/// The DLL goes while the process stays: no place of a state is kept.
void EndRuntime() noexcept;

}  // namespace vintrel::com
