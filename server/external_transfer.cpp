#include "server/external_transfer.h"

#include <cstdlib>
#include <optional>

#include "exchanges/catalogue.h"
#include "text/dates.h"
#include "text/text.h"

namespace vintrel::server {
namespace {

constexpr std::int32_t kUnknownTypeMilliseconds = 5000;

/// "hh:mm", or "hh" alone for the full hour.
std::optional<int> ReadTime(std::u16string_view time) {
    const std::size_t colon = time.find(u':');
    if (colon == std::u16string_view::npos) return text::MinuteOfDay(time, u"0");
    return text::MinuteOfDay(time.substr(0, colon), time.substr(colon + 1));
}

bool TimesAgree(std::u16string_view first, std::u16string_view second, int tolerance) {
    const std::optional<int> first_minute = ReadTime(first);
    const std::optional<int> second_minute = ReadTime(second);
    return first_minute && second_minute && std::abs(*first_minute - *second_minute) <= tolerance;
}

bool DurationsAgree(std::int64_t first, std::int64_t second, std::int64_t tolerance) {
    return std::abs(first - second) <= tolerance;
}

}  // namespace

std::int16_t CheckExternalTransfert(std::int32_t user, std::u16string_view date, std::u16string_view time,
                                    std::int32_t duration, std::u16string_view direction, std::u16string_view condition,
                                    std::u16string_view type, PendingLeg& leg, const platform::Clock& clock,
                                    platform::MessageLoop& loop) {
    const std::uint64_t now = clock.Milliseconds();
    if (now >= leg.expires_at) leg.Clear();

    const exchanges::Model* const model = exchanges::FindModel(type);
    const std::int32_t wait = model ? model->transfer.milliseconds : kUnknownTypeMilliseconds;
    loop.StartTimer(platform::Timer::CheckExtTranfertTimer, wait, [&leg] { leg.Clear(); });

    const auto compares = [&](std::ptrdiff_t position) { return text::Mid(condition, position, 1) == u"1"; };
    const auto completes_the_leg = [&] {
        if (text::Trim(leg.ExtTransferDirection).empty() || !model) return false;
        if (compares(1) && user != leg.ExtTransferUser) return false;
        if (compares(2) && date != leg.ExtTransferDate) return false;
        if (compares(3) && !TimesAgree(leg.ExtTransferTime, time, model->transfer.minutes)) return false;
        if (compares(4) && !DurationsAgree(leg.ExtTransferDuration, duration, model->transfer.duration)) return false;
        return direction != leg.ExtTransferDirection;
    };
    if (completes_the_leg()) {
        loop.StopTimer(platform::Timer::CheckExtTranfertTimer);
        leg.Clear();
        return 1;
    }
    leg.ExtTransferDirection = direction;
    leg.ExtTransferUser = user;
    leg.ExtTransferDate = date;
    leg.ExtTransferTime = time;
    leg.ExtTransferDuration = duration;
    leg.expires_at = now + static_cast<std::uint64_t>(wait);
    return 0;
}

}  // namespace vintrel::server
