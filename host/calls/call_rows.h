// Calls as rows of a table or file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/calls/call_layout.h"
#include "host/record_writer.h"

namespace vintrel::host {

/// How dates and numbers are written.
enum class Values : std::uint8_t {
    Exchange,  ///< as they stand in the record: 04.03.24, 00302, 00065
    Plain,     ///< 2024-03-04, 302, 65
};

/// Day and time of a call.
struct CallStart {
    std::string date;
    std::string time;
};
CallStart StartOf(const CallLayout& layout, std::u16string_view record, Values values);

/// Without blanks and zeros in front.
std::u16string_view WithoutZeros(std::u16string_view text);

class CallRows {
 public:
    CallRows(const CallLayout& layout, Values values) : layout_(layout), values_(values) {}

    std::vector<Column> Columns() const;
    /// Fills the cells of one call. `record` has the full length.
    void Write(std::u16string_view record, RecordWriter& writer) const;

    /// A column of a field: its heading, and when it is left out (see Column).
    Column ColumnOf(CallField field, std::string_view title, unsigned rank) const;
    void WriteField(std::u16string_view record, CallField field, RecordWriter& writer) const;

 private:
    const CallLayout& layout_;
    Values values_;
};

}  // namespace vintrel::host
