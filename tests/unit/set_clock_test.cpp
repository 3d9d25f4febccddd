#include "rx/set_clock.h"

#include <gtest/gtest.h>

#include "fakes.h"
#include "printing.h"

namespace vintrel::rx {
namespace {

using server::DateTime;
using server::TypeCode;
using testing::FakeClock;
using testing::FakeMessage;
using testing::Raw;
using testing::Shown;

/// The host's string, with "~" for its fourteen blanks.
std::string Convert(std::u16string_view type, std::string_view frame, const server::Clock& clock,
                    FakeMessage& message) {
    const std::string filler(14, ' ');
    std::u16string code(type);
    std::string shown = Shown(GetComConvertSetClockRX(TypeCode(code), Raw(frame), clock, message));
    const std::size_t at = shown.find(filler);
    return at == std::string::npos ? shown : shown.replace(at, filler.size(), "~");
}

constexpr DateTime kNoon{.year = 2026, .month = 11, .day = 15, .hour = 12, .minute = 0, .second = 59};

DateTime At(int year, int month, int day, int hour, int minute) {
    return {.year = year, .month = month, .day = day, .hour = hour, .minute = minute, .second = 30};
}

TEST(SetClockConversion, DatesAGuestsWakeUpCallAtTheNextTimeTheClockShowsIt) {
    const struct {
        int line;
        DateTime now;
        const char *frame, *converted;
    } rows[] = {
        {__LINE__, At(2026, 11, 15, 6, 0), "<STX>080012307301<ETX>", "<STX>0800123107301511~<ETX>"},
        {__LINE__, At(2026, 11, 15, 8, 0), "<STX>080012307301<ETX>", "<STX>0800123107301611~<ETX>"},
        {__LINE__, At(2026, 11, 15, 7, 31), "<STX>080012307301<ETX>", "<STX>0800123107301611~<ETX>"},
        {__LINE__, At(2026, 12, 31, 22, 0), "<STX>080012306301<ETX>", "<STX>0800123106300101~<ETX>"},
        {__LINE__, At(2028, 2, 28, 9, 0), "<STX>080012307301<ETX>", "<STX>0800123107302902~<ETX>"},
        {__LINE__, At(2028, 2, 29, 9, 0), "<STX>080012307301<ETX>", "<STX>0800123107300103~<ETX>"},
        {__LINE__, At(2026, 2, 28, 9, 0), "<STX>080012307301<ETX>", "<STX>0800123107300103~<ETX>"},
        // Cleared, another mode, no such time: no date, and the filler moves left.
        {__LINE__, kNoon, "<STX>080012307302<ETX>", "<STX>080012320730----~<ETX>"},
        {__LINE__, kNoon, "<STX>080012307303<ETX>", "<STX>080012330730~<ETX>"},
        {__LINE__, kNoon, "<STX>0800123073x1<ETX>", "<STX>08001231073x~<ETX>"},
        {__LINE__, kNoon, "", "<STX>~<ETX>"},
    };
    FakeClock clock;
    FakeMessage message;
    for (const auto& row : rows) {
        clock.now = row.now;
        for (const auto* type : {u"TYPE10001", u"TYPE10002", u"type10007"})
            EXPECT_EQ(Convert(type, row.frame, clock, message), row.converted) << "line " << row.line;
    }
    EXPECT_TRUE(message.texts.empty());
}

TEST(SetClockConversion, ReadsTheFieldsOfAFiasRecord) {
    const struct {
        int line;
        const char *frame, *converted;
    } rows[] = {
        {__LINE__, "<STX>WR|RN123|DA261115|TI073000|<ETX>", "<STX>0800123107301511~<ETX>"},
        {__LINE__, "<STX>WC|TI073000|DA261115|RN123|<ETX>", "<STX>0800123207301511~<ETX>"},
        {__LINE__, "<STX>WR|RN123|TI073000|<ETX>", "<STX>080012310730----~<ETX>"},
        {__LINE__, "<STX>WR|RN123|DA261115|<ETX>", "<STX>08001231XXXX1511~<ETX>"},
        {__LINE__, "<STX>WR|RN0330|WC|DA261115|TI073000|<ETX>", "<STX>0800330207301511~<ETX>"},  // the later test
        // The room: a number, "00000" without one, left out when it does not fit.
        {__LINE__, "<STX>WR|DA261115|TI073000|<ETX>", "<STX>0800000107301511~<ETX>"},
        {__LINE__, "<STX>WR|RN123456|DA261115|TI073000|<ETX>", "<STX>08107301511~<ETX>"},
        // A last field that no "|" follows.
        {__LINE__, "<STX>WR|RN123|DA261115|TI073000<ETX>", "<STX>080012311511~<ETX>"},
        {__LINE__, "<STX>WR|TI073000|RN123|DA261115<ETX>", "<STX>080012310730~<ETX>"},
        // Cleared without a date: the next time at which the minutes are the hours (now it is 12:00).
        {__LINE__, "<STX>WC|RN123|TI301100|<ETX>", "<STX>0800123230111611~<ETX>"},
        {__LINE__, "<STX>WC|RN123|TI301300|<ETX>", "<STX>0800123230131511~<ETX>"},
        {__LINE__, "<STX>WC|RN123|TI073000|<ETX>", "<STX>080012320730~<ETX>"},
        {__LINE__, "<STX>WC|RN0330|ST1<ETX>", "<STX>08003302XXXX~<ETX>"},
        {__LINE__, "", "<STX>00000XXXX~<ETX>"},
    };
    FakeClock clock;
    clock.now = kNoon;
    FakeMessage message;
    for (const auto& row : rows)
        EXPECT_EQ(Convert(u"TYPE12000", row.frame, clock, message), row.converted) << "line " << row.line;
}

TEST(SetClockConversion, IsEmptyForModelsThatReportNoSettingsAndReportsAnUnknownCode) {
    const FakeClock clock;
    FakeMessage message;
    EXPECT_EQ(Convert(u"TYPE10015", "<STX>080012307301<ETX>", clock, message), "");
    EXPECT_TRUE(message.texts.empty());
    EXPECT_EQ(Convert(u"TYPE99999", "<STX>080012307301<ETX>", clock, message), "");
    EXPECT_EQ(message.texts, std::vector<std::u16string>{u"GetComConvertSetClockRX: FATAL ERROR !"});
}

}  // namespace
}  // namespace vintrel::rx
