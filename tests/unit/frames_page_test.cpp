// The examples of docs/frames.md and docs/call-records.md are what the server does.
#include <fstream>
#include <functional>

#include "call_records.h"
#include "rx/room_events.h"
#include "rx/set_clock.h"
#include "rx/wake_up_events.h"

namespace vintrel::rx {
namespace {

using server::TypeCode;

/// "kind: form" as the page writes it, asked in the page's order.
std::string KindAndForm(std::u16string code, const std::u16string& frame) {
    platform::Settings settings;
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

/// Compares every second line of the blocks that begin with such a fence with what becomes of the line before.
/// @return how many there are
int ExpectExamples(const char* page, const std::string& fence,
                   const std::function<std::string(std::u16string, std::u16string)>& shown) {
    std::ifstream file(std::string(VINTREL_SOURCE_DIR "/docs/") + page);
    int examples = 0;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(fence)) continue;
        const std::u16string code(line.begin() + static_cast<std::ptrdiff_t>(fence.size()), line.end());
        for (std::string expected; std::getline(file, line) && line != "```" && std::getline(file, expected);
             ++examples)
            EXPECT_EQ(shown(code, testing::Raw(line)), expected) << line;
    }
    return examples;
}

TEST(Pages, ShowWhatTheServerDoes) {
    EXPECT_GE(ExpectExamples("frames.md", "```frames ", KindAndForm), 20);
    const auto gdv = [](const std::u16string& code, const std::u16string& record) {
        return testing::Shown(testing::Link(code).Raw(record));
    };
    EXPECT_GE(ExpectExamples("call-records.md", "```gdv ", gdv), 9);
}

}  // namespace
}  // namespace vintrel::rx
