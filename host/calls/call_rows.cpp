#include "host/calls/call_rows.h"

#include <algorithm>
#include <array>

#include "host/text.h"

namespace vintrel::host {
namespace {

/// Fields that are filled up with zeros. Those of a telephone number or of an account code belong to it.
constexpr bool IsFilledUp(CallField field) {
    return field == CallField::User || field == CallField::Line || field == CallField::Duration ||
           field == CallField::Unity;
}
constexpr bool IsNumber(CallField field) { return field == CallField::Duration || field == CallField::Unity; }

/// Up to three fields with a mark between them, without a heap allocation.
class Joined {
 public:
    Joined& Add(std::u16string_view part) {
        end_ = std::copy_n(part.data(), std::min<std::size_t>(part.size(), 4), end_);
        return *this;
    }
    Joined& Add(char16_t mark) {
        *end_++ = mark;
        return *this;
    }
    std::u16string_view View() const { return {text_.data(), static_cast<std::size_t>(end_ - text_.data())}; }

 private:
    std::array<char16_t, 16> text_{};
    char16_t* end_ = text_.data();
};

void JoinDate(const CallLayout& layout, std::u16string_view record, Values values, Joined& joined) {
    const std::u16string_view day = layout.Cut(record, CallField::Day);
    const std::u16string_view month = layout.Cut(record, CallField::Month);
    const std::u16string_view year = layout.Cut(record, CallField::Year);
    if (values == Values::Plain)
        joined.Add(u"20").Add(year).Add(u'-').Add(month).Add(u'-').Add(day);
    else
        joined.Add(day).Add(u'.').Add(month).Add(u'.').Add(year);
}

void JoinTime(const CallLayout& layout, std::u16string_view record, Joined& joined) {
    joined.Add(layout.Cut(record, CallField::Hour)).Add(u':').Add(layout.Cut(record, CallField::Minute));
}

}  // namespace

std::u16string_view WithoutZeros(std::u16string_view text) {
    while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
    while (text.size() > 1 && text[0] == u'0' && text[1] != u' ') text.remove_prefix(1);
    return text;
}

CallStart StartOf(const CallLayout& layout, std::u16string_view record, Values values) {
    Joined date;
    Joined time;
    JoinDate(layout, record, values, date);
    JoinTime(layout, record, time);
    return {ToUtf8(date.View()), ToUtf8(time.View())};
}

Column CallRows::ColumnOf(CallField field, std::string_view title, unsigned rank) const {
    const bool number = values_ == Values::Plain && IsNumber(field);
    return {.title = std::string(title), .width = layout_.Length(field), .rank = rank, .number = number};
}

std::vector<Column> CallRows::Columns() const {
    constexpr std::size_t kKind = 6;
    constexpr std::size_t kTime = 5;
    const std::size_t date = values_ == Values::Plain ? 10 : 8;
    return {{.title = "Date", .width = date},
            {.title = "Time", .width = kTime},
            {.title = "Call", .width = kKind},
            ColumnOf(CallField::Type, "Type", 5),  // "Call" says it in words
            ColumnOf(CallField::User, "User", 0),
            ColumnOf(CallField::Line, "Line", 1),
            ColumnOf(CallField::Number, "Number", 0),
            ColumnOf(CallField::Duration, "Duration", 0),
            ColumnOf(CallField::Unity, "Unity", 0),
            ColumnOf(CallField::UserCode, "UserCode", 2),
            ColumnOf(CallField::Info, "Info", 6),
            ColumnOf(CallField::PtyNumber, "PTYNumber", 3),
            ColumnOf(CallField::MacAddress, "MacAddress", 4)};
}

void CallRows::WriteField(std::u16string_view record, CallField field, RecordWriter& writer) const {
    const std::u16string_view value = layout_.Cut(record, field);
    writer.Cell(values_ == Values::Plain && IsFilledUp(field) ? WithoutZeros(value) : value);
}

void CallRows::Write(std::u16string_view record, RecordWriter& writer) const {
    Joined date;
    Joined time;
    JoinDate(layout_, record, values_, date);
    JoinTime(layout_, record, time);
    writer.Cell(date.View());
    writer.Cell(time.View());
    writer.Cell(CallKind(layout_.Cut(record, CallField::Type)));
    for (const CallField field :
         {CallField::Type, CallField::User, CallField::Line, CallField::Number, CallField::Duration, CallField::Unity,
          CallField::UserCode, CallField::Info, CallField::PtyNumber, CallField::MacAddress})
        WriteField(record, field, writer);
}

}  // namespace vintrel::host
