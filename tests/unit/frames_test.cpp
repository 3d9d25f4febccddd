// Received frames: which kind each is, and its form for the host.
#include <gtest/gtest.h>

#include <vector>

#include "allocations.h"
#include "printing.h"
#include "server/received_frames.h"
#include "test_server.h"

namespace vintrel::server {
namespace {

using testing::Raw;
using testing::Shown;
using text::DateTime;

const std::string kTrailer = "<FF><VT><ETX><CR><LF>";
const std::string kMitelCall = "01<FF>204<FF>310124<FF>0730<FF><FF><FF>";
const std::string kNoRoom = "<FF><FF>room<FF><FF>123456<FF><FF>";  // behind the first field

/// A server with the numbers that an innovaphone room calls.
struct Frames : ::testing::Test, testing::TestServer {
    Frames() {
        Ini(u"ROOMSTATUS_CLEAN", u"dst_cdpn") = u"90";
        Ini(u"ROOMSTATUS_NOTCLEAN", u"dst_cdpn") = u"91";
        Ini(u"ROOMSTATUS_CLEAN_OCCUPIED", u"dst_cdpn") = u"92";
        Ini(u"ROOMSTATUS_NOTCLEAN_OCCUPIED", u"dst_cdpn") = u"93";
        Ini(u"ROOMSTATUS_INSPECTED_OCCUPIED", u"dst_cdpn") = u"94";
        Ini(u"ROOMSTATUS_ALARM", u"dst_cdpn") = u"95";
        Ini(u"WAKEUP_RESPONSE", u"h323") = u"Hotel";
        Ini(u"WAKEUP_RESPONSE", u"Fallback") = u"299";
        Initialize(u"TYPE10012");
    }

    /// Asks an operation with a code of its own, as a host does.
    std::int16_t Ask(std::int16_t (*question)(TypeCode, std::u16string_view, const exchanges::Exchanges&),
                     std::u16string_view type, std::u16string_view frame) {
        std::u16string code(type);
        return question(code, frame, exchanges);
    }
    std::string Ask(std::u16string (*conversion)(TypeCode, std::u16string_view, const exchanges::Exchanges&,
                                                 platform::CriticalMessage&),
                    std::u16string_view type, std::u16string_view frame) {
        std::u16string code(type);
        return Shown(conversion(code, frame, exchanges, message));
    }
};

std::string MaidRecord(const std::string& dialled) {
    return "'7','','204','" + dialled + "','pms-status','\"Room 204\" <204>','PJSIP/204-1','','ReadExten','KEY,,'";
}

std::string WakeUpRecord(const std::string& room, const std::string& result) {
    return "'8','','203'," + room + ",'from-internal','\"Wake up call\" <7777>','Local/1','PJSIP/1','Dial','a,b,c'," +
           "'s','a','e','30','18'," + result + ",'DOCUMENTATION'";
}

std::string WakeUpEvent(const std::string& extension, const std::string& event) {
    return R"(<cdr guid="1" h323="HotelClock" e164=")" + extension + R"("><event msg=")" + event +
           R"(" type="ext"/></cdr>)";
}

TEST_F(Frames, RoomEventsAreRecognisedAndConvertedAsEachModelSendsThem) {
    constexpr char kClean[] = "<STX>080020400111<ETX>";
    constexpr char kNotClean[] = "<STX>080020400221<ETX>";
    constexpr char kAlarm[] = "<STX>080020400331<ETX>";
    const struct {
        std::u16string_view type;
        std::string frame;
        int is_state, is_alarm;
        std::string state{}, alarm{};
    } rows[] = {
        // Avaya Integral: characters 9 to 12, whatever the length; the frame is the host's form already.
        {u"TYPE10001", kClean, 1, 0, kClean},
        {u"TYPE10007", kAlarm, 0, 1, "", kAlarm},
        {u"TYPE10001", "<STX>08001230011more1<ETX>", 1, 0, "<STX>08001230011more1<ETX>"},
        {u"TYPE10001", "<STX>080012300441<ETX>", 0, 0},
        {u"TYPE10001", "<STX>080012300112<ETX>", 0, 0},
        {u"TYPE10003", kClean, 0, 0},
        // Mitel hotel: field 7 and field 8; every other frame with the trailer is class 2 for the alarm.
        {u"TYPE10014", kMitelCall + "25<FF>2" + kTrailer, 1, 2, kClean},
        {u"TYPE10008", kMitelCall + "25<FF>1" + kTrailer, 1, 2, kNotClean},
        {u"TYPE10016", kMitelCall + "25<FF>9" + kTrailer, 0, 1, "", kAlarm},
        {u"TYPE10016", kMitelCall + "7<FF>1" + kTrailer, 0, 2},
        {u"TYPE10006", kMitelCall + "25<FF>2" + kTrailer, 0, 0},
        // The first field only when no other can be a room.
        {u"TYPE10014", "17" + kNoRoom + "25<FF>2" + kTrailer, 1, 2, "<STX>080001700111<ETX>"},
        {u"TYPE10014", "x" + kNoRoom + "25<FF>2" + kTrailer, 1, 2, "<STX>080000000111<ETX>"},
        // innovaphone: the number that a room has called; "&" stands behind every value.
        {u"TYPE10012", "event= A:Rel &src_cgpn= 204 &dst_cdpn= 90 &", 1, 0, kClean},
        {u"TYPE10012", "event=A:Rel&dst_cdpn=91&src_cgpn=204&", 1, 0, kNotClean},
        {u"TYPE10012", "event=A:Rel&dst_cdpn=92&src_cgpn=204&", 1, 0, kClean},
        {u"TYPE10012", "event=A:Rel&dst_cdpn=93&src_cgpn=204&", 1, 0, kNotClean},
        {u"TYPE10012", "event=A:Rel&dst_cdpn=94&src_cgpn=1234567&", 1, 0, "<STX>081234500111<ETX>"},
        {u"TYPE10012", "event=A:Rel&dst_cdpn=95&src_cgpn=204&", 0, 1, "", kAlarm},
        {u"TYPE10012", "event=A:Rel&dst_cdpn=90&src_cgpn=0&", 0, 0},
        {u"TYPE10012", "event=A:Rel&dst_cdpn=90&src_cgpn=101", 0, 0},
        {u"TYPE10012", "event=B:Rel&dst_cdpn=90&src_cgpn=101&", 0, 0},
        {u"TYPE10012", "event=A:Rel&dst_cdpn=&src_cgpn=101&", 0, 0},
        // IP Office: the account code of an outgoing call.
        {u"TYPE10017", "t,0,0,201,O,9,9,770011 ,0,1,0,E204,Room", 1, 0, kClean},
        {u"TYPE10017", "t,0,0,204,O,9,9,0022,0,1,0,T9003,Line", 1, 0, kNotClean},
        {u"TYPE10017", "t,0,0,201,I,9,9,0011,0,1,0,E204,Room", 0, 0},
        // Panasonic: words in any case; "not cleaned" wins over what stands beside it.
        {u"TYPE10019", "31/01/24 07:30   204      not cleaned, cleaned up", 1, 0, kNotClean},
        {u"TYPE10019", "31/01/24 07:30   204      ext776", 1, 0, kClean},
        {u"TYPE10019", "31/01/24 07:30   ABC      Alarm", 0, 1, "", "<STX>080000000331<ETX>"},
        {u"TYPE10019", "31/01/24 07:30   204      EXT778 EXT777", 1, 1, kNotClean, kAlarm},
        {u"TYPE10018", "31/01/24 07:30   204      Cleaned up", 0, 0},
        // Grandstream: what the maid dialled behind the feature code.
        {u"TYPE10020", MaidRecord("*3511"), 1, 0, kClean},
        {u"TYPE10020", MaidRecord("*3533"), 0, 1, "", kAlarm},
        {u"TYPE10020", MaidRecord("*3544"), 0, 0},
        {u"TYPE10020", "7,,204,*3511,pms-status,c,d,,ReadExten", 0, 0},  // no quotes
        {u"TYPE10020", "'7','','204','*3511','from-internal','c','d','','ReadExten'", 0, 0},
        // FIAS
        {u"TYPE12000", "<STX>RE|RN2781|RS1|RS5|<ETX>", 1, 1, "<STX>080278100221<ETX>", "<STX>080278100331<ETX>"},
        {u"TYPE12000", "<STX>RE|RS1|RNSuite 7|RS3|<ETX>", 1, 0, "<STX>080000000111<ETX>"},
        {u"TYPE12000", "<STX>RE|RN1234567|RS5|<ETX>", 0, 1, "", "<STX>083456700331<ETX>"},
        {u"TYPE12000", "<STX>RE|RS3|RN12<ETX>", 1, 0, "<STX>080001200111<ETX>"},  // the last bar may be missing
        {u"TYPE12000", "<STX>RE|RN2781|RS10|<ETX>", 0, 0},
        {u"TYPE12000", "RE|RN2781|RS3|<ETX>", 0, 0},
        {u"TYPE12000", "<STX>RE|RN2781|RS3|<ETX>k", 0, 0},
        // Codes are upper-cased; an unknown one is 1 for both questions and "" for both forms.
        {u"type12000", "<STX>RE|RN204|RS3|<ETX>", 1, 0, kClean},
        {u"TYPE99999", "<STX>RE|RN204|RS3|<ETX>", 1, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(Shown(row.type) + " " + row.frame);
        const std::u16string frame = Raw(row.frame);
        EXPECT_EQ(Ask(GetComIsRoomState, row.type, frame), row.is_state);
        EXPECT_EQ(Ask(GetComIsRoomAlarm, row.type, frame), row.is_alarm);
        EXPECT_EQ(Ask(GetComConvertRoomStateRX, row.type, frame), row.state);
        EXPECT_EQ(Ask(GetComConvertRoomAlarmRX, row.type, frame), row.alarm);
    }
    EXPECT_EQ(message.texts, (std::vector<std::u16string>{u"GetComConvertRoomStateRX: FATAL ERROR !",
                                                          u"GetComConvertRoomAlarmRX: FATAL ERROR !"}))
        << "the conversions report an unknown code, the questions do not";
    ini.values.clear();
    Initialize(u"TYPE10012");
    EXPECT_EQ(Ask(GetComIsRoomState, u"TYPE10012", u"event=A:Rel&dst_cdpn=&src_cgpn=101&"), 0)
        << "an empty setting has no state";
}

TEST_F(Frames, RoomEventsOfMitelAreOfTheFirstRoomBehindTheFrameNumber) {
    std::string before = "1<FF>";
    for (const std::string fields :
         {"12<FF>13<FF>14<FF>15<FF>16", "13<FF>14<FF>15<FF>16", "14<FF>15<FF>16", "15<FF>16", "16"}) {
        const std::u16string frame = Raw(before + fields + "<FF>25<FF>2" + kTrailer);
        EXPECT_EQ(Ask(GetComConvertRoomStateRX, u"TYPE10014", frame),
                  "<STX>08000" + fields.substr(0, 2) + "00111<ETX>");
        before += "x<FF>";
    }
}

TEST_F(Frames, WakeUpConfirmationIsRecognisedAndConvertedAsEachModelSendsIt) {
    const std::string panasonic = "31/01/24 07:30   204      ";
    const struct {
        std::u16string_view type;
        std::string frame;
        int kind;
        std::string converted{};
    } rows[] = {
        // Avaya Integral: exactly ten characters.
        {u"TYPE10001", "<STX>07001231<ETX>", 1, "<STX>07001231<ETX>"},
        {u"TYPE10007", "<STX>08001231<ETX>", 0},
        // Mitel: three codes know only the second kind, one both, three only the first.
        {u"TYPE10004", kMitelCall + "7<FF>1" + kTrailer, 2},
        {u"TYPE10015", kTrailer, 2},
        {u"TYPE10005", kMitelCall + "7<FF>1" + kTrailer, 0},
        {u"TYPE10006", kMitelCall + "7<FF>1" + kTrailer, 1, "<STX>07002041<ETX>"},
        {u"TYPE10006", kMitelCall + "3<FF>1" + kTrailer, 2},
        {u"TYPE10014", kMitelCall + "7<FF>1" + kTrailer, 1, "<STX>07002041<ETX>"},
        {u"TYPE10016", kMitelCall + "7<FF>1<CR><LF>", 0},
        // innovaphone: the event log of the wake-up endpoint.
        {u"TYPE10012", WakeUpEvent("101", "conn-from"), 1, "<STX>07001011<ETX>"},
        {u"TYPE10012", WakeUpEvent(" 101 ", "rel-to"), 1, "<STX>07001012<ETX>"},
        {u"TYPE10012", WakeUpEvent("101", "setup-from"), 0},
        {u"TYPE10012", WakeUpEvent("0101", "conn-from"), 0},
        {u"TYPE10012", WakeUpEvent("299", "conn-from"), 0},  // the fallback extension
        {u"TYPE10012", WakeUpEvent("desk", "conn-from"), 0},
        {u"TYPE10012", R"(h323="x" e164="5" type="ext" <event msg="conn-from")", 0},
        {u"TYPE10012", R"(h323="x" h323="Hotel e164="5" type="ext" <event msg="conn-from")", 1,
         "<STX>07000051<ETX>"},  // the second endpoint is the one
        // Panasonic: the start is of the second kind.
        {u"TYPE10019", panasonic + "Timed reminder/Start", 2, "<STX>07002040<ETX>"},
        {u"TYPE10019", panasonic + "Timed reminder/Answer", 1, "<STX>07002041<ETX>"},
        {u"TYPE10019", panasonic + "timed reminder/no answer", 1, "<STX>07002042<ETX>"},
        {u"TYPE10019", panasonic + "Timed Reminder/Start Timed Reminder/Answer Timed Reminder/No Answer", 1,
         "<STX>07002042<ETX>"},
        // Grandstream: fields are split at every comma, also at those in the quoted argument of the call.
        {u"TYPE10020", WakeUpRecord("'1002'", "'ANSWERED'"), 1, "<STX>07010021<ETX>"},
        {u"TYPE10020", WakeUpRecord("'1002'", "'no answer'"), 1, "<STX>07010022<ETX>"},
        {u"TYPE10020", WakeUpRecord("'s'", "'BUSY'"), 1, "<STX>07002032<ETX>"},
        {u"TYPE10020", WakeUpRecord("'1002'", "'FAILED'"), 0},
        {u"TYPE10020", MaidRecord("*3511"), 0},
        // FIAS
        {u"TYPE12000", "<STX>WA|RN330|DA260709|TI115700|ASOK|<ETX>", 1, "<STX>07003301<ETX>"},
        {u"TYPE12000", "<STX>WA|RN330|ASRY|<ETX>", 1, "<STX>07003300<ETX>"},
        {u"TYPE12000", "<STX>WA|RN330|ASOK<ETX>", 1, "<STX>07003301<ETX>"},  // the last bar may be missing
        {u"TYPE12000", "<STX>WA|ASOK|<ETX>", 1, "<STX>07000001<ETX>"},
        {u"TYPE12000", "<STX>WR|RN330|ASOK|<ETX>", 0},
        {u"TYPE99999", "<STX>07001231<ETX>", 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(Shown(row.type) + " " + row.frame);
        const std::u16string frame = Raw(row.frame);
        EXPECT_EQ(Ask(GetComIsConfirmClock, row.type, frame), row.kind);
        EXPECT_EQ(Ask(GetComConvertConfirmClockRX, row.type, frame), row.converted);
    }
    EXPECT_EQ(message.texts, std::vector<std::u16string>{u"GetComConvertConfirmClockRX: FATAL ERROR !"});
}

TEST_F(Frames, SetClockIsRecognisedByLengthAndRecordType) {
    const struct {
        std::u16string_view type;
        const char* frame;
        int kind;
    } rows[] = {{u"TYPE10001", "<STX>080012307301<ETX>", 1}, {u"TYPE10002", "<STX>080012300221<ETX>", 0},
                {u"TYPE10007", "<STX>08001230033x<ETX>", 0}, {u"TYPE10001", "<STX>0800123073012<ETX>", 0},
                {u"TYPE10001", "<STX>070012307301<ETX>", 0}, {u"TYPE10003", "<STX>080012307301<ETX>", 0},
                {u"TYPE12000", "<STX>WR|RN1|<ETX>", 1},      {u"TYPE12000", "<STX>WC|RN1|ST1<ETX>", 1},
                {u"TYPE12000", "<STX>WA|RN1|ASOK|<ETX>", 0}, {u"TYPE12000", "<STX>RE|WR|<ETX>", 0},
                {u"TYPE12000", "<STX>WR|RN1|<ETX><CR>", 0},  {u"TYPE99999", "", 1}};
    for (const auto& row : rows) EXPECT_EQ(Ask(GetComIsSetClock, row.type, Raw(row.frame)), row.kind) << row.frame;
}

constexpr DateTime At(int year, int month, int day, int hour, int minute) {
    return {.year = year, .month = month, .day = day, .hour = hour, .minute = minute, .second = 30};
}
constexpr DateTime kNoon = At(2026, 11, 15, 12, 0);

TEST_F(Frames, SetClockIsConvertedForTheHostWithADate) {
    const struct {
        std::u16string_view type;
        DateTime now;
        const char *frame, *converted;  // with "~" for the fourteen blanks
    } rows[] = {
        // Avaya Integral: the next time that the clock shows it.
        {u"TYPE10001", At(2026, 11, 15, 7, 30), "<STX>080012307301<ETX>", "<STX>0800123107301511~<ETX>"},
        {u"TYPE10002", At(2026, 11, 15, 7, 31), "<STX>080012307301<ETX>", "<STX>0800123107301611~<ETX>"},
        {u"type10007", At(2026, 12, 31, 22, 0), "<STX>080012306301<ETX>", "<STX>0800123106300101~<ETX>"},
        {u"TYPE10001", At(2028, 2, 28, 9, 0), "<STX>080012307301<ETX>", "<STX>0800123107302902~<ETX>"},
        {u"TYPE10001", At(2028, 2, 29, 9, 0), "<STX>080012307301<ETX>", "<STX>0800123107300103~<ETX>"},
        {u"TYPE10001", At(2026, 2, 28, 9, 0), "<STX>080012307301<ETX>", "<STX>0800123107300103~<ETX>"},
        // Cleared, another mode, no such time: no date, and the filler moves left.
        {u"TYPE10001", kNoon, "<STX>080012307302<ETX>", "<STX>080012320730----~<ETX>"},
        {u"TYPE10001", kNoon, "<STX>080012307303<ETX>", "<STX>080012330730~<ETX>"},
        {u"TYPE10001", kNoon, "<STX>0800123073x1<ETX>", "<STX>08001231073x~<ETX>"},
        {u"TYPE10001", kNoon, "", "<STX>~<ETX>"},
        // FIAS
        {u"TYPE12000", kNoon, "<STX>WR|RN123|DA261115|TI073000|<ETX>", "<STX>0800123107301511~<ETX>"},
        {u"TYPE12000", kNoon, "<STX>WC|TI073000|DA261115|RN123|<ETX>", "<STX>0800123207301511~<ETX>"},
        {u"TYPE12000", kNoon, "<STX>WR|RN123|TI073000|<ETX>", "<STX>080012310730----~<ETX>"},
        {u"TYPE12000", kNoon, "<STX>WR|RN123|DA261115|<ETX>", "<STX>08001231XXXX1511~<ETX>"},
        {u"TYPE12000", kNoon, "<STX>WR|RN0330|WC|DA261115|TI073000|<ETX>",
         "<STX>0800330207301511~<ETX>"},  // the later test
        // The room: a number, "00000" without one, left out when it does not fit.
        {u"TYPE12000", kNoon, "<STX>WR|DA261115|TI073000|<ETX>", "<STX>0800000107301511~<ETX>"},
        {u"TYPE12000", kNoon, "<STX>WR|RN123456|DA261115|TI073000|<ETX>", "<STX>08107301511~<ETX>"},
        // A last field that no "|" follows.
        {u"TYPE12000", kNoon, "<STX>WR|RN123|DA261115|TI073000<ETX>", "<STX>080012311511~<ETX>"},
        {u"TYPE12000", kNoon, "<STX>WR|TI073000|RN123|DA261115<ETX>", "<STX>080012310730~<ETX>"},
        // Cleared without a date: the next time at which the minutes are the hours (now it is 12:00).
        {u"TYPE12000", kNoon, "<STX>WC|RN123|TI301100|<ETX>", "<STX>0800123230111611~<ETX>"},
        {u"TYPE12000", kNoon, "<STX>WC|RN123|TI301300|<ETX>", "<STX>0800123230131511~<ETX>"},
        {u"TYPE12000", kNoon, "<STX>WC|RN123|TI073000|<ETX>", "<STX>080012320730~<ETX>"},
        {u"TYPE12000", kNoon, "<STX>WC|RN1E15|ST1<ETX>", "<STX>082XXXX~<ETX>"},  // too wide in plain decimals
        {u"TYPE12000", kNoon, "<STX>WC|RN0330|ST1<ETX>", "<STX>08003302XXXX~<ETX>"},
        {u"TYPE12000", kNoon, "", "<STX>00000XXXX~<ETX>"},
        {u"TYPE10015", kNoon, "<STX>080012307301<ETX>", ""},
        {u"TYPE99999", kNoon, "<STX>080012307301<ETX>", ""},
    };
    const std::string filler(14, ' ');
    for (const auto& row : rows) {
        clock.now = row.now;
        std::string shown = Ask(GetComConvertSetClockRX, row.type, Raw(row.frame));
        if (const std::size_t at = shown.find(filler); at != std::string::npos) shown.replace(at, filler.size(), "~");
        EXPECT_EQ(shown, row.converted) << row.frame;
    }
    EXPECT_EQ(message.texts, std::vector<std::u16string>{u"GetComConvertSetClockRX: FATAL ERROR !"});
}

TEST_F(Frames, RecognitionTakesNothingFromTheHeap) {
    std::vector<std::u16string> frames{std::u16string(100'000, u'\u0416')};  // and a frame of every kind
    for (const std::string& frame :
         {std::string("<STX>080012300111<ETX>"), kMitelCall + "25<FF>2" + kTrailer, MaidRecord("*3544"),
          std::string("event=A:Rel&dst_cdpn=90&src_cgpn=101&"), WakeUpEvent("101", "conn-from"),
          std::string("t,0,0,201,O,9,9,770011,0,1,0,E204,Room"), WakeUpRecord("'1002'", "'FAILED'"),
          std::string("31/01/24 07:30   204      timed reminder/cleaned"), std::string("<STX>WA|RN330|ASOK|<ETX>")})
        frames.push_back(Raw(frame));
    for (const exchanges::Model* model : exchanges::Models()) {
        for (const std::u16string& frame : frames) {
            std::u16string code(model->code);
            const std::size_t before = testing::Allocations();
            GetComIsRoomState(TypeCode(code), frame, exchanges);
            GetComIsRoomAlarm(TypeCode(code), frame, exchanges);
            GetComIsConfirmClock(TypeCode(code), frame, exchanges);
            GetComIsSetClock(TypeCode(code), frame, exchanges);
            EXPECT_EQ(testing::Allocations(), before) << Shown(model->code) << " " << Shown(frame.substr(0, 60));
        }
    }
    const std::size_t before = testing::Allocations();
    EXPECT_EQ(std::u16string(100, u'x').size(), 100U);
    EXPECT_GT(testing::Allocations(), before) << "the counter counts";
}

}  // namespace
}  // namespace vintrel::server
