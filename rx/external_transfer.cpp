#include "rx/external_transfer.h"

#include <cstdlib>
#include <optional>

#include "rx/time_of_day.h"
#include "server/catalogue.h"
#include "server/text.h"

namespace vintrel::rx {
namespace {

using namespace server;

struct Limits {
    std::int32_t milliseconds;  ///< how long a leg waits for its other half
    int minutes;                ///< how far the times may differ
    std::int64_t duration;      ///< how far the durations may differ, in the units of the records
};

constexpr std::int32_t kUnknownTypeMilliseconds = 5000;

// columns: wait  minutes  duration
constexpr PerModel<Limits> kLimits{{
    {Model::Type10001, {5000, 1, 2}}, {Model::Type10002, {5000, 1, 2}}, {Model::Type10003, {5000, 1, 2}},
    {Model::Type10004, {5000, 2, 3}}, {Model::Type10005, {5000, 2, 3}}, {Model::Type10006, {5000, 2, 3}},
    {Model::Type10007, {5000, 1, 2}}, {Model::Type10008, {5000, 2, 3}}, {Model::Type10009, {5000, 1, 2}},
    {Model::Type10010, {5000, 1, 2}}, {Model::Type10011, {4000, 2, 3}}, {Model::Type10012, {4000, 1, 2}},
    {Model::Type10013, {5000, 1, 2}}, {Model::Type10014, {4000, 2, 3}}, {Model::Type10015, {4000, 2, 3}},
    {Model::Type10016, {4000, 2, 3}}, {Model::Type10017, {4000, 2, 3}}, {Model::Type10018, {5000, 2, 3}},
    {Model::Type10019, {4000, 2, 3}}, {Model::Type10020, {4000, 2, 3}}, {Model::Type12000, {5000, 1, 2}},
}};

/// "hh:mm", or "hh" alone for the full hour.
std::optional<int> ReadTime(std::u16string_view time) {
    const std::size_t colon = time.find(u':');
    if (colon == std::u16string_view::npos) return MinuteOfDay(time, u"0");
    return MinuteOfDay(time.substr(0, colon), time.substr(colon + 1));
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
                                    std::u16string_view type, PendingLeg& leg, const Clock& clock, MessageLoop& loop) {
    const std::uint64_t now = clock.Milliseconds();
    if (now >= leg.expires_at) leg.Clear();

    const std::optional<Model> model = FindModel(type);
    const std::int32_t wait = model ? kLimits[*model].milliseconds : kUnknownTypeMilliseconds;
    loop.StartTimer(Timer::CheckExtTranfertTimer, wait, [&leg] { leg.Clear(); });

    const auto compares = [&](std::ptrdiff_t position) { return Mid(condition, position, 1) == u"1"; };
    const auto completes_the_leg = [&] {
        if (Trim(leg.ExtTransferDirection).empty() || !model) return false;
        if (compares(1) && user != leg.ExtTransferUser) return false;
        if (compares(2) && date != leg.ExtTransferDate) return false;
        if (compares(3) && !TimesAgree(leg.ExtTransferTime, time, kLimits[*model].minutes)) return false;
        if (compares(4) && !DurationsAgree(leg.ExtTransferDuration, duration, kLimits[*model].duration)) return false;
        return direction != leg.ExtTransferDirection;
    };
    if (completes_the_leg()) {
        loop.StopTimer(Timer::CheckExtTranfertTimer);
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

}  // namespace vintrel::rx
