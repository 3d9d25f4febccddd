// What a call through COM costs, as ratios to floors that are measured in the same run. Prints a table; the exit code
// counts the rows that miss their target.
#include <windows.h>

#include <oleauto.h>

#include <x86intrin.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <deque>
#include <string>

#include "Vintrel.h"
#include "call_records.h"
#include "floor.h"

namespace vintrel::bench {
namespace {

constexpr double kLateBound = 1.5;
constexpr double kGrowth = 1.1;             // of the time of a record
constexpr double kGrownMegabytes = 1.0;     // after a million records
constexpr double kLargestDll = 400.0;       // KB
constexpr double kLoadMilliseconds = 10.0;  // and create all eight classes

/// Nanoseconds by the system's clock, in steps of a hundred.
double SystemNow() {
    LARGE_INTEGER count = {};
    LARGE_INTEGER frequency = {};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) * 1e9 / static_cast<double>(frequency.QuadPart);
}

/// Nanoseconds by the processor's counter, which tells short times apart.
double Now() {
    static const double kNanosecondsPerTick = [] {
        constexpr DWORD kMilliseconds = 100;
        const double start = SystemNow();
        const std::uint64_t ticks = __rdtsc();
        Sleep(kMilliseconds);
        return (SystemNow() - start) / static_cast<double>(__rdtsc() - ticks);
    }();
    return static_cast<double>(__rdtsc()) * kNanosecondsPerTick;
}

/// Nanoseconds per call: the best of many short runs, which other work on the machine disturbs least.
template <typename Body>
double Time(Body body) {
    constexpr int kRuns = 60;
    constexpr int kCalls = 1000;
    double best = 1e12;
    for (int run = 0; run < kRuns; ++run) {
        const double start = Now();
        for (int call = 0; call < kCalls; ++call) body();
        best = std::min(best, (Now() - start) / kCalls);
    }
    return best;
}

int missed = 0;

void Row(const char* what, double value, const char* unit, double ratio, double target) {
    const bool met = ratio <= target;
    if (!met) ++missed;
    std::printf("%-34s %9.1f %-3s %8.2f   <= %-6.1f %s\n", what, value, unit, ratio, target, met ? "met" : "MISSED");
}

std::wstring Folder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program = path;
    return program.substr(0, program.find_last_of(L'\\') + 1);
}

bool Register() {
    HMODULE module = LoadLibraryW((Folder() + L"Vintrel.dll").c_str());
    if (!module) return false;
    const FARPROC function = GetProcAddress(module, "DllRegisterServer");
    const bool done =
        function && reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)()>(reinterpret_cast<void (*)()>(function))() == S_OK;
    FreeLibrary(module);
    return done;
}

/// Milliseconds from an unloaded DLL to one object of each class.
double LoadAndCreate() {
    constexpr int kRuns = 20;
    double best = 1e12;
    for (int run = 0; run < kRuns; ++run) {
        const double start = Now();
        IUnknown* objects[8] = {};
        const CLSID* classes[8] = {&CLSID_ServerInfo,     &CLSID_SetServerOptions, &CLSID_ComProgramSet,
                                   &CLSID_ServiceEnabled, &CLSID_ComEventsTX,      &CLSID_ComEventsRX,
                                   &CLSID_ComGdvFilter,   &CLSID_PMSEvents};
        for (int i = 0; i < 8; ++i)
            CoCreateInstance(*classes[i], nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                             reinterpret_cast<void**>(&objects[i]));
        best = std::min(best, (Now() - start) / 1e6);
        for (IUnknown* object : objects) {
            if (!object) return 1e12;
            object->Release();
        }
        CoFreeUnusedLibrariesEx(0, 0);
        if (GetModuleHandleW(L"Vintrel.dll")) return 1e12;  // it must have been unloaded, or the next run is no load
    }
    return best;
}

_ComEventsRX* NewEvents() {
    _ComEventsRX* events = nullptr;
    CoCreateInstance(CLSID_ComEventsRX, nullptr, CLSCTX_INPROC_SERVER, IID__ComEventsRX,
                     reinterpret_cast<void**>(&events));
    return events;
}

/// The server's state dies with its DLL: the object of a server that is young again. Null when the DLL stays.
_ComEventsRX* Reloaded(_ComEventsRX* events) {
    events->Release();
    CoFreeUnusedLibrariesEx(0, 0);
    return GetModuleHandleW(L"Vintrel.dll") ? nullptr : NewEvents();
}

/// The floor's side of the same call.
class FloorCall {
 public:
    FloorCall() {
        const HMODULE module = LoadLibraryW((Folder() + L"vintrel_floor.dll").c_str());
        if (!module) return;
        floor_ = reinterpret_cast<NewFloorFunction>(reinterpret_cast<void (*)()>(GetProcAddress(module, "NewFloor")))();
    }
    FloorCall(const FloorCall&) = delete;
    FloorCall& operator=(const FloorCall&) = delete;
    ~FloorCall() {
        SysFreeString(type_);
        SysFreeString(record_);
    }

    bool Ready() const { return floor_ != nullptr; }
    /// The length of the result.
    UINT Make() {
        BSTR result = nullptr;
        floor_->FreshRecord(&type_, &record_, &result);
        const UINT length = SysStringLen(result);
        SysFreeString(result);
        return length;
    }

 private:
    Floor* floor_ = nullptr;
    BSTR type_ = SysAllocString(L"TYPE10001");
    BSTR record_ = SysAllocString(L"record");
};

/// The caller's side of a conversion: its two variables.
class Call {
 public:
    explicit Call(const CallRecord& row) : row_(&row), type_(SysAllocString(row.code)) { Fill(); }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() {
        SysFreeString(type_);
        SysFreeString(record_);
    }

    /// The length of the result.
    UINT Make(_ComEventsRX* events) {
        BSTR result = nullptr;
        events->GetComConvertStringRX(&type_, &record_, &result);
        const UINT length = SysStringLen(result);
        SysFreeString(result);
        return length;
    }
    /// Two exchanges cut the record out of the caller's text: the next call needs the whole again.
    void Refill() {
        if (SysStringLen(record_) == length_) return;
        SysFreeString(record_);
        Fill();
    }

 private:
    void Fill() {
        record_ = SysAllocString(row_->record);
        length_ = SysStringLen(record_);
    }

    const CallRecord* row_;
    BSTR type_;
    BSTR record_ = nullptr;
    UINT length_ = 0;
};

/// One converter's best time of a call, beside the floor's.
class Converter {
 public:
    explicit Converter(const CallRecord& row) : row_(row) {
        constexpr int kCalls = 20;  // few, for a record has just been received and is at hand
        for (int i = 0; i < kCalls; ++i) calls_.emplace_back(row);
    }

    /// Conversions and floor in turn, so that both meet the machine in the same state. The caller's variables are
    /// filled outside of the time that is taken.
    void Run(_ComEventsRX* events, FloorCall& floor) {
        bool whole = true;
        const double start = Now();
        for (Call& call : calls_) whole = call.Make(events) == 87 && whole;
        const double end = Now();
        for (Call& call : calls_) call.Refill();
        const double floor_start = Now();
        for (std::size_t i = 0; i < calls_.size(); ++i) whole = floor.Make() == 87 && whole;
        const double floor_end = Now();
        const auto count = static_cast<double>(calls_.size());
        if (whole) best_ = std::min(best_, (end - start) / count);
        best_floor_ = std::min(best_floor_, (floor_end - floor_start) / count);
    }
    void Show() const { Row(row_.converter, best_, "ns", best_ / best_floor_, row_.target); }

 private:
    const CallRecord& row_;
    std::deque<Call> calls_;
    double best_ = 1e12;
    double best_floor_ = 1e12;
};

/// In turn for several seconds: on a machine with other work, each meets some of its quiet moments.
void Converters(_ComEventsRX* events, FloorCall& floor) {
    constexpr int kTurns = 600;
    constexpr int kRuns = 100;
    std::deque<Converter> converters;
    for (const CallRecord& row : kCallRecords) converters.emplace_back(row);
    for (int turn = 0; turn < kTurns; ++turn)
        for (Converter& converter : converters)
            for (int run = 0; run < kRuns; ++run) converter.Run(events, floor);
    for (const Converter& converter : converters) converter.Show();
}

double PrivateBytes() {
    // Region by region: Wine's process counters leave private memory at 0.
    double bytes = 0;
    MEMORY_BASIC_INFORMATION region = {};
    for (const char* place = nullptr; VirtualQuery(place, &region, sizeof region) == sizeof region;
         place = static_cast<const char*>(region.BaseAddress) + region.RegionSize)
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) bytes += static_cast<double>(region.RegionSize);
    return bytes;
}

/// Records of all exchanges in turn.
class MixedRecords {
 public:
    MixedRecords() {
        for (const CallRecord& row : kCallRecords) calls_.emplace_back(row);
        calls_.emplace_back(kTransferredLeg);
    }

    /// Nanoseconds per record: the best of many batches, each of all exchanges in turn.
    double Make(_ComEventsRX* events, int batches) {
        constexpr int kRounds = 8;
        double best = 1e12;
        for (int batch = 0; batch < batches; ++batch) {
            const double start = Now();
            for (int round = 0; round < kRounds; ++round) {
                for (Call& call : calls_) {
                    call.Make(events);
                    call.Refill();
                }
            }
            best = std::min(best, (Now() - start) / (kRounds * static_cast<double>(calls_.size())));
        }
        return best;
    }

 private:
    std::deque<Call> calls_;
};

/// A million records: neither the time of one nor the memory may grow with their number. A server that has converted
/// them and one that has just been loaded are timed in turn, so that both meet the machine's quiet moments. Returns the
/// object of the last server, null when none could be loaded.
_ComEventsRX* Endurance(_ComEventsRX* events) {
    constexpr int kPairs = 5;
    constexpr int kCompared = 1000;   // batches, of about a hundred records
    constexpr int kMillion = 10'500;  // batches
    MixedRecords records;
    double old_time = 1e12;
    double young_time = 1e12;
    double grown = 0;
    for (int pair = 0; pair < kPairs; ++pair) {
        records.Make(events, kCompared);
        const double memory = PrivateBytes();
        records.Make(events, kMillion);
        grown = std::max(grown, PrivateBytes() - memory);
        old_time = std::min(old_time, records.Make(events, kCompared));
        events = Reloaded(events);
        if (!events) return nullptr;
        records.Make(events, 1);  // the first calls set things up
        young_time = std::min(young_time, records.Make(events, kCompared));
    }
    constexpr double kKilobyte = 1024;
    Row("a record after 1,000,000", old_time, "ns", old_time / young_time, kGrowth);
    Row("memory after 1,000,000 records", grown / kKilobyte, "KB", grown / kKilobyte / kKilobyte, kGrownMegabytes);
    return events;
}

void LateBinding(IDispatch* object, const wchar_t* name, const wchar_t* first, const wchar_t* second) {
    ITypeInfo* info = nullptr;
    object->GetTypeInfo(0, LOCALE_NEUTRAL, &info);
    auto* names = const_cast<LPOLESTR>(name);  // NOLINT: only read
    DISPID id = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_NEUTRAL, &id);

    VARIANT texts[2];  // in reverse order
    texts[0].vt = texts[1].vt = VT_BSTR;
    texts[0].bstrVal = SysAllocString(second);
    texts[1].bstrVal = SysAllocString(first);
    VARIANT plain[2];
    VARIANT script[2];
    for (int i = 0; i < 2; ++i) {
        plain[i].vt = VT_BYREF | VT_BSTR;
        plain[i].pbstrVal = &texts[i].bstrVal;
        script[i].vt = VT_BYREF | VT_VARIANT;
        script[i].pvarVal = &texts[i];
    }
    const UINT count = second ? 2 : 1;
    DISPPARAMS by_string = {second ? plain : plain + 1, nullptr, count, 0};
    DISPPARAMS by_variant = {second ? script : script + 1, nullptr, count, 0};
    const double floor = Time([&] {
        VARIANT result;
        VariantInit(&result);
        info->Invoke(object, id, DISPATCH_METHOD, &by_string, &result, nullptr, nullptr);
        VariantClear(&result);
    });
    const double time = Time([&] {
        VARIANT result;
        VariantInit(&result);
        object->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &by_variant, &result, nullptr, nullptr);
        VariantClear(&result);
    });
    char label[64];
    std::snprintf(label, sizeof label, "late-bound %ls", name);
    Row(label, time, "ns", time / floor, kLateBound);
    SysFreeString(texts[0].bstrVal);
    SysFreeString(texts[1].bstrVal);
    info->Release();
}

int Main() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (!Register()) {
        std::fputs("com_bench: Vintrel.dll must stand beside this program\n", stderr);
        return 100;
    }
    const double load = LoadAndCreate();
    FloorCall floor;
    _ComEventsRX* events = NewEvents();
    if (!events || !floor.Ready()) return 100;

    std::printf("%-34s %9s %-3s %8s      %s\n", "", "time", "", "ratio", "target");
    std::printf("%-34s %9.1f ns      1.00   the floor of the converters\n", "a fresh record through COM",
                Time([&] { floor.Make(); }));
    Converters(events, floor);
    events = Endurance(events);
    IDispatch* enabled = nullptr;
    CoCreateInstance(CLSID_ServiceEnabled, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                     reinterpret_cast<void**>(&enabled));
    if (!events || !enabled) return 100;
    LateBinding(events, L"GetComConvertStringRX", kCallRecords[0].code, kCallRecords[0].record);
    LateBinding(enabled, L"GetClockEnabled", L"TYPE10014", nullptr);
    WIN32_FILE_ATTRIBUTE_DATA file = {};
    GetFileAttributesExW((Folder() + L"Vintrel.dll").c_str(), GetFileExInfoStandard, &file);
    const double size = file.nFileSizeLow / 1024.0;
    Row("size of the DLL", size, "KB", size, kLargestDll);
    Row("load, create all eight classes", load, "ms", load, kLoadMilliseconds);
    enabled->Release();
    events->Release();
    CoUninitialize();
    return missed;
}

}  // namespace
}  // namespace vintrel::bench

int main() { return vintrel::bench::Main(); }
