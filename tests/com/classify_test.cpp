// "vintrel-host classify" over the samples: every frame named right, in its form for the host.
#include <gtest/gtest.h>

#include <cstdio>

#include "host_program.h"

namespace vintrel::testing {
namespace {

/// "kind|form" of every line of the CSV output, without the frames themselves. No form here has a comma.
std::vector<std::string> KindsAndForms(const HostRun& run) {
    std::vector<std::string> shown;
    for (const std::string& line : run.lines) {
        const std::size_t kind = line.find(',') + 1;
        const std::size_t form = line.find(',', kind) + 1;
        shown.push_back(line.substr(kind, form - kind - 1) + "|" + line.substr(form, line.find(',', form) - form));
    }
    if (!shown.empty()) shown.erase(shown.begin());  // the heading
    return shown;
}

using Expected = std::vector<std::string>;

const std::string kFiller(14, ' ');

TEST(Classify, NamesTheRecordsOfAFiasSession) {
    const HostRun run = RunHost(L"classify --model TYPE12000 --format csv samples\\fias_session.txt");
    EXPECT_EQ(run.exit_code, 0U);
    EXPECT_EQ(
        KindsAndForms(run),
        (Expected{
            "other|", "other|", "other|", "other|", "other|", "other|", "other|", "login|", "other|",
            "room state|<STX>080210400221<ETX>", "room state|<STX>080210500111<ETX>",
            "room state|<STX>080000700111<ETX>", "room alarm|<STX>080210600331<ETX>", "other|",
            "room state|<STX>080000000111<ETX>",
            // The guest's wake-up calls: 15 November, without a date, without date and time, cleared twice.
            "set-clock|<STX>0802104107301511" + kFiller + "<ETX>",
            "set-clock|<STX>080033010615----" + kFiller + "<ETX>", "set-clock|<STX>08021051" + kFiller + "<ETX>",
            "set-clock|<STX>0802104207301511" + kFiller + "<ETX>", "set-clock|<STX>08003302XXXX" + kFiller + "<ETX>",
            "wake-up confirmation|<STX>07021041<ETX>", "wake-up confirmation|<STX>07021052<ETX>",
            "wake-up confirmation|<STX>07021060<ETX>",
            "call record|<STX>00001021040041448001122   00000010014003121511260815" + std::string(33, ' ') + "<ETX>",
            "other|", "other|"}));
}

TEST(Classify, NamesTheFramesOfAMitelHotelLink) {
    const HostRun run = RunHost(L"classify --model type10016 --format csv samples\\mitel_hotel.txt");
    EXPECT_EQ(run.exit_code, 0U);
    EXPECT_EQ(KindsAndForms(run),
              (Expected{"login|", "room state|<STX>080020400111<ETX>", "room state|<STX>080020500221<ETX>",
                        "room alarm|<STX>080011700331<ETX>", "wake-up confirmation|<STX>07002041<ETX>", "other|",
                        "room state|<STX>080031200111<ETX>",
                        "call record|<STX>00001  3010041448001122   00000010012001921511260800" + std::string(33, ' ') +
                            "<ETX>",
                        "other|", "login|", "room state|<STX>080011800221<ETX>"}));
}

/// "ddmm" of the day on which the local clock next shows 07:30.
std::string NextHalfPastSeven() {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    if (now.wHour * 60 + now.wMinute > 7 * 60 + 30) {
        constexpr ULONGLONG kDay = 24ULL * 60 * 60 * 10'000'000;
        FILETIME file_time = {};
        SystemTimeToFileTime(&now, &file_time);
        ULARGE_INTEGER ticks = {{file_time.dwLowDateTime, file_time.dwHighDateTime}};
        ticks.QuadPart += kDay;
        file_time = {ticks.LowPart, ticks.HighPart};
        FileTimeToSystemTime(&file_time, &now);
    }
    char text[16];
    std::snprintf(text, sizeof text, "%02d%02d", now.wDay, now.wMonth);
    return text;
}

TEST(Classify, DatesAWakeUpCallSetOnTheTelephoneByTheClock) {
    const auto setting_on = [](const std::string& date) {
        return "set-clock|<STX>0800201" + std::string("10730") + date + kFiller + "<ETX>";
    };
    const std::string before = NextHalfPastSeven();
    const std::vector<std::string> shown =
        KindsAndForms(RunHost(L"classify --model TYPE10001 --format csv samples\\avaya_integral.txt"));
    const std::string after = NextHalfPastSeven();  // another day when 07:30 or midnight has just passed
    ASSERT_GE(shown.size(), 5U);
    const std::vector<std::string> last(shown.end() - 5, shown.end());
    EXPECT_EQ(last[0], "room state|<STX>080020100111<ETX>");
    EXPECT_EQ(last[2], "room alarm|<STX>080020300331<ETX>");
    EXPECT_TRUE(last[3] == setting_on(before) || last[3] == setting_on(after)) << last[3];
    EXPECT_EQ(last[4], "wake-up confirmation|<STX>07002011<ETX>");
}

}  // namespace
}  // namespace vintrel::testing
