// What the exception runtime needs of threads, by Windows' own means: eight functions in place of the 30 KB of a
// portable thread library. They stand in for that library here only: what else of the server meets several threads
// (the counts of objects, the tables of late binding, WinHTTP's callbacks, the looking up of names) uses atomics and
// Windows' locks itself.
#include "com/runtime/threads.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

// The library's static initialiser of a mutex is -1; a mutex that is free may hold 0 as well.
constexpr LONG kHeld = 1;
constexpr LONG kFree = 0;

enum OnceState : LONG { kNotRun, kRunning, kRun };

struct Key {
    DWORD index = TLS_OUT_OF_INDEXES;
    void (*destroy)(void*) = nullptr;
};
std::array<Key, 4> keys;
LONG key_count = 0;

Key* FindKey(unsigned index) {
    for (Key& key : keys)
        if (key.index == index) return &key;
    return nullptr;
}

}  // namespace

namespace vintrel::com {

void EndRuntimeThread() noexcept {
    for (const Key& key : keys) {
        if (key.index == TLS_OUT_OF_INDEXES || !key.destroy) continue;
        void* value = TlsGetValue(key.index);
        TlsSetValue(key.index, nullptr);
        if (value) key.destroy(value);
    }
}

void EndRuntime() noexcept {
    EndRuntimeThread();
    for (const Key& key : keys)
        if (key.index != TLS_OUT_OF_INDEXES) TlsFree(key.index);
}

}  // namespace vintrel::com

extern "C" {

// Held for a few instructions only, so waiting is giving the processor away.
int pthread_mutex_init(std::intptr_t* mutex, const void*) {
    *mutex = kFree;
    return 0;
}
int pthread_mutex_destroy(std::intptr_t*) { return 0; }
int pthread_mutex_lock(std::intptr_t* mutex) {
    static_assert(sizeof(std::intptr_t) >= sizeof(LONG));
    auto* state = reinterpret_cast<volatile LONG*>(mutex);
    while (InterlockedExchange(state, kHeld) == kHeld) SwitchToThread();
    return 0;
}
int pthread_mutex_unlock(std::intptr_t* mutex) {
    InterlockedExchange(reinterpret_cast<volatile LONG*>(mutex), kFree);
    return 0;
}

int pthread_once(volatile LONG* once, void (*run)()) {
    if (InterlockedCompareExchange(once, kRunning, kNotRun) == kNotRun) {
        run();
        InterlockedExchange(once, kRun);
    }
    while (*once != kRun) SwitchToThread();
    return 0;
}

int pthread_key_create(unsigned* index, void (*destroy)(void*)) {
    const LONG place = InterlockedIncrement(&key_count) - 1;
    if (static_cast<std::size_t>(place) >= keys.size()) return ERROR_NOT_ENOUGH_MEMORY;
    Key& key = keys[static_cast<std::size_t>(place)];
    key.destroy = destroy;
    key.index = TlsAlloc();
    *index = key.index;
    return key.index == TLS_OUT_OF_INDEXES ? ERROR_NOT_ENOUGH_MEMORY : 0;
}
void* pthread_getspecific(unsigned index) {
    const DWORD error = GetLastError();  // which reading a value would reset
    void* value = TlsGetValue(index);
    SetLastError(error);
    return value;
}
int pthread_setspecific(unsigned index, const void* value) {
    return FindKey(index) && TlsSetValue(index, const_cast<void*>(value)) ? 0 : ERROR_INVALID_PARAMETER;  // NOLINT
}

}  // extern "C"
