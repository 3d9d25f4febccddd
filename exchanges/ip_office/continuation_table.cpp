#include "exchanges/ip_office/continuation_table.h"

#include <algorithm>
#include <limits>

namespace vintrel::exchanges::ip_office {

std::int32_t ContinuationTable::Seconds(std::int32_t call) const {
    const auto found = by_call_.find(call);
    return found == by_call_.end() ? 0 : found->second->seconds;
}

void ContinuationTable::Add(std::int32_t call, std::int32_t seconds) {
    if (const auto found = by_call_.find(call); found != by_call_.end()) {
        const std::int64_t sum = std::int64_t{found->second->seconds} + seconds;
        constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
        found->second->seconds = static_cast<std::int32_t>(std::clamp(sum, -kMost, kMost));
        return;
    }
    if (calls_.size() == kOpenCalls) Reset(calls_.front().call);
    calls_.push_back({call, seconds});
    by_call_.emplace(call, std::prev(calls_.end()));
}

void ContinuationTable::Reset(std::int32_t call) {
    const auto found = by_call_.find(call);
    if (found == by_call_.end()) return;
    calls_.erase(found->second);
    by_call_.erase(found);
}

}  // namespace vintrel::exchanges::ip_office
