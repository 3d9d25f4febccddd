#include "host/link/event.h"

#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::size_t kRoomStart = 3;
constexpr std::size_t kRoomLength = 5;
constexpr std::size_t kAfterRoom = kRoomStart + kRoomLength;

std::string Part(std::u16string_view text, std::size_t start, std::size_t length) {
    return start < text.size() ? ToUtf8(text.substr(start, length)) : std::string();
}

/// Without leading zeros, as people call the room.
std::string RoomOf(const std::string& digits) {
    const std::size_t first = digits.find_first_not_of('0');
    return first == std::string::npos ? "0" : digits.substr(first);
}

long NumberOf(const std::string& digits) { return static_cast<long>(ParseNumber(digits).value_or(0)); }

}  // namespace

EventWriter::EventWriter(const CallLayout& layout, const Presentation& presentation, Values values, Output& output)
    : layout_(layout),
      values_(values),
      rows_(layout, values),
      writer_(presentation,
              {{.title = "Time", .width = 23},
               {.title = "Event", .width = 12},
               {.title = "Room", .width = 5},
               {.title = "Detail", .width = 24, .narrow = 6},  // what is longer stands where other events have nothing
               {.title = "When", .width = values == Values::Plain ? 16U : 14U, .rank = 1},
               rows_.ColumnOf(CallField::Number, "Number", 0),
               rows_.ColumnOf(CallField::Duration, "Duration", 0),
               rows_.ColumnOf(CallField::Unity, "Unity", 2),
               rows_.ColumnOf(CallField::Line, "Line", 3),
               rows_.ColumnOf(CallField::UserCode, "UserCode", 4),
               rows_.ColumnOf(CallField::PtyNumber, "PTYNumber", 5),
               rows_.ColumnOf(CallField::MacAddress, "MacAddress", 6)},
              output) {
    writer_.Begin();
}

void EventWriter::Head(const Moment& moment, const Event& event) {
    writer_.Cell(std::string_view(moment.stamp));
    writer_.Cell(std::string_view(event.name));
    writer_.Cell(std::string_view(event.room));
    writer_.Cell(std::string_view(event.detail));
}

void EventWriter::Write(const Moment& moment, const Event& event) {
    Head(moment, event);
    writer_.EndRecord();
}

void EventWriter::WriteCall(const Moment& moment, std::u16string_view record) {
    Head(moment, {"call", KeyOf(layout_, record).room, std::string(CallKind(layout_.Cut(record, CallField::Type)))});
    const CallStart start = StartOf(layout_, record, values_);
    writer_.Cell(std::string_view(start.date + " " + start.time));
    for (const CallField field : {CallField::Number, CallField::Duration, CallField::Unity, CallField::Line,
                                  CallField::UserCode, CallField::PtyNumber, CallField::MacAddress})
        rows_.WriteField(record, field, writer_);
    writer_.EndRecord();
}

CallKey KeyOf(const CallLayout& layout, std::u16string_view record) {
    const auto cut = [&](CallField field) { return ToUtf8(layout.Cut(record, field)); };
    const CallStart start = StartOf(layout, record, Values::Exchange);
    CallKey key;
    key.room = RoomOf(std::string(Trimmed(cut(CallField::User))));
    key.user = NumberOf(key.room);
    key.date = start.date;
    key.time = start.time;
    key.duration = NumberOf(cut(CallField::Duration));
    key.outgoing = CallKind(layout.Cut(record, CallField::Type)).starts_with("out");
    return key;
}

Event RoomEvent(std::u16string_view normal) {
    const std::string state = Part(normal, kAfterRoom, 4);
    Event event{"room", RoomOf(Part(normal, kRoomStart, kRoomLength)), ""};
    if (state == "0011")
        event.detail = "clean";
    else if (state == "0022")
        event.detail = "not clean";
    else if (state == "0033")
        event = {"alarm", event.room, "room alarm"};
    else
        return {};
    return event;
}

Event WakeUpResultEvent(std::u16string_view normal) {
    const std::string status = Part(normal, kAfterRoom, 1);
    if (status.empty()) return {};
    return {"wakeup", RoomOf(Part(normal, kRoomStart, kRoomLength)),
            status == "1"   ? "answered"
            : status == "0" ? "started"
                            : "not answered"};
}

Event WakeUpSettingEvent(std::u16string_view normal) {
    const std::string mode = Part(normal, kAfterRoom, 1);
    if (mode.empty()) return {};
    const std::string time = Part(normal, kAfterRoom + 1, 4);
    const std::string date = Part(normal, kAfterRoom + 5, 4);
    if (mode == "2") return {"wakeup-set", RoomOf(Part(normal, kRoomStart, kRoomLength)), "cleared"};
    std::string detail("set");
    if (time.size() == 4 && time != "XXXX") detail.append(" ").append(time, 0, 2).append(":").append(time, 2);
    if (Trimmed(date).size() == 4 && date != "----")
        detail.append(" on ").append(date, 0, 2).append(".").append(date, 2).append(".");
    return {"wakeup-set", RoomOf(Part(normal, kRoomStart, kRoomLength)), detail};
}

}  // namespace vintrel::host
