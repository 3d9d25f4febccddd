// The eight public classes. This one table feeds the factory, the registration and the late binding.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <cstddef>
#include <span>

namespace vintrel::com {

struct ClassEntry {
    const CLSID& clsid;
    const IID& iid;          ///< its default interface
    const wchar_t* prog_id;  ///< also the source of its errors
    IUnknown* (*create)(const ClassEntry& entry);
};

inline constexpr std::size_t kClassCount = 8;
std::span<const ClassEntry, kClassCount> Classes();
/// Null for any other class.
const ClassEntry* FindClass(const CLSID& clsid);

// One object of each, with one reference; each stands in the file named after it.
IUnknown* NewServerInfo(const ClassEntry& entry);
IUnknown* NewSetServerOptions(const ClassEntry& entry);
IUnknown* NewComProgramSet(const ClassEntry& entry);
IUnknown* NewServiceEnabled(const ClassEntry& entry);
IUnknown* NewComEventsTX(const ClassEntry& entry);
IUnknown* NewComEventsRX(const ClassEntry& entry);
IUnknown* NewComGdvFilter(const ClassEntry& entry);
IUnknown* NewPMSEvents(const ClassEntry& entry);

}  // namespace vintrel::com
