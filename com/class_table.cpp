#include "com/class_table.h"

#include "Vintrel.h"

namespace vintrel::com {
namespace {

// clang-format off
const ClassEntry kClasses[kClassCount] = {
    {CLSID_ServerInfo,       IID__ServerInfo,       L"Vintrel.ServerInfo",       NewServerInfo},
    {CLSID_SetServerOptions, IID__SetServerOptions, L"Vintrel.SetServerOptions", NewSetServerOptions},
    {CLSID_ComProgramSet,    IID__ComProgramSet,    L"Vintrel.ComProgramSet",    NewComProgramSet},
    {CLSID_ServiceEnabled,   IID__ServiceEnabled,   L"Vintrel.ServiceEnabled",   NewServiceEnabled},
    {CLSID_ComEventsTX,      IID__ComEventsTX,      L"Vintrel.ComEventsTX",      NewComEventsTX},
    {CLSID_ComEventsRX,      IID__ComEventsRX,      L"Vintrel.ComEventsRX",      NewComEventsRX},
    {CLSID_ComGdvFilter,     IID__ComGdvFilter,     L"Vintrel.ComGdvFilter",     NewComGdvFilter},
    {CLSID_PMSEvents,        IID__PMSEvents,        L"Vintrel.PMSEvents",        NewPMSEvents},
};
// clang-format on

}  // namespace

std::span<const ClassEntry, kClassCount> Classes() { return kClasses; }

const ClassEntry* FindClass(const CLSID& clsid) {
    for (const ClassEntry& entry : kClasses)
        if (IsEqualGUID(entry.clsid, clsid) != FALSE) return &entry;
    return nullptr;
}

}  // namespace vintrel::com
