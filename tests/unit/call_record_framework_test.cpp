#include <map>

#include "call_records.h"
#include "cdr/date_time.h"

namespace vintrel::cdr {
namespace {

using testing::Link;
using testing::Shown;

TEST(GdvRecord, AValueThatDoesNotFitLeavesTheSlotAlone) {
    GdvRecord gdv;
    Assign<kUser>(gdv, u"00101");
    Assign<kUser>(gdv, u"123456");
    Assign<kUser>(gdv, server::ZeroPad(u"123456", 5));
    EXPECT_EQ(gdv.Slot<kUser>(), u"00101");
    Assign<kUser>(gdv, u"");
    EXPECT_EQ(gdv.Slot<kUser>(), u"");
}

TEST(GdvRecord, NumbersArePaddedInTheirDecimalForm) {
    for (const auto& [value, text] : {std::pair(0.0, "00000"),
                                      {345, "00345"},
                                      {99999, "99999"},
                                      {100000, ""},
                                      {12.5, "012.5"},
                                      {-7, "000-7"},
                                      {1e20, "1E+20"},
                                      {0.000012345, ""}}) {
        GdvRecord gdv;
        AssignNumber<kDurationS>(gdv, value);
        EXPECT_EQ(Shown(gdv.Slot<kDurationS>()), text) << value;
    }
}

TEST(GdvRecord, SecondsAreReadFromTheEndsOfTheText) {
    EXPECT_EQ(HoursMinutesSecondsToSeconds(u"010203"), 3723);
    EXPECT_EQ(HoursMinutesSecondsToSeconds(u"xx02y3"), 120);
    EXPECT_EQ(HoursMinutesSecondsToSeconds(u"0102"), 3600 + 120 + 2) << "the last two characters are the seconds";
    EXPECT_EQ(HoursMinutesSecondsToSeconds(u""), 0);
}

TEST(GdvRecord, ReplacingVisitsAsManyPositionsAsTheTrimmedTextHas) {
    GdvRecord gdv;
    for (const auto& [text, replaced] : std::map<std::u16string, const char*>{
             {u"1.2.", "1 2 "}, {u"  1.2.", "  1 2."}, {u"1.2..6789.123456", "1 2  6789 123456"}}) {
        AssignReplaced<kNumber>(gdv, text, u'.', u' ');
        EXPECT_EQ(Shown(gdv.Slot<kNumber>()), replaced);
    }
}

TEST(ReferenceTable, HoldsAtMost512AndFreesOneSlotPerRemoval) {
    ReferenceTable table;
    EXPECT_FALSE(table.Add(u"  "));
    for (std::size_t i = 0; i < ReferenceTable::kSlots; ++i) EXPECT_TRUE(table.Add(std::u16string(i / 2 + 1, u'r')));
    EXPECT_FALSE(table.Add(u"one more"));
    EXPECT_TRUE(table.Remove(u"rr"));
    EXPECT_TRUE(table.Find(u"rr")) << "it was held twice";
    EXPECT_TRUE(table.Remove(u"rr"));
    EXPECT_FALSE(table.Remove(u"rr"));
    EXPECT_TRUE(table.Add(u"one more"));
    EXPECT_TRUE(table.Find(u"one more"));
}

TEST(DateTime, RoundTripsOverLeapYearsAndRefusesWhatDoesNotExist) {
    using server::DateTime;
    const DateTime leap_end{.year = 2024, .month = 2, .day = 29, .hour = 23, .minute = 59, .second = 59};
    EXPECT_EQ(SecondsOf(leap_end), 1709251199);
    EXPECT_EQ(DateTimeOf(1709251199), leap_end);
    EXPECT_EQ(DateTimeOf(1709251200), (DateTime{.year = 2024, .month = 3, .day = 1}));
    EXPECT_EQ(DateTimeOf(-86400), (DateTime{.year = 1969, .month = 12, .day = 31}));
    EXPECT_EQ(SecondsOf({.year = 2023, .month = 2, .day = 29}), std::nullopt);
    EXPECT_EQ(SecondsOf({.year = 2024, .month = 1, .day = 1, .hour = 24}), std::nullopt);
}

TEST(GdvFilter, RealClockLenUpperCasesTheCallersCode) {
    testing::FakeMessage message;
    std::u16string type = u"type10012";
    EXPECT_EQ(GetGdvRealClockLen(type, message), 9999);
    EXPECT_EQ(Shown(type), "TYPE10012");
    EXPECT_EQ(GetGdvRealClockLen(type = u"TYPE10005", message), 0);
    EXPECT_TRUE(message.texts.empty());
    EXPECT_EQ(GetGdvRealClockLen(type = u"TYPE99999", message), 0);
    EXPECT_EQ(message.texts, std::vector<std::u16string>{u"GetGdvRealClockLen: FATAL ERROR !"});
}

TEST(GetComConvertStringRX, ALowerCaseCodeIsUnknown) {
    Link link(u"type10004");
    EXPECT_EQ(link.Raw(u"any"), u"");
    EXPECT_EQ(link.caller_text, u"any");
    EXPECT_EQ(link.message.texts, std::vector<std::u16string>{u"GetComConvertStringRX: FATAL ERROR !"});
    EXPECT_EQ(link.message.titles, std::vector<std::u16string>{u"QUINDARA PABX COM SERVER   0"});
}

}  // namespace
}  // namespace vintrel::cdr
