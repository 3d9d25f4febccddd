#include "host/exchange/records.h"

#include <algorithm>

#include "host/exchange/lines.h"
#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

std::string IntegralFrame(std::string_view command, unsigned room, const std::string& rest) {
    return Framed(std::string(command) + Digits(room, 5) + rest);
}

/// A hotel frame: the room in field 2, its kind in field 7, what it says in field 8.
std::string MitelHotelFrame(unsigned room, std::string_view kind, std::string_view value, const CivilTime& t) {
    return "01\f" + std::to_string(room) + "\f" + Date(t, "dmy", "") + "\f" + Digits(t.hour, 2) + Digits(t.minute, 2) +
           "\f\f\f" + std::string(kind) + "\f" + std::string(value) + "\f\v\3\r\n";
}

std::string_view ReportCode(RoomReport report) {
    return report == RoomReport::Clean ? "0011" : report == RoomReport::NotClean ? "0022" : "0033";
}

}  // namespace

ExchangeRecords::ExchangeRecords(std::string_view code) : family_(FamilyOf(code)) {}

ExchangeRecords::Family ExchangeRecords::FamilyOf(std::string_view code) {
    struct Row {
        std::string_view code;
        Family family;
    };
    // clang-format off
    static constexpr Row kRows[] = {
        {"TYPE10001", Family::Integral},
        {"TYPE10002", Family::Integral},
        {"TYPE10003", Family::Integral2},
        {"TYPE10004", Family::Mitel},
        {"TYPE10005", Family::Mitel},
        {"TYPE10006", Family::MitelHotel},
        {"TYPE10007", Family::Integral},
        {"TYPE10008", Family::MitelHotel},
        {"TYPE10009", Family::Alcatel},
        {"TYPE10010", Family::Algoral},
        {"TYPE10011", Family::Mitel},
        {"TYPE10012", Family::Innovaphone},
        {"TYPE10013", Family::Wildix},
        {"TYPE10014", Family::MitelHotel},
        {"TYPE10015", Family::Mitel},
        {"TYPE10016", Family::MitelHotel},
        {"TYPE10017", Family::IpOffice},
        {"TYPE10018", Family::PanasonicCalls},
        {"TYPE10019", Family::Panasonic},
        {"TYPE10020", Family::Grandstream},
        {"TYPE12000", Family::Fias},
    };
    // clang-format on
    for (const Row& row : kRows)
        if (row.code == code) return row.family;
    throw Failure(ExitCode::Usage,
                  std::string(code) + " cannot be simulated: it is not known what it says on its link");
}

std::string ExchangeRecords::Call(const SampleCall& sample, const CivilTime& time) {
    constexpr std::size_t kLongestNumber = 16;
    ++serial_;
    SampleCall call = sample;
    call.number.resize(std::min(call.number.size(), kLongestNumber));
    switch (family_) {
        case Family::Integral: return IntegralCall(call, time);
        case Family::Integral2: return Integral2Call(call, time);
        case Family::Mitel:
        case Family::MitelHotel: return MitelCall(call, time, serial_);
        case Family::Alcatel: return AlcatelCall(call, time);
        case Family::Algoral: return AlgoralCall(call, time);
        case Family::Innovaphone: return InnovaphoneCall(call, time, serial_);
        case Family::Wildix: return WildixCall(call, time, serial_);
        case Family::IpOffice: return IpOfficeLine(call, time, "", serial_);
        case Family::Panasonic:
        case Family::PanasonicCalls:
            return PanasonicLine(call.room, (call.outgoing ? "" : "<I>") + call.number, time, &call);
        case Family::Grandstream: return GrandstreamRecord(call, time, serial_);
        case Family::Fias: break;
    }
    // The PMS link posts what is charged; calls from outside are not.
    if (!call.outgoing) return {};
    return Framed("PS|RN" + std::to_string(call.room) + "|PTT|MP" + std::to_string(call.units) + "|" + FiasTime(time) +
                  "P#" + std::to_string(serial_) + "|DD" + call.number + "|DU" + std::to_string(call.seconds) + "|");
}

std::string ExchangeRecords::Room(unsigned room, RoomReport report, const CivilTime& time) {
    ++serial_;
    const std::string digits = std::to_string(room);
    switch (family_) {
        case Family::Integral: return IntegralFrame("08", room, std::string(ReportCode(report)) + "1");
        case Family::MitelHotel:
            return MitelHotelFrame(room, "25",
                                   report == RoomReport::Clean      ? "2"
                                   : report == RoomReport::NotClean ? "1"
                                                                    : "9",
                                   time);
        case Family::IpOffice:
            return IpOfficeLine({true, room, "0041448001122", 4, 0, 5}, time, ReportCode(report), serial_);
        case Family::Panasonic:
            return PanasonicLine(room,
                                 report == RoomReport::Clean      ? "Cleaned up"
                                 : report == RoomReport::NotClean ? "Not cleaned"
                                                                  : "Alarm",
                                 time, nullptr);
        case Family::Grandstream:
            return GrandstreamLine({.from = digits,
                                    .to = "*35" + std::string(ReportCode(report).substr(2)),
                                    .context = "pms-status",
                                    .name = "\"Room " + digits + "\" <" + digits + ">",
                                    .channel = "PJSIP/" + digits + "-000000a1",
                                    .application = "ReadExten",
                                    .data = "KEY,pms-status,,,",
                                    .disposition = "ANSWERED",
                                    .direction = "Internal",
                                    .seconds = 8},
                                   time, serial_);
        case Family::Fias:
            return Framed("RE|RN" + digits +
                          (report == RoomReport::Clean      ? "|RS3|"
                           : report == RoomReport::NotClean ? "|RS1|"
                                                            : "|RS5|"));
        case Family::Integral2:
        case Family::Mitel:
        case Family::Alcatel:
        case Family::Algoral:
        case Family::PanasonicCalls:
        case Family::Innovaphone:  // its rooms dial numbers that the configuration names
        case Family::Wildix: break;
    }
    return {};
}

std::string ExchangeRecords::WakeUpResult(unsigned room, bool answered, const CivilTime& time) {
    ++serial_;
    const std::string digits = std::to_string(room);
    switch (family_) {
        case Family::Integral: return IntegralFrame("07", room, answered ? "1" : "2");
        case Family::MitelHotel: return MitelHotelFrame(room, "7", "1", time);
        case Family::Innovaphone:
            return R"(<cdr guid=")" + Digits(serial_, 32) + R"(" sys="PBX" e164=")" + digits +
                   R"(" h323="Hotel" dir="to"><event msg=")" + (answered ? "conn-from" : "rel-to") +
                   R"(" time="4" type="ext"/></cdr>)" + "\r\n";
        case Family::Panasonic:
            return PanasonicLine(room, answered ? "Timed Reminder/Answer" : "Timed Reminder/No Answer", time, nullptr);
        case Family::Grandstream:
            return GrandstreamLine({.from = "",
                                    .to = digits,
                                    .context = "from-internal",
                                    .name = "\"Wake Up Call\" <7777>",
                                    .channel = "Local/" + digits + "@from-internal-00000000;1",
                                    .to_channel = "PJSIP/" + digits + "-00000b00",
                                    .application = "Dial",
                                    .data = "PJSIP/" + digits + ",40,b(callee-handler^s^1)",
                                    .disposition = answered ? "ANSWERED" : "NO ANSWER",
                                    .direction = "Internal",
                                    .seconds = answered ? 18U : 0U},
                                   time, serial_);
        case Family::Fias: return Framed("WA|RN" + digits + "|" + FiasTime(time) + (answered ? "ASOK|" : "ASNR|"));
        case Family::Integral2:
        case Family::Mitel:
        case Family::Alcatel:
        case Family::Algoral:
        case Family::Wildix:
        case Family::PanasonicCalls:
        case Family::IpOffice: break;
    }
    return {};
}

std::string ExchangeRecords::WakeUpSetting(unsigned room, std::string_view hhmm, const CivilTime& time) const {
    if (family_ == Family::Integral) return IntegralFrame("08", room, hhmm.empty() ? "00002" : std::string(hhmm) + "1");
    if (family_ != Family::Fias) return {};
    if (hhmm.empty()) return Framed("WC|RN" + std::to_string(room) + "|DA" + Date(time, "ymd", "") + "|");
    return Framed("WR|RN" + std::to_string(room) + "|DA" + Date(time, "ymd", "") + "|TI" + std::string(hhmm) + "00|");
}

std::string ExchangeRecords::Guest(unsigned room, bool arrives, std::string_view name, const CivilTime& time) const {
    if (family_ == Family::Panasonic) return PanasonicLine(room, arrives ? "Check in" : "Check out", time, nullptr);
    if (family_ != Family::Fias) return {};
    return Framed((arrives ? "GI|RN" : "GO|RN") + std::to_string(room) +
                  (arrives ? "|GN" + std::string(name) + "|" : "|") + FiasTime(time));
}

}  // namespace vintrel::host
