#include "tests/laws/grammars.h"
#include "tests/laws/makers.h"

namespace vintrel::laws {
namespace {

constexpr auto kRoom = ZeroPadded<kUser>;

/// From 1 to 23 o'clock: midnight looks like a room state in some frames.
void Time(Making& making) {
    const std::size_t begin = making.text.size();
    TwoDigits(making, making.random.From(1, 23));
    TwoDigits(making, making.random.Below(60U));
    making.claims.Say(kTimeH, std::u16string_view(making.text).substr(begin, 2));
    making.claims.Say(kTimeM, std::u16string_view(making.text).substr(begin + 2, 2));
}

// clang-format off
constexpr Layout kIntegral08{.head = u"\x02" u"08", .tail = u"\x03"}, kIntegral07{.head = u"\x02" u"07", .tail = u"\x03"};
constexpr auto kFiveDigits = ZeroPadded<kUser, 0, 5>;
constexpr Word kHostStates[] = {{u"00111", u'1'}, {u"00221", u'2'}, {u"00331", u'3'}};
constexpr Word kHostResults[] = {{u"0", u'0'}, {u"1", u'1'}, {u"2", u'2'}};
constexpr Word kModes[] = {{u"1", u'1'}, {u"2", u'2'}};
constexpr FieldMaker kIntegralRoom[] = {{.make = kFiveDigits}, {.make = OneOf<kHostStates>}};
constexpr FieldMaker kIntegralWakeUp[] = {{.make = kFiveDigits}, {.make = OneOf<kHostResults>}};
constexpr FieldMaker kIntegralSetClock[] = {{.make = kFiveDigits}, {.make = Time}, {.make = OneOf<kModes>}};

constexpr Layout kMitelFrame{.between = u"\f", .tail = u"\f\v\x03\r\n"};
/// One of five fields holds the room; the others, nothing that could be one.
template <std::uint32_t Place>
void MitelField(Making& making) {
    if (making.call.number % 5 == Place)
        kRoom(making);
    else if (making.random.Once(2))
        making.Number(6, 9);
    else
        making.Append(u"x");
}
constexpr Word kMitelEvents[] = {{u"25\f2", u'1'}, {u"25\f1", u'2'}, {u"25\f9", u'3'}};
constexpr Word kMitelResults[] = {{u"7\f1", u'1'}, {u"7\f3", u'1'}};
constexpr FieldMaker kMitelRoom[] = {
    {.text = u"01"}, {.make = MitelField<0>}, {.make = MitelField<1>}, {.make = MitelField<2>}, {.make = MitelField<3>},
    {.make = MitelField<4>}, {.make = OneOf<kMitelEvents>}, {.make = Anything}};
constexpr FieldMaker kMitelWakeUp[] = {
    {.text = u"01"}, {.make = MitelField<0>}, {.make = MitelField<1>}, {.make = MitelField<2>}, {.make = MitelField<3>},
    {.make = MitelField<4>}, {.make = OneOf<kMitelResults>}, {.make = Anything}};

constexpr Layout kInnovaphoneRecord{.between = u"&", .tail = u"&", .any_order = true}, kInnovaphoneEvent{};
constexpr Word kSignals[] = {{u"90", u'1'}, {u"91", u'2'}, {u"92", u'1'}, {u"93", u'2'}, {u"94", u'1'}, {u"95", u'3'}};
constexpr Word kEvents[] = {{u"conn-from", u'1'}, {u"rel-to", u'2'}};
constexpr FieldMaker kInnovaphoneRoom[] = {
    {.key = u"event=A:Rel"}, {.key = u"src_cgpn=", .make = kRoom}, {.key = u"dst_cdpn=", .make = OneOf<kSignals>},
    {.key = u"src_name=", .make = Anything}};
constexpr FieldMaker kInnovaphoneWakeUp[] = {
    {.text = u"<cdr h323=\"Hotel", .make = Anything}, {.text = u"\" e164=\"", .make = kRoom},
    {.text = u"\"><event msg=\"", .make = OneOf<kEvents>}, {.text = u"\" type=\"ext\"/></cdr>"}};

constexpr Layout kCommas{.between = u","};
constexpr Word kAccounts[] = {{u"0011", u'1'}, {u"770022 ", u'2'}, {u" 0033", u'3'}};
constexpr FieldMaker kIpOfficeExtension[] = {
    {.text = u"2026/01/01 00:00:00,0,0"}, {.make = Anything}, {.text = u"O,9,9"}, {.make = OneOf<kAccounts>},
    {.text = u"0,1,0"}, {.text = u"E", .make = kRoom}, {.make = Anything}};
constexpr FieldMaker kIpOfficeCaller[] = {
    {.text = u"2026/01/01 00:00:00,0,0"}, {.make = kRoom}, {.text = u"O,9,9"}, {.make = OneOf<kAccounts>},
    {.text = u"0,1,0"}, {.text = u"T9003"}, {.make = Anything}};

constexpr Layout kPanasonicLine{.columns = 60};
constexpr Word kTexts[] = {{u"Cleaned up", u'1'}, {u"EXT776", u'1'}, {u"Not cleaned", u'2'}, {u"EXT777", u'2'},
                           {u"Alarm", u'3'}, {u"EXT778", u'3'}};
constexpr Word kReminders[] = {{u"Timed Reminder/Start", u'0'}, {u"Timed Reminder/Answer", u'1'},
                               {u"Timed Reminder/No Answer", u'2'}};
constexpr FieldMaker kPanasonicRoom[] = {
    {.at = 18, .make = ZeroPadded<kUser, 5>}, {.at = 29, .make = OneOf<kTexts>, .words = true}};
constexpr FieldMaker kPanasonicWakeUp[] = {
    {.at = 18, .make = ZeroPadded<kUser, 5>}, {.at = 29, .make = OneOf<kReminders>, .words = true}};

constexpr Layout kGrandstreamRow{.quote = u"'", .between = u","};
constexpr Word kMaidCodes[] = {{u"11", u'1'}, {u"22", u'2'}, {u"33", u'3'}};
constexpr Word kDispositions[] = {{u"Answered", u'1'}, {u"No answer", u'2'}, {u"Busy", u'2'}};
constexpr FieldMaker kGrandstreamRoom[] = {
    {.make = Anything}, {}, {.make = kRoom}, {.text = u"*35", .make = OneOf<kMaidCodes>},
    {.text = u"pms-status", .words = true}, {.make = Anything}, {.make = Anything}, {},
    {.text = u"ReadExten", .words = true}, {.text = u"KEY,,"}};
constexpr FieldMaker kGrandstreamWakeUp[] = {
    {.make = Anything}, {}, {.make = Anything}, {.make = kRoom}, {.make = Anything},
    {.text = u"\"Wake up call\" <7777>", .words = true}, {.make = Anything}, {.make = Anything}, {.text = u"Dial"},
    {.text = u"a,b,c"}, {}, {}, {}, {.make = Anything}, {.make = Anything},
    {.make = OneOf<kDispositions>, .words = true}, {.make = Anything}};

constexpr Layout kFiasRE{.head = u"\x02RE|", .between = u"|", .tail = u"|\x03", .any_order = true};
constexpr Layout kFiasWA{.head = u"\x02WA|", .between = u"|", .tail = u"|\x03", .any_order = true};
constexpr Layout kFiasWR{.head = u"\x02WR|", .between = u"|", .tail = u"|\x03", .any_order = true};
constexpr Layout kFiasWC{.head = u"\x02WC|", .between = u"|", .tail = u"|\x03", .any_order = true};
constexpr Word kRoomStates[] = {{u"3", u'1'}, {u"1", u'2'}, {u"5", u'3'}};
constexpr Word kAnswers[] = {{u"OK", u'1'}, {u"RY", u'0'}, {u"BY", u'2'}, {u"NR", u'2'}, {u"DE", u'2'}, {u"UR", u'2'}};
constexpr FieldMaker kFiasRoom[] = {
    {.key = u"RN", .make = kRoom}, {.key = u"RS", .make = OneOf<kRoomStates>}, {.key = u"X", .make = Anything}};
constexpr FieldMaker kFiasWakeUp[] = {
    {.key = u"RN", .make = kRoom}, {.key = u"AS", .make = OneOf<kAnswers>}, {.key = u"TI", .make = Time, .behind = u"00"}};
constexpr FieldMaker kFiasSetClock[] = {
    {.key = u"RN", .make = kRoom}, {.key = u"TI", .make = Time, .behind = u"00"}, {.make = SayType<u'1', u'1'>}};
constexpr FieldMaker kFiasClearClock[] = {
    {.key = u"RN", .make = kRoom}, {.key = u"TI", .make = Time, .behind = u"00"}, {.make = SayType<u'2', u'2'>}};

using enum FrameKind;
constexpr FrameGrammar kGrammars[] = {
    {Room,     {u"TYPE10001", kIntegral08, kIntegralRoom}},
    {WakeUp,   {u"TYPE10002", kIntegral07, kIntegralWakeUp}},
    {SetClock, {u"TYPE10007", kIntegral08, kIntegralSetClock}},
    {WakeUp,   {u"TYPE10006", kMitelFrame, kMitelWakeUp}},
    {WakeUp,   {u"TYPE10008", kMitelFrame, kMitelWakeUp}},
    {Room,     {u"TYPE10008", kMitelFrame, kMitelRoom}},
    {Room,     {u"TYPE10014", kMitelFrame, kMitelRoom}},
    {Room,     {u"TYPE10016", kMitelFrame, kMitelRoom}},
    {Room,     {u"TYPE10012", kInnovaphoneRecord, kInnovaphoneRoom}},
    {WakeUp,   {u"TYPE10012", kInnovaphoneEvent, kInnovaphoneWakeUp}},
    {Room,     {u"TYPE10017", kCommas, kIpOfficeExtension}},
    {Room,     {u"TYPE10017", kCommas, kIpOfficeCaller}},
    {Room,     {u"TYPE10019", kPanasonicLine, kPanasonicRoom}},
    {WakeUp,   {u"TYPE10019", kPanasonicLine, kPanasonicWakeUp}},
    {Room,     {u"TYPE10020", kGrandstreamRow, kGrandstreamRoom}},
    {WakeUp,   {u"TYPE10020", kGrandstreamRow, kGrandstreamWakeUp}},
    {Room,     {u"TYPE12000", kFiasRE, kFiasRoom}},
    {WakeUp,   {u"TYPE12000", kFiasWA, kFiasWakeUp}},
    {SetClock, {u"TYPE12000", kFiasWR, kFiasSetClock}},
    {SetClock, {u"TYPE12000", kFiasWC, kFiasClearClock}},
};
// clang-format on

}  // namespace

std::span<const FrameGrammar> FrameGrammars() { return kGrammars; }

}  // namespace vintrel::laws
