// The DLL as a module: where it is, and what keeps it loaded.
#pragma once

#include <windows.h>

#include <string>

namespace vintrel::com {

/// Full path of the DLL.
/// @throws std::bad_alloc
std::wstring ModulePath();

/// Every object of the eight classes counts itself. With the last one the server closes its windows and timers: COM
/// may unload the DLL at once.
void ObjectCreated();
void ObjectDestroyed();

/// References to a class factory, and IClassFactory::LockServer.
void AddModuleLock();
void ReleaseModuleLock();

/// Whether nothing outside points into the DLL any more.
bool CanUnload();

}  // namespace vintrel::com
