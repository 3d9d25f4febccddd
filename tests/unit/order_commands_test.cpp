// Orders that the host transmits itself: one line per command.
#include <gtest/gtest.h>

#include "order_fakes.h"
#include "printing.h"
#include "tx/guests.h"
#include "tx/wake_up.h"

namespace vintrel::tx {
namespace {

using testing::OrderBench;
using testing::Shown;

TEST(WakeUpCommand, IsWhatTheModelExpects) {
    const struct {
        int line;
        std::u16string type;
        std::int32_t room;
        std::u16string time, date;
        std::int16_t mode;
        std::string command;
    } cases[] = {
        {__LINE__, u"TYPE10001", 123, u"0730", u"1511", 0, "<STX>070012307301<ETX>"},
        {__LINE__, u"type10002", 5, u"0630", u"1511", 1, "<STX>070000506301<ETX>"},
        {__LINE__, u"TYPE10007", 123456, u"0630", u"1511", 7, "<STX>0712345606301<ETX>"},
        {__LINE__, u"TYPE10004", 204, u"0715", u"1511", 0, "h6<TAB>204<TAB>1<TAB>0715<CR>"},
        {__LINE__, u"TYPE10006", 204, u"0715", u"1511", 1, "h6<TAB>204<TAB>0<TAB>0715<CR>"},
        {__LINE__, u"TYPE10016", 204, u"715", u"1511", 2, "h6<TAB>204<TAB>2<TAB>715<CR>"},
        {__LINE__, u"TYPE10014", 204, u"0715", u"1511", 3, ""},
        {__LINE__, u"TYPE10008", 204, u"0715", u"1511", -1, ""},
        {__LINE__, u"TYPE12000", 123, u"0730", u"1511", 0, "<STX>WR|RN123|DA261115|TI073000|<ETX>"},
        {__LINE__, u"TYPE12000", 123, u"0730", u"0101", 1, "<STX>WC|RN123|DA260101|TI073000|<ETX>"},
        {__LINE__, u"TYPE12000", 123, u"0730", u"----", 0, "<STX>WR|RN123|TI073000|<ETX>"},
        {__LINE__, u"TYPE12000", 123, u"0730", u"1511", 2, ""},
        {__LINE__, u"TYPE10003", 123, u"0730", u"1511", 0, ""},
        {__LINE__, u"TYPE10017", 123, u"0730", u"1511", 0, ""},
    };
    OrderBench bench;
    for (auto row : cases) {
        const std::u16string answer = ComEventClockTX(row.type, row.room, row.time, row.date, row.mode, 0,
                                                      bench.message, bench.clock, bench.exchanges);
        EXPECT_EQ(Shown(answer), row.command) << "case in line " << row.line;
    }
    EXPECT_TRUE(bench.message.texts.empty());
}

TEST(GuestCommand, IsWhatTheModelExpects) {
    const struct {
        std::u16string type;
        std::int32_t room;
        std::u16string name;
        std::int16_t language;
        std::string expected;  ///< check-in, check-out and name
    } cases[] = {
        {u"TYPE10001", 123, u" Rossi ", 0, "<STX>040012311<ETX> <STX>040012322<ETX> <STX>0600123 Rossi <ETX>"},
        {u"TYPE10001", 123456, u"", 0, "<STX>0412345611<ETX> <STX>0412345622<ETX> <STX>06123456<ETX>"},
        {u"TYPE10002", 305, u"   ", 0, "<STX>040030511<ETX> <STX>040030522<ETX> <STX>0600305305<ETX>"},
        {u"TYPE10007", 305, u"   ", 0, "<STX>040030511<ETX> <STX>040030522<ETX> <STX>0600305   <ETX>"},
        {u"TYPE10004", 204, u"Xi", 0, "h5<TAB>204<TAB>1<CR> h5<TAB>204<TAB>0<CR> h4<TAB>204<TAB>Xi<CR>"},
        {u"TYPE10016", 204, u"  ", 0, "h5<TAB>204<TAB>1<CR> h5<TAB>204<TAB>0<CR> h4<TAB>204<TAB>  <CR>"},
        {u"TYPE12000", 101, u" Xi ", 1, "<STX>GI|RN101|GNXi|GLIT|<ETX> <STX>GO|RN101|<ETX> <STX>GC|RN101|GNXi|<ETX>"},
        {u"TYPE12000", 101, u"", 9, "<STX>GI|RN101|<ETX> <STX>GO|RN101|<ETX> <STX>GC|RN101|GN|<ETX>"},
        {u"TYPE10018", 101, u"Rossi", 0, "  "},
    };
    OrderBench bench;
    for (auto row : cases) {
        server::InOutText name(row.name);
        const std::u16string in =
            ComEventCheckInTX(row.type, row.room, name.View(), row.language, 0, bench.message, bench.exchanges);
        const std::u16string out = ComEventCheckOutTX(row.type, row.room, 0, bench.message, bench.exchanges);
        const std::u16string renamed = ComEventUserNameTX(row.type, row.room, name, bench.message, bench.exchanges);
        EXPECT_EQ(Shown(in) + " " + Shown(out) + " " + Shown(renamed), row.expected);
        EXPECT_FALSE(name.Replaced()) << row.expected;
    }
    EXPECT_TRUE(bench.message.texts.empty());
}

TEST(GuestCommand, ReplacesAnEmptyOrNumericMitelNameInTheCallersVariable) {
    OrderBench bench;
    for (const std::u16string_view given : {u"", u" ", u"12", u" 1,5 "}) {
        std::u16string type = u"TYPE10008";
        server::InOutText name(given);
        EXPECT_EQ(Shown(ComEventUserNameTX(type, 204, name, bench.message, bench.exchanges)),
                  "h4<TAB>204<TAB>I204<CR>");
        EXPECT_EQ(Shown(name.View()), "I204");
        EXPECT_TRUE(name.Replaced());
    }
}

TEST(Order, OfAnUnknownModelIsReportedUnderItsName) {
    OrderBench bench;
    std::u16string type = u"type10099";
    server::InOutText name(u"Rossi");
    EXPECT_EQ(ComEventClockTX(type, 1, u"0730", u"1511", 0, 0, bench.message, bench.clock, bench.exchanges), u"");
    EXPECT_EQ(ComEventCheckInTX(type, 1, u"Rossi", 0, 1, bench.message, bench.exchanges), u"");
    EXPECT_EQ(ComEventCheckOutTX(type, 1, 1, bench.message, bench.exchanges), u"");
    EXPECT_EQ(ComEventUserNameTX(type, 1, name, bench.message, bench.exchanges), u"");
    const std::vector<std::u16string> reports{u"ComEventClockTX: FATAL ERROR !", u"ComEventCheckInTX: FATAL ERROR !",
                                              u"ComEventCheckOutTX: FATAL ERROR !",
                                              u"ComEventUserNameTX: FATAL ERROR !"};
    EXPECT_EQ(bench.message.texts, reports);
    EXPECT_EQ(type, u"TYPE10099");
}

}  // namespace
}  // namespace vintrel::tx
