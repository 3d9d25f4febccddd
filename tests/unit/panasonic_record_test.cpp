#include "call_records.h"

namespace vintrel::cdr {
namespace {

using testing::ExpectFields;
using testing::Link;
using testing::With;

const std::u16string kPanasonicCall =
    With(std::u16string(120, u' '), {{1, u"04/03/24 08:02     301 0001 0049-89-1234"}, {85, u"00:03'12 EUR00012.40"}}) +
    u"\r\n";

TEST(PanasonicRecord, ReadsItsColumnsAndMarks) {
    ExpectFields(
        Link(u"TYPE10019"), kPanasonicCall,
        {{__LINE__, {}, "00001 00301 0049 89 1234 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
         {__LINE__, {{117, u"TR  "}}, "00001 00301 0049 89 1234 0000 0/0/3 0012 00192 04.03.24 08:02 -"},
         {__LINE__, {{117, u"NA  "}}, "00001 00301 0049 89 1234 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
         {__LINE__, {{29, u"<I>0327771100"}}, "00001 00301 0327771100 0000 0/0/0 0012 00192 04.03.24 08:02 -"},
         {__LINE__,
          {{29, u"<I>0327771100"}, {117, u"TR  "}},
          "00001 00301 0327771100 0000 0/0/2 0012 00192 04.03.24 08:02 -"},
         {__LINE__,
          {{29, u"<I>0327771100"}, {117, u"NA  "}},
          "00001 00301 0327771100 0000 0/0/7 0012 00192 04.03.24 08:02 -"},
         {__LINE__,
          {{29, u"<I>0327771100"}, {111, u"TR  \r\nNA  "}},
          "00001 00301 0327771100 0000 0/0/7 0012 00192 04.03.24 08:02 -"},
         {__LINE__, {{29, u"<D>204<I>0756405412"}}, "00001 00301 0756405412 0000 0/0/0 0012 00192 04.03.24 08:02 204"},
         {__LINE__,
          {{29, u"<D>12345678901234567<I>07"}},
          "00001 00301 07 0000 0/0/0 0012 00192 04.03.24 08:02 1234567890123456"},
         {__LINE__, {{50, u"check out"}}, "rejected"},
         {__LINE__, {{50, u"Check In"}}, "rejected"},
         {__LINE__, {{50, u"Timed Reminder/Start"}}, "rejected"},
         {__LINE__, {{50, u"CLEANED UP"}}, "rejected"},
         {__LINE__, {{50, u"Not cleaned"}}, "00001 00301 0049 89 1234 0000 0/0/1 0012 00192 04.03.24 08:02 -"},
         {__LINE__, {{117, u"CD  "}}, "rejected"},
         {__LINE__, {{117, u"----"}}, "rejected"}});
}

TEST(PanasonicRecord, WithoutItsMarksReadsFromTheBeginning) {
    Link link(u"TYPE10018");
    EXPECT_EQ(link.Convert(With(kPanasonicCall, {{87, u"."}})),
              "00001 00301 0049 89 1234 0000 0/0/1 0012 14583 04.03.24 08:02 -")
        << "no colon: minutes 04 and seconds 03 are evaluated as 04h 03m 03s";
    EXPECT_EQ(link.Convert(With(kPanasonicCall, {{94, u"CHF"}, {3, u"00034"}})),
              "00001 00301 0049 89 1234 0000 0/0/1 0034 00192 04.00.44 08:02 -")
        << "no currency: the units are read at position 3";
}

}  // namespace
}  // namespace vintrel::cdr
