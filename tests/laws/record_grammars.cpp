#include <chrono>
#include <utility>

#include "tests/laws/grammars.h"
#include "tests/laws/makers.h"

namespace vintrel::laws {
namespace {

/// Day, month, year, hour and minute are shown as they stand.
void Start(Making& making) {
    const std::pair<const GdvField*, std::u16string_view> parts[] = {
        {&kDateY, u"-"}, {&kDateM, u"-"}, {&kDateD, u" "}, {&kTimeH, u":"}, {&kTimeM, u":59"}};
    making.Append(u"20");
    for (const auto& [field, behind] : parts) {
        making.claims.Say(*field, making.Number(2, 2));
        making.Append(behind);
    }
}

struct Instant {
    explicit Instant(std::int64_t seconds)
        : day(std::chrono::sys_days(std::chrono::days(seconds / 86'400))), time(seconds % 86'400) {}
    std::int64_t Year() const { return static_cast<int>(day.year()); }
    std::int64_t Month() const { return static_cast<unsigned>(day.month()); }
    std::int64_t Day() const { return static_cast<unsigned>(day.day()); }

    std::chrono::year_month_day day;
    std::int64_t time;
};
void SayInstant(Claims& claims, std::int64_t seconds) {
    const Instant instant(seconds);
    claims.Zeros(kDateD, Digits(instant.Day()));
    claims.Zeros(kDateM, Digits(instant.Month()));
    claims.Zeros(kDateY, Digits(instant.Year() % 100));
    claims.Zeros(kTimeH, Digits(instant.time / 3600));
    claims.Zeros(kTimeM, Digits(instant.time / 60 % 60));
}

// --- Lines of columns ------------------------------------------------------------------------------------------------

// clang-format off
constexpr Layout kPc4{.columns = 140, .tail = u"\r\n"};
constexpr FieldMaker kMitel[] = {
    {.at = 1,  .make = Unreported<kSpare, kInfo, kMacAddress>},
    {.at = 2,  .make = AsItStands<kUser>},  {.at = 8,  .make = ZeroPadded<kUserCode, 4>},
    {.at = 21, .make = AsItStands<kDateY>}, {.at = 23, .make = AsItStands<kDateM>},
    {.at = 25, .make = AsItStands<kDateD>}, {.at = 28, .make = AsItStands<kTimeH>},
    {.at = 31, .make = AsItStands<kTimeM>}, {.at = 34, .make = HoursMinutesSeconds<u'H', u'M'>},
    {.at = 43, .make = AsItStands<kLine>},  {.at = 49, .make = BlankPadded<kPTYNumber, 11>},
    {.at = 62, .make = ZeroPadded<kUnity, 4>}, {.at = 67, .make = AsItStands<kNumber>},
};

constexpr Layout kIntegralFrame{.columns = 52};
constexpr FieldMaker kIntegral[] = {
    {.at = 1,  .make = Unreported<kMacAddress, kPTYNumber>},
    {.at = 2,  .make = AsItStands<kLine>},          {.at = 7,  .make = AsItStands<kUser>},
    {.at = 12, .make = AsItStands<kNumber>},        {.at = 28, .make = AsItStands<kUserCode>},
    {.at = 32, .make = AsItStands<kSpare>},         {.at = 33, .make = AsItStands<kInfo>},
    {.at = 34, .make = AsItStands<kType>},          {.at = 35, .make = AsItStands<kUnity>},
    {.at = 39, .make = ZeroPadded<kDurationS, 4>},  {.at = 43, .make = AsItStands<kDateD>},
    {.at = 45, .make = AsItStands<kDateM>},         {.at = 47, .make = AsItStands<kDateY>},
    {.at = 49, .make = AsItStands<kTimeH>},         {.at = 51, .make = AsItStands<kTimeM>},
};

constexpr Layout kIntegral2Line{.columns = 100, .tail = u"\r\n"};  // of which the last 82 count
constexpr Word kIntegral2Kinds[] = {{u" 0", u'0'}, {u"00", u'0'}, {u" 1", u'1'}, {u"12", u'1'}};
constexpr FieldMaker kIntegral2[] = {
    {.at = 1,  .make = Unreported<kSpare, kInfo, kMacAddress, kPTYNumber, kUserCode>},
    {.at = 26, .make = ZeroPadded<kUser, 5>},   {.at = 31, .make = AsItStands<kNumber>},
    {.at = 49, .make = ZeroPadded<kLine, 3>},   {.at = 53, .make = OneOf<kIntegral2Kinds>},
    {.at = 57, .make = AsItStands<kDateM>},     {.at = 60, .make = AsItStands<kDateD>},
    {.at = 63, .make = AsItStands<kDateY>},     {.at = 66, .make = AsItStands<kTimeH>},
    {.at = 69, .make = AsItStands<kTimeM>},     {.at = 74, .make = ZeroPadded<kDurationS, 5>},
    {.at = 83, .make = ZeroPadded<kUnity, 5>},
};

constexpr Layout kAlcatelLine{.columns = 144, .tail = u"\r\n"};
constexpr Word kAlcatelKinds[] = {{u"<--", u'0'}, {u"-->", u'1'}, {u"CS+", u'1'}};
constexpr FieldMaker kAlcatel[] = {
    {.at = 1,  .make = Unreported<kSpare, kInfo, kMacAddress, kPTYNumber>},
    {.at = 9,  .make = ZeroPadded<kUser, 5>},   {.at = 14,  .make = OneOf<kAlcatelKinds>},
    {.at = 19, .make = ZeroPadded<kLine, 3>},   {.at = 22,  .make = AsItStands<kDateD>},
    {.at = 25, .make = AsItStands<kDateM>},     {.at = 28,  .make = AsItStands<kDateY>},
    {.at = 31, .make = AsItStands<kTimeH>},     {.at = 34,  .make = AsItStands<kTimeM>},
    {.at = 37, .make = HoursMinutesSeconds<>},  {.at = 46,  .make = ZeroPadded<kUnity, 5>},
    {.at = 61, .make = AsItStands<kNumber>},    {.at = 107, .make = ZeroPadded<kUserCode, 16>},
};

constexpr Layout kAlgoralLine{.columns = 301, .tail = u"\r\n"};
constexpr Word kAlgoralOutgoing[] = {{u"U", u'1'}, {u"R", u'1'}, {u"T", u'3'}};
constexpr Word kAlgoralIncoming[] = {{u"E", u'0'}, {u"O", u'2'}, {u"I", u'7'}};
constexpr FieldMaker kAlgoral[] = {
    {.at = 1,  .make = Unreported<kSpare, kInfo, kMacAddress, kPTYNumber>},
    {.at = 10, .text = u":"},
    {.at = 11, .make = ZeroPadded<kUser, 5>},   {.at = 19, .make = ZeroPadded<kLine, 3>},
    {.at = 28, .make = AsItStands<kDateD>},     {.at = 31, .make = AsItStands<kDateM>},
    {.at = 36, .make = AsItStands<kDateY>},     {.at = 39, .make = AsItStands<kTimeH>},
    {.at = 42, .make = AsItStands<kTimeM>},     {.at = 73, .make = ZeroPadded<kUnity, 4>},
    {.at = 90, .make = HoursMinutesSeconds<u':', u' ', u':'>},
    {.at = 142, .make = Either<OneOf<kAlgoralIncoming>, OneOf<kAlgoralOutgoing>>, .words = true},
    {.at = 178, .make = Either<Anything, BlankPadded<kNumber, 16>>},
    {.at = 247, .make = Either<BlankPadded<kNumber, 16>, Anything>},
    {.at = 294, .make = ZeroPadded<kUserCode, 4>},
};

constexpr Layout kPanasonicLine{.columns = 120, .tail = u"\r\n"};
constexpr Word kPanasonicOutgoing[] = {{u"    ", u'1'}, {u"D0  ", u'1'}, {u"NA  ", u'1'}, {u"TR  ", u'3'}};
constexpr Word kPanasonicIncoming[] = {{u"    ", u'0'}, {u"D0  ", u'0'}, {u"NA  ", u'7'}, {u"TR  ", u'2'}};
void PanasonicCaller(Making& making) {
    if (making.random.Once(2)) {
        making.Append(u"<D>");
        BlankPadded<kPTYNumber>(making);
    } else {
        Unreported<kPTYNumber>(making);
    }
    making.Append(u"<I>");
    AsItStands<kNumber>(making);
}
void PanasonicCalled(Making& making) {
    Unreported<kPTYNumber>(making);
    BlankPadded<kNumber, 16>(making);
}
constexpr FieldMaker kPanasonic[] = {
    {.at = 1,  .make = Unreported<kSpare, kInfo, kMacAddress, kUserCode>},
    {.at = 1,  .make = AsItStands<kDateD>},     {.at = 4,  .make = AsItStands<kDateM>},
    {.at = 7,  .make = AsItStands<kDateY>},     {.at = 10, .make = AsItStands<kTimeH>},
    {.at = 13, .make = AsItStands<kTimeM>},     {.at = 18, .make = ZeroPadded<kUser, 5>},
    {.at = 24, .make = ZeroPadded<kLine, 4>},   {.at = 29, .make = Either<PanasonicCaller, PanasonicCalled>},
    {.at = 85, .make = HoursMinutesSeconds<u':', u'\''>},
    {.at = 94, .text = u"EUR"},               {.at = 97, .make = ZeroPadded<kUnity, 5>},
    {.at = 117, .make = Either<OneOf<kPanasonicIncoming>, OneOf<kPanasonicOutgoing>>},
};

// --- Fields between separators ---------------------------------------------------------------------------------------

constexpr Layout kFiasRecord{.head = u"\x02PS|", .between = u"|", .tail = u"|\x03", .any_order = true};
void FiasDate(Making& making) {
    for (const GdvField* field : {&kDateY, &kDateM, &kDateD}) making.claims.Say(*field, making.Number(2, 2));
}
void FiasTime(Making& making) {
    for (const GdvField* field : {&kTimeH, &kTimeM}) making.claims.Say(*field, making.Number(2, 2));
    making.Append(making.random.Once(2) ? u"" : u"59");
}
constexpr FieldMaker kFias[] = {
    {.key = u"RN", .make = ZeroPadded<kUser>},       {.key = u"DD", .make = BlankPadded<kNumber>},
    {.key = u"MP", .make = ZeroPadded<kUnity>},      {.key = u"DU", .make = ZeroPadded<kDurationS>},
    {.key = u"DA", .make = FiasDate},                {.key = u"TI", .make = FiasTime},
    {.key = u"PT", .make = SayType<u'1', u'1'>, .behind = u"C"},  {.key = u"X", .make = Anything},
    {.make = Line<u'0', u'1'>},                         {.make = Unreported<kSpare, kInfo, kMacAddress, kPTYNumber, kUserCode>},
};

constexpr Layout kIpOfficeLine{.between = u",", .tail = u",,10.0.0.5,end\r\n"};
constexpr std::u16string_view kIn = u"I", kOut = u"O", kRoom = u"302";
void IpOfficeStart(Making& making) {
    const Instant start(making.call.started);
    making.text += Digits(start.Year());
    for (const auto& [between, number] : {std::pair(u'/', start.Month()), {u'/', start.Day()}, {u' ', start.time / 3600},
                                          {u':', start.time / 60 % 60}, {u':', start.time % 60}}) {
        making.text += between;
        TwoDigits(making, number);
    }
    SayInstant(making.claims, making.call.started + making.call.spent);
}
void CallNumber(Making& making) { making.text += Digits(making.call.number % 4'000'000); }
void Continued(Making& making) { making.Append(making.call.last ? u"0" : u"1"); }
constexpr FieldMaker kIpOffice[] = {
    {.make = IpOfficeStart},
    {.make = HoursMinutesSeconds<>},
    {.make = Anything},
    {.make = Either<BlankPadded<kNumber>, Anything>, .behind = u"@x"},
    {.make = Either<Say<kIn>, Say<kOut>>},
    {.make = Either<Say<kRoom>, BlankPadded<kNumber>>},
    {.make = Either<BlankPadded<kPTYNumber, 0, 6>, Unreported<kPTYNumber>>},
    {.make = ZeroPadded<kUserCode>},
    {.text = u"0"},
    {.make = CallNumber},
    {.make = Continued},
    {.text = u"E", .make = ZeroPadded<kUser>},
    {.make = Unreported<kSpare, kInfo, kMacAddress>},
    {.text = u"T90", .make = ZeroPadded<kLine, 2, 2>},
    {.make = Either<SayType<u'0', u'2'>, SayType<u'1', u'3'>>},
    {.text = u"0,0,,,,,,"},
    {.make = ZeroPadded<kUnity>},
};

constexpr Layout kInnovaphoneRecord{.head = u"<14>Jan 1 box ", .between = u"&", .tail = u"\r\n", .any_order = true};
constexpr Word kLineSides[] = {{u"TEL1"}, {u"BRI2"}, {u"PRI3"}, {u"PPP4"}, {u"SIP5"}};
constexpr Word kInsides[] = {{u"GW1"}, {u"RB2"}, {u"RT3"}, {u"RP4"}};
constexpr Word kTransfers[] = {{u"A:X"}, {u"B:X"}};
constexpr Word kRelease[] = {{u"A:Rel"}};
void InnovaphoneEvent(Making& making) {
    making.call.last ? OneOf<kRelease>(making) : OneOf<kTransfers>(making);
    making.call.incoming ? SayType<u'0', u'2'>(making) : SayType<u'1', u'3'>(making);
}
void Connect(Making& making) {
    constexpr std::int64_t kAheadOfUtc = 7200;
    making.text += Digits(making.call.started);
    SayInstant(making.claims, making.call.started + kAheadOfUtc);
}
void Disconnect(Making& making) {
    const std::int64_t seconds = making.random.Below(100'000U);
    making.text += Digits(making.call.started + seconds);
    making.claims.Zeros(kDurationS, Digits(seconds));
}
void Reference(Making& making) { making.text += Digits(making.call.number); }
constexpr FieldMaker kInnovaphone[] = {
    {.key = u"event=", .make = InnovaphoneEvent, .words = true},
    {.key = u"ref=", .make = Reference},
    {.key = u"src_if=", .make = Either<OneOf<kLineSides>, OneOf<kInsides>>, .words = true},
    {.key = u"dst_if=", .make = Either<OneOf<kInsides>, OneOf<kLineSides>>, .words = true},
    {.key = u"src_cgpn=", .make = Either<BlankPadded<kNumber>, ZeroPadded<kUser>>},
    {.key = u"src_cdpn=", .make = Either<BlankPadded<kPTYNumber, 0, 6>, Unreported<kPTYNumber>>},
    {.key = u"dst_cdpn=", .make = Either<ZeroPadded<kUser>, BlankPadded<kNumber>>},
    {.key = u"connect_time=", .make = Connect},
    {.key = u"disc_time=", .make = Disconnect},
    {.key = u"srv_id=", .make = AsItStands<kMacAddress>},
    {.key = u"src_name=", .make = Anything},
    {.key = u"date=20260101-000000"},
    {.key = u"time=", .make = Line<u'5', u'1'>},
    {.key = u"cause=", .make = Unreported<kSpare, kInfo, kUserCode, kUnity>},
};

constexpr Layout kGrandstreamRow{.quote = u"'", .between = u",", .tail = u"\n"};
constexpr Word kInbound[] = {{u"Inbound"}};
constexpr Word kOutbound[] = {{u"Outbound", u'1'}, {u"External", u'3'}};
constexpr Word kIncomingActions[] = {{u"Dial", u'0'}, {u"RingGroup[6400]", u'0'}, {u"Transfer", u'2'}, {u"CallForward", u'2'}};
constexpr std::u16string_view kDial = u"Dial";
constexpr FieldMaker kGrandstream[] = {
    {.make = Anything},
    {.make = ZeroPadded<kUserCode>},
    {.make = Either<BlankPadded<kNumber>, ZeroPadded<kUser>>},
    {.make = Either<BlankPadded<kPTYNumber, 0, 6>, BlankPadded<kNumber>>},
    {.text = u"route-", .make = Anything, .words = true},
    {.text = u"\"Ann O'Neil\" <", .make = Anything, .behind = u">"},
    {.text = u"PJSIP/", .make = Anything},
    {.text = u"PJSIP/", .make = Either<Anything, Unreported<kPTYNumber>>},
    {.text = u"Dial", .words = true},
    {.make = Argument},
    {.make = Start},
    {.make = Line<u'0', u'1'>},
    {.make = Unreported<kSpare, kInfo, kMacAddress, kUnity>},
    {.make = Anything},
    {.make = ZeroPadded<kDurationS>},
    {.text = u"Answered", .words = true},
    {.text = u"Documentation", .words = true},
    {.make = Anything},
    {.make = Either<OneOf<kInbound>, OneOf<kOutbound>>, .words = true},
    {.make = Anything},
    {.text = u"trunk_", .make = Anything},
    {.text = u"s"},
    {.make = Anything},
    {},
    {.make = Either<ZeroPadded<kUser>, Anything>},
    {},
    {},
    {.make = Anything},
    {.make = Anything},
    {.make = Either<OneOf<kIncomingActions>, Say<kDial>>, .words = true},
    {},
    {.make = Argument},
};

constexpr Layout kWildixLine{.quote = u"\"", .between = u",", .tail = u"\n"};
constexpr std::u16string_view kTrunk = u"SIP/BRI", kExtension = u"SIP/";
void WildixLine(Making& making) { making.Append(kTrunk); ZeroPadded<kLine>(making); }
void WildixUser(Making& making) { making.Append(kExtension); ZeroPadded<kUser>(making); }
void WildixCaller(Making& making) { making.Append(kExtension); making.Number(1, 5); }
constexpr FieldMaker kWildix[] = {
    {.make = ZeroPadded<kUserCode>},
    {.make = Either<BlankPadded<kNumber>, ZeroPadded<kUser>>},
    {.make = Either<BlankPadded<kPTYNumber, 0, 6>, BlankPadded<kNumber>>},
    {.make = Anything},
    {.text = u"\"\"Ann\"\" <", .make = Argument},
    {.make = Either<WildixLine, WildixCaller>, .behind = u"-1", .words = true},
    {.make = Either<WildixUser, WildixLine>, .behind = u"-2", .words = true},
    {.text = u"Dial", .words = true},
    {.make = Argument},
    {.make = Start},
    {.make = Either<SayType<u'0', u'0'>, SayType<u'1', u'1'>>},
    {.make = Either<Anything, Unreported<kPTYNumber>>},
    {.text = u"70", .make = Unreported<kSpare, kInfo, kMacAddress, kUnity>},
    {.make = ZeroPadded<kDurationS>},
    {.text = u"Answered", .words = true},
    {.make = Argument},
};
// clang-format on

constexpr Grammar kGrammars[] = {
    {u"TYPE10001", kIntegralFrame, kIntegral},
    {u"TYPE10002", kIntegralFrame, kIntegral},
    {u"TYPE10003", kIntegral2Line, kIntegral2},
    {u"TYPE10004", kPc4, kMitel},
    {u"TYPE10005", kPc4, kMitel},
    {u"TYPE10006", kPc4, kMitel},
    {u"TYPE10007", kIntegralFrame, kIntegral},
    {u"TYPE10008", kPc4, kMitel},
    {u"TYPE10009", kAlcatelLine, kAlcatel},
    {u"TYPE10010", kAlgoralLine, kAlgoral},
    {u"TYPE10011", kPc4, kMitel},
    {u"TYPE10012", kInnovaphoneRecord, kInnovaphone, true},
    {u"TYPE10013", kWildixLine, kWildix},
    {u"TYPE10014", kPc4, kMitel},
    {u"TYPE10015", kPc4, kMitel},
    {u"TYPE10016", kPc4, kMitel},
    {u"TYPE10017", kIpOfficeLine, kIpOffice, true},
    {u"TYPE10018", kPanasonicLine, kPanasonic},
    {u"TYPE10019", kPanasonicLine, kPanasonic},
    {u"TYPE10020", kGrandstreamRow, kGrandstream},
    {u"TYPE12000", kFiasRecord, kFias},
};

}  // namespace

std::span<const Grammar> RecordGrammars() { return kGrammars; }

}  // namespace vintrel::laws
