// Records on their way out: an aligned table, CSV or JSON lines, in UTF-8, as they come.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/output.h"

namespace vintrel::host {

enum class Format { Table, Csv, Json };

/// How a command's records are written.
struct Presentation {
    Format format = Format::Table;
    char separator = ',';   ///< of CSV
    std::size_t width = 0;  ///< what a table may take; 0 for any
};

struct Column {
    std::string title;       ///< the heading; in lower case the key of the JSON lines
    std::size_t width;       ///< of the widest value; values beyond it push the row out
    unsigned rank = 0;       ///< the column of the highest one is left out first where a table is too wide; 0 never
    std::size_t narrow = 0;  ///< to what its width may be cut before any column is left out; 0 for no cut
    bool number = false;     ///< JSON lines write it without quotes
};

/// Writes one record after the other; every record has a cell per column.
class RecordWriter {
 public:
    RecordWriter(const Presentation& presentation, std::vector<Column> columns, Output& output);

    /// The heading, where the format has one.
    void Begin();
    /// The next cell. Blanks at its ends do not count; control characters are shown by name (in JSON they are escaped).
    void Cell(std::u16string_view text);
    void Cell(std::string_view utf8);
    void EndRecord();

    /// For people: which columns a narrow table does without; "" when all are there.
    std::string LeftOut() const;

 private:
    template <typename Character>
    void Add(std::basic_string_view<Character> text);
    template <typename Character>
    bool AddToRow(std::basic_string_view<Character> text);
    void OpenCell();
    void CloseTableCell(std::size_t length);
    void Fit(std::size_t width);

    Format format_;
    char separator_;
    std::vector<Column> columns_;
    std::vector<char> hidden_;             ///< of each column, whether it is left out
    std::vector<std::string> json_heads_;  ///< what stands before each value
    Output& output_;
    std::size_t next_ = 0;
    std::size_t blanks_ = 0;  ///< owed before the next table cell

    bool in_row_;  ///< of a table, while all its cells fit their columns
    std::string row_;
    std::vector<std::size_t> starts_;  ///< of the columns in the row
    std::size_t row_end_ = 0;          ///< of its last cell that is not empty
};

/// A small table whose columns are as wide as their values. @return the columns that are left out
std::string WriteRecords(const Presentation& presentation, std::vector<Column> columns,
                         const std::vector<std::vector<std::string>>& records, Output& output);

}  // namespace vintrel::host
