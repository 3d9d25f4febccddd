// The seconds that calls in progress have already spent in earlier legs, shared by all conversions of the server.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <unordered_map>

namespace vintrel::exchanges::ip_office {

/// Holds calls in progress only, at most 65,536 of them: legs that never end drop the call that was opened first.
class ContinuationTable {
 public:
    static constexpr std::size_t kOpenCalls = 65'536;

    /// 0 for a call without earlier legs.
    std::int32_t Seconds(std::int32_t call) const;
    void Add(std::int32_t call, std::int32_t seconds);
    void Reset(std::int32_t call);

 private:
    struct OpenCall {
        std::int32_t call;
        std::int32_t seconds;
    };
    std::list<OpenCall> calls_;  // in the order of their first legs
    std::unordered_map<std::int32_t, std::list<OpenCall>::iterator> by_call_;
};

}  // namespace vintrel::exchanges::ip_office
