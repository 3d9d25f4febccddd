// Records on their way out: an aligned table, CSV or JSON lines, in UTF-8, as they come.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vintrel::host {

enum class Format { Table, Csv, Json };
/// @throws Failure (Usage) for a word that is none of "table", "csv", "json".
Format ParseFormat(std::string_view word);

/// Collects what is written and hands it on in large pieces.
class Output {
 public:
    using Write = std::function<void(std::string_view)>;
    explicit Output(Write write) : write_(std::move(write)) { text_.reserve(kPiece + kPiece / 4); }
    ~Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    std::string& Text() { return text_; }  ///< to append to
    void FlushWhenLarge() {
        if (text_.size() >= kPiece) Flush();
    }
    void Flush();

 private:
    static constexpr std::size_t kPiece = std::size_t{1024} * 1024;
    Write write_;
    std::string text_;
};

struct Column {
    std::string title;  ///< the heading; in lower case the key of the JSON lines
    std::size_t width;  ///< of the widest value; values beyond it push the row out
};

/// Writes one record after the other; every record has a cell per column.
class RecordWriter {
 public:
    RecordWriter(Format format, std::vector<Column> columns, Output& output);

    /// The heading, where the format has one.
    void Begin();
    /// The next cell. Blanks at its ends do not count; control characters are shown by name (in JSON they are escaped).
    void Cell(std::u16string_view text);
    void Cell(std::string_view utf8);
    void EndRecord();

 private:
    template <typename Character>
    void Add(std::basic_string_view<Character> text);
    template <typename Character>
    bool AddToRow(std::basic_string_view<Character> text);
    void OpenCell();
    void CloseTableCell(std::size_t length);

    Format format_;
    std::vector<Column> columns_;
    std::vector<std::string> json_heads_;  ///< what stands before each value
    Output& output_;
    std::size_t next_ = 0;
    std::size_t blanks_ = 0;  ///< owed before the next table cell

    bool in_row_;  ///< of a table, while all its cells fit their columns
    std::string row_;
    std::vector<std::size_t> starts_;  ///< of the columns in the row
    std::size_t row_end_ = 0;          ///< of its last cell that is not empty
};

/// A small table whose columns are as wide as their values.
void WriteRecords(Format format, const std::vector<std::string>& titles,
                  const std::vector<std::vector<std::string>>& records, Output& output);

}  // namespace vintrel::host
