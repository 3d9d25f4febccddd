// The examples of docs/frames.md and docs/call-records.md are what the server does.
#include <fstream>
#include <functional>

#include "call_records.h"
#include "server/received_frames.h"

namespace vintrel::server {
namespace {

/// "kind: form" as the page writes it, asked in the page's order.
std::string KindAndForm(std::u16string code, const std::u16string& frame) {
    testing::TestServer server;
    server.Ini(u"ROOMSTATUS_NOTCLEAN", u"dst_cdpn") = u"91";
    server.Ini(u"WAKEUP_RESPONSE", u"h323") = u"Hotel";
    server.Initialize(u"TYPE10012");
    const TypeCode type(code);
    const auto form = [&](auto conversion) {
        return testing::Shown(conversion(type, frame, server.exchanges, server.message));
    };
    if (GetComIsRoomAlarm(type, frame, server.exchanges) == 1) return "room alarm: " + form(GetComConvertRoomAlarmRX);
    if (GetComIsRoomState(type, frame, server.exchanges) == 1) return "room state: " + form(GetComConvertRoomStateRX);
    if (GetComIsConfirmClock(type, frame, server.exchanges) != 0)
        return "wake-up confirmation: " + form(GetComConvertConfirmClockRX);
    if (GetComIsSetClock(type, frame, server.exchanges) == 1) return "set-clock: " + form(GetComConvertSetClockRX);
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
}  // namespace vintrel::server
