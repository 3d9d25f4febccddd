// The examples of docs/frames.md are what the server does.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "fakes.h"
#include "printing.h"
#include "rx/room_events.h"
#include "rx/set_clock.h"
#include "rx/wake_up_events.h"

namespace vintrel::rx {
namespace {

using server::TypeCode;

/// "kind: form" as the page writes it, asked in the page's order.
std::string KindAndForm(std::u16string code, std::u16string_view frame) {
    server::Settings settings;
    settings.RoomStatusNotCleanCdpn = u"91";
    settings.WakeupResponseH323 = u"Hotel";
    const testing::FakeClock clock;
    testing::FakeMessage message;
    const TypeCode type(code);
    if (GetComIsRoomAlarm(type, frame, settings) == 1)
        return "room alarm: " + testing::Shown(GetComConvertRoomAlarmRX(type, frame, settings, message));
    if (GetComIsRoomState(type, frame, settings) == 1)
        return "room state: " + testing::Shown(GetComConvertRoomStateRX(type, frame, settings, message));
    if (GetComIsConfirmClock(type, frame, settings) != 0)
        return "wake-up confirmation: " + testing::Shown(GetComConvertConfirmClockRX(type, frame, settings, message));
    if (GetComIsSetClock(type, frame) == 1)
        return "set-clock: " + testing::Shown(GetComConvertSetClockRX(type, frame, clock, message));
    return "other";
}

TEST(FramesPage, ShowsWhatTheServerDoes) {
    const std::string fence = "```frames ";
    std::ifstream page(std::filesystem::path(VINTREL_SOURCE_DIR) / "docs/frames.md");
    int examples = 0;
    for (std::string line; std::getline(page, line);) {
        if (!line.starts_with(fence)) continue;
        const std::u16string code(line.begin() + static_cast<std::ptrdiff_t>(fence.size()), line.end());
        for (std::string expected; std::getline(page, line) && line != "```" && std::getline(page, expected);
             ++examples)
            EXPECT_EQ(KindAndForm(code, testing::Raw(line)), expected) << line;
    }
    EXPECT_GE(examples, 20);
}

}  // namespace
}  // namespace vintrel::rx
