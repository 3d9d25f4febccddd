#include "com/module.h"

#include <atomic>

#include "com/server_instance.h"
#include "win32/module.h"

namespace vintrel::com {
namespace {

std::atomic<long> objects = 0;
std::atomic<long> locks = 0;

}  // namespace

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(win32::ThisModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void ObjectCreated() { ++objects; }

void ObjectDestroyed() {
    if (--objects == 0) TheServer().Close();
}

void AddModuleLock() { ++locks; }

void ReleaseModuleLock() { --locks; }

bool CanUnload() { return objects == 0 && locks == 0 && !TheServer().InUse(); }

}  // namespace vintrel::com
