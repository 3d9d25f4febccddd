// Orders that the host transmits itself: one line per command.
#include <gtest/gtest.h>

#include "order_fakes.h"

namespace vintrel::tx {
namespace {

using testing::OrderBench;
using testing::Shown;

TEST(WakeUpCommand, IsWhatTheModelExpects) {
    const struct {
        const char16_t* type;
        WakeUpOrder order;
        std::string command;
    } cases[] = {
        {u"TYPE10001", {123, u"0730", u"1511", 0}, "<STX>070012307301<ETX>"},
        {u"type10002", {5, u"0630", u"1511", 1}, "<STX>070000506301<ETX>"},
        {u"TYPE10007", {123456, u"0630", u"1511", 7}, "<STX>0712345606301<ETX>"},
        {u"TYPE10004", {204, u"0715", u"1511", 0}, "h6<TAB>204<TAB>1<TAB>0715<CR>"},
        {u"TYPE10006", {204, u"0715", u"1511", 1}, "h6<TAB>204<TAB>0<TAB>0715<CR>"},
        {u"TYPE10016", {204, u"715", u"1511", 2}, "h6<TAB>204<TAB>2<TAB>715<CR>"},
        {u"TYPE10014", {204, u"0715", u"1511", 3}, ""},
        {u"TYPE10008", {204, u"0715", u"1511", -1}, ""},
        {u"TYPE12000", {123, u"0730", u"1511", 0}, "<STX>WR|RN123|DA261115|TI073000|<ETX>"},
        {u"TYPE12000", {123, u"0730", u"0101", 1}, "<STX>WC|RN123|DA260101|TI073000|<ETX>"},
        {u"TYPE12000", {123, u"0730", u"----", 0}, "<STX>WR|RN123|TI073000|<ETX>"},
        {u"TYPE12000", {123, u"0730", u"1511", 2}, ""},
        {u"TYPE10003", {123, u"0730", u"1511", 0}, ""},
        {u"TYPE10017", {123, u"0730", u"1511", 0}, ""},
    };
    OrderBench bench;
    for (const auto& [type, order, command] : cases)
        EXPECT_EQ(bench.WakeUp(type, order), command) << Shown(type) << " mode " << order.mode;
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
    for (const auto& [type, room, name, language, expected] : cases) {
        const std::string in = bench.CheckIn(type, name, language, false, room);
        const std::string out = bench.CheckOut(type, false, room);
        EXPECT_EQ(in + " " + out + " " + bench.UserName(type, name, room), expected);
        EXPECT_EQ(bench.caller_name, name);
    }
    EXPECT_TRUE(bench.message.texts.empty());
}

TEST(GuestCommand, ReplacesAnEmptyOrNumericMitelNameInTheCallersVariable) {
    OrderBench bench;
    for (const std::u16string_view given : {u"", u" ", u"12", u" 1,5 "}) {
        EXPECT_EQ(bench.UserName(u"TYPE10008", given), "h4<TAB>204<TAB>I204<CR>");
        EXPECT_EQ(Shown(bench.caller_name), "I204");
    }
}

TEST(Order, OfAnUnknownModelIsReportedUnderItsName) {
    OrderBench bench;
    std::u16string type = u"type10099";
    server::InOutText name(u"Rossi");
    EXPECT_EQ(ComEventUserNameTX(type, 1, name, bench.message, bench.exchanges), u"");
    EXPECT_EQ(type, u"TYPE10099");
    EXPECT_FALSE(name.Replaced());
    for (const std::string& answer : {bench.WakeUp(type, {}), bench.CheckIn(type, u"Rossi"), bench.CheckOut(type)})
        EXPECT_EQ(answer, "");
    std::u16string reports;
    for (const std::u16string& text : bench.message.texts) reports += text;
    EXPECT_EQ(Shown(reports),
              "ComEventUserNameTX: FATAL ERROR !ComEventClockTX: FATAL ERROR !"
              "ComEventCheckInTX: FATAL ERROR !ComEventCheckOutTX: FATAL ERROR !");
}

}  // namespace
}  // namespace vintrel::tx
