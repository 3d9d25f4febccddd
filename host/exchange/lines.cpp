#include "host/exchange/lines.h"

#include <algorithm>

#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::string_view kStx = "\2";
constexpr std::string_view kEtx = "\3";
constexpr std::string_view kLineEnd = "\r\n";

std::string Clock(const CivilTime& t) { return Digits(t.hour, 2) + ":" + Digits(t.minute, 2); }
std::string Seconds(unsigned seconds, std::string_view first, std::string_view second, std::string_view last) {
    return Digits(seconds / 3600, 2).append(first) + Digits(seconds / 60 % 60, 2).append(second) +
           Digits(seconds % 60, 2).append(last);
}
std::string FullTime(const CivilTime& t) { return Date(t, "Ymd", "-") + " " + Clock(t) + ":" + Digits(t.second, 2); }

/// A line of fixed columns, counted from 1.
class Line {
 public:
    explicit Line(std::size_t length) : text_(length, ' ') {}
    Line& Put(std::size_t column, std::string_view text) {
        text = text.substr(0, text_.size() - (column - 1));
        text_.replace(column - 1, text.size(), text);
        return *this;
    }
    Line& Right(std::size_t column, std::size_t width, unsigned value) {
        const std::string digits = std::to_string(value);
        return Put(column + width - std::min(width, digits.size()), digits);
    }
    std::string End() const { return text_ + std::string(kLineEnd); }
    const std::string& Text() const { return text_; }

 private:
    std::string text_;
};

/// Days from 1970 to a date, for the exchanges that count seconds.
unsigned long EpochSeconds(const CivilTime& t) {
    constexpr unsigned kBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const unsigned long years = t.year - 1970;
    const bool leap = t.year % 4 == 0 && t.month > 2;  // good until 2100
    const unsigned long days = years * 365 + (years + 1) / 4 + kBefore[(t.month - 1) % 12] + t.day - 1 + (leap ? 1 : 0);
    return ((days * 24 + t.hour) * 60 + t.minute) * 60 + t.second;
}

}  // namespace

std::string Date(const CivilTime& t, std::string_view order, std::string_view mark) {
    std::string text;
    for (const char part : order) {
        if (!text.empty()) text += mark;
        if (part == 'Y')
            text += Digits(t.year, 4);
        else
            text += Digits(part == 'y' ? t.year % 100 : part == 'm' ? t.month : t.day, 2);
    }
    return text;
}
std::string IntegralCall(const SampleCall& c, const CivilTime& t) {
    const char type = c.outgoing ? '1' : c.seconds > 0 ? '0' : '7';
    Line body(51);
    body.Put(1, Digits(c.line, 5)).Put(6, Digits(c.room, 5)).Put(11, c.number).Put(27, "000000").Put(33, {&type, 1});
    body.Put(34, Digits(c.units, 4)).Put(38, Digits(c.seconds, 4)).Put(42, Date(t, "dmy", ""));
    body.Put(48, Digits(t.hour, 2)).Put(50, Digits(t.minute, 2));
    return Framed(body.Text());
}

std::string Integral2Call(const SampleCall& c, const CivilTime& t) {
    constexpr std::size_t kFront = 25;  // what the exchange prints before the columns of the record
    Line line(kFront + 80);
    line.Right(kFront + 6, 5, c.room).Put(kFront + 11, c.number).Right(kFront + 29, 3, c.line);
    line.Right(kFront + 33, 2, c.outgoing ? 1 : 0).Put(kFront + 37, Date(t, "mdy", "/")).Put(kFront + 46, Clock(t));
    return line.Right(kFront + 54, 5, c.seconds).Right(kFront + 63, 5, c.units).End();
}

std::string MitelCall(const SampleCall& c, const CivilTime& t, unsigned serial) {
    Line line(140);
    line.Right(2, 5, c.room).Put(18, c.outgoing ? "10" : c.seconds > 0 ? "21" : "22").Put(21, Date(t, "ymd", ""));
    line.Put(28, Clock(t)).Put(34, Seconds(c.seconds, "H", "M", "")).Put(43, Digits(c.line, 5));
    if (!c.outgoing) line.Put(49, "044" + Digits(c.room, 7));
    line.Right(61, 5, c.units).Put(67, c.number);
    if (c.outgoing) line.Put(108, c.number);
    return line.Put(133, Digits(serial % 1000, 3)).Put(137, Digits(serial % 10'000, 4)).End();
}

std::string AlcatelCall(const SampleCall& c, const CivilTime& t) {
    std::string number = c.number.substr(0, 16);
    number.resize(16, '.');
    Line line(144);
    line.Put(9, Digits(c.room, 3)).Put(14, c.outgoing ? "-->" : "<--").Put(19, "L" + Digits(c.line, 2));
    line.Put(22, Date(t, "dmy", "/")).Put(31, Clock(t)).Put(37, Seconds(c.seconds, ":", ":", ""));
    return line.Right(46, 5, c.units).Put(61, number).Put(78, "M").Put(107, std::string(16, '.')).End();
}

std::string AlgoralCall(const SampleCall& c, const CivilTime& t) {
    // Columns of the record are counted with the "*" of its heading, which is not always printed.
    constexpr std::size_t kShift = 4;
    Line line(300);
    line.Put(1, "Term.").Put(10, ":").Right(8 + kShift - 1, 5, c.room).Right(16 + kShift - 1, 3, c.line);
    line.Put(25 + kShift - 1, Date(t, "dmY", " ")).Put(36 + kShift - 1, Clock(t)).Right(70 + kShift - 1, 4, c.units);
    line.Put(87 + kShift - 1, Seconds(c.seconds, ":", " :", ""));
    line.Put(139 + kShift - 1, c.outgoing ? "U" : c.seconds > 0 ? "E" : "I");
    return line.Put((c.outgoing ? 175 : 244) + kShift - 1, c.number).End();
}

std::string InnovaphoneCall(const SampleCall& c, const CivilTime& t, unsigned serial) {
    const unsigned long begin = EpochSeconds(t);
    const std::string room = std::to_string(c.room);
    std::string text = "event=A:Rel&time=" + std::to_string(begin + c.seconds) + "&date=" + Date(t, "Ymd", "") + "-" +
                       Digits(t.hour, 2) + Digits(t.minute, 2) + Digits(t.second, 2) + "&ref=" + Digits(serial, 32) +
                       "&dir=in&src_if=" + (c.outgoing ? "GW1" : "PRI1") + "&dst_if=" + (c.outgoing ? "PRI1" : "GW1") +
                       "&src_cgpn=" + (c.outgoing ? room : c.number) + "&src_cdpn=" + (c.outgoing ? c.number : room) +
                       "&dst_cgpn=" + (c.outgoing ? room : c.number) + "&dst_cdpn=" + (c.outgoing ? c.number : room);
    if (c.seconds > 0)
        text += "&connect_time=" + std::to_string(begin) + "&disc_time=" + std::to_string(begin + c.seconds);
    return text + "&srv_id=02-00-5e-10-20-30\r\n";
}

std::string WildixCall(const SampleCall& c, const CivilTime& t, unsigned serial) {
    const auto quoted = [](const std::string& text) { return "\"" + text + "\","; };
    const std::string room = std::to_string(c.room);
    const std::string trunk = "SIP/BRI" + std::to_string(c.line) + "-0000" + Digits(serial, 4);
    const std::string extension = "SIP/" + room + "-0001" + Digits(serial, 4);
    const std::string& to = c.outgoing ? c.number : room;
    std::string text = quoted("") + quoted(c.outgoing ? room : c.number) + quoted(to) + quoted("users") +
                       quoted(c.outgoing ? room : c.number) + quoted(c.outgoing ? extension : trunk) +
                       quoted(c.outgoing ? trunk : extension) + quoted("Dial") + quoted("SIP/" + to + ",60,o") +
                       quoted(FullTime(t)) + (c.seconds > 0 ? quoted(FullTime(t)) : ",") + quoted(FullTime(t));
    text += std::to_string(c.seconds + 8) + "," + std::to_string(c.seconds) + ",";
    text += quoted(c.seconds > 0 ? "ANSWERED" : "NO ANSWER") + quoted("DOCUMENTATION") + quoted(std::to_string(serial));
    for (int column = 18; column < 25; ++column) text += quoted("");
    return text + "\"\"\n";
}

std::string IpOfficeLine(const SampleCall& c, const CivilTime& t, std::string_view account, unsigned serial) {
    const std::string room = std::to_string(c.room);
    const std::string called = c.outgoing ? c.number : room;
    return Date(t, "Ymd", "/") + " " + Clock(t) + ":" + Digits(t.second, 2) + "," + Seconds(c.seconds, ":", ":", "") +
           ",5," + (c.outgoing ? room : c.number) + (c.outgoing ? ",O," : ",I,") + called + "," +
           (c.outgoing ? called : "044" + Digits(c.room, 7)) + "," + std::string(account) + ",0," +
           std::to_string(1'000'200 + serial) + ",0,E" + room + ",Room " + room + ",T" + std::to_string(9000 + c.line) +
           ",Line " + std::to_string(c.line) + ".1,0,0,,,,,,,,,,,,,,10.0.0.5,20801,10.0.0.5,20804\r\n";
}

/// The number column of a printed line holds whatever the line is about.
std::string PanasonicLine(unsigned room, std::string_view text, const CivilTime& t, const SampleCall* call) {
    Line line(120);
    line.Put(1, Date(t, "dmy", "/")).Put(10, Clock(t)).Right(18, 5, room);
    if (call) {
        line.Put(24, Digits(call->line, 4)).Put(29, text).Put(85, Seconds(call->seconds, ":", "'", ""));
        line.Put(94, "EUR" + Digits(call->units, 5) + ".00");
        if (!call->outgoing && call->seconds == 0) line.Put(117, "NA");
    } else {
        line.Put(29, text);
    }
    return line.End();
}

std::string GrandstreamLine(const GrandstreamCall& c, const CivilTime& t, unsigned serial) {
    const std::string id = std::to_string(EpochSeconds(t)) + "." + std::to_string(serial);
    const std::string answer = c.disposition == "ANSWERED" ? FullTime(t) : std::string();
    std::string text;
    for (const std::string& column : {std::to_string(80'000 + serial),
                                      std::string(),
                                      c.from,
                                      c.to,
                                      c.context,
                                      c.name,
                                      c.channel,
                                      c.to_channel,
                                      c.application,
                                      c.data,
                                      FullTime(t),
                                      answer,
                                      FullTime(t),
                                      std::to_string(c.seconds + 8),
                                      std::to_string(c.seconds),
                                      c.disposition,
                                      std::string("DOCUMENTATION"),
                                      id,
                                      c.direction,
                                      c.from,
                                      c.to,
                                      std::string("s"),
                                      std::string(),
                                      std::string(),
                                      c.answered_by,
                                      std::string(),
                                      std::string(),
                                      id,
                                      c.from,
                                      std::string("DIAL"),
                                      std::string(),
                                      std::string()}) {
        if (!text.empty()) text += ",";
        text.append("'").append(column).append("'");
    }
    return text + "\n";
}

std::string GrandstreamRecord(const SampleCall& c, const CivilTime& t, unsigned serial) {
    const std::string room = std::to_string(c.room);
    GrandstreamCall row{.from = c.outgoing ? room : c.number,
                        .to = c.outgoing ? c.number : room,
                        .context = c.outgoing ? "outbound-route-1" : "ext-did-1",
                        .name = "\"Room " + room + "\" <" + room + ">",
                        .channel = c.outgoing ? "PJSIP/" + room + "-000000a1" : "PJSIP/trunk_1-000000a1",
                        .to_channel = c.outgoing ? "PJSIP/trunk_1-000000a2" : "PJSIP/" + room + "-000000a2",
                        .application = "Dial",
                        .data = "PJSIP/" + (c.outgoing ? c.number + "@trunk_1" : room),
                        .answered_by = c.seconds > 0 ? (c.outgoing ? c.number : room) : "",
                        .disposition = c.seconds > 0 ? "ANSWERED" : "NO ANSWER",
                        .direction = c.outgoing ? "Outbound" : "Inbound",
                        .seconds = c.seconds};
    return GrandstreamLine(row, t, serial);
}

std::string FiasTime(const CivilTime& t) {
    return "DA" + Date(t, "ymd", "") + "|TI" + Digits(t.hour, 2) + Digits(t.minute, 2) + Digits(t.second, 2) + "|";
}
std::string Framed(const std::string& text) { return std::string(kStx) + text + std::string(kEtx); }

}  // namespace vintrel::host
