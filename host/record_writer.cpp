#include "host/record_writer.h"

#include <algorithm>
#include <utility>

#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::size_t kGap = 2;

template <typename Character>
std::basic_string_view<Character> WithoutBlanks(std::basic_string_view<Character> text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

void Append(std::string& out, char character) { out += character; }
void Append(std::string& out, char16_t character) {
    if (character < 0x80)
        out += static_cast<char>(character);
    else
        AppendUtf8(out, character);
}

template <typename Character>
bool IsControl(Character character) {
    return character >= 0 && character < ' ';
}

/// A control character by its name, as it is shown everywhere.
void AppendName(std::string& out, char16_t control) {
    const char byte = static_cast<char>(control);
    out += Readable(std::string_view(&byte, 1));
}

template <typename Character>
void AppendShown(std::string& out, std::basic_string_view<Character> text) {
    for (const Character character : text) {
        if (IsControl(character))
            AppendName(out, static_cast<char16_t>(character));
        else
            Append(out, character);
    }
}

template <typename Character>
void AppendCsv(std::string& out, std::basic_string_view<Character> text, char separator) {
    const auto mark = static_cast<Character>(separator);
    const bool quoted = std::any_of(text.begin(), text.end(), [mark](Character c) { return c == mark || c == '"'; });
    if (quoted) out += '"';
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') out += '"';
        AppendShown(out, text.substr(i, 1));
    }
    if (quoted) out += '"';
}

template <typename Character>
void AppendJson(std::string& out, std::basic_string_view<Character> text) {
    constexpr std::string_view kHex = "0123456789abcdef";
    for (const Character character : text) {
        if (character == '"' || character == '\\') out += '\\';
        if (IsControl(character))
            ((out += "\\u00") += static_cast<char>('0' + character / 16)) +=
                kHex[static_cast<std::size_t>(character) % 16];
        else
            Append(out, character);
    }
}

/// Copies text of ASCII without control characters. @return false, with anything copied, for any other text.
template <typename Character>
bool CopyPlain(char* to, std::basic_string_view<Character> text) {
    bool plain = true;
    for (const Character character : text) {
        plain &= character >= ' ' && character < 0x7F;
        *to++ = static_cast<char>(character);
    }
    return plain;
}

/// Appends text that needs no treatment: ASCII without control characters, quotes, backslashes and separators.
/// @return false, with nothing appended, for any other text.
template <typename Character>
bool AppendPlain(std::string& out, std::basic_string_view<Character> text, Format format, char separator) {
    const std::size_t before = out.size();
    out.resize(before + text.size());
    bool plain = CopyPlain(out.data() + before, text);
    const std::string_view added = std::string_view(out).substr(before);
    const char special[] = {separator, '"', '\\', '\0'};
    if (format != Format::Table) plain = plain && added.find_first_of(special) == std::string_view::npos;
    if (!plain) out.resize(before);
    return plain;
}

/// Characters that take a place on the line.
std::size_t ShownLength(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(
        utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

}  // namespace

RecordWriter::RecordWriter(const Presentation& presentation, std::vector<Column> columns, Output& output)
    : format_(presentation.format),
      separator_(presentation.separator),
      columns_(std::move(columns)),
      hidden_(columns_.size()),
      output_(output),
      in_row_(format_ == Format::Table) {
    for (Column& column : columns_) column.width = std::max(column.width, ShownLength(column.title));
    if (format_ == Format::Table && presentation.width > 0) Fit(presentation.width);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        std::string key = columns_[i].title;
        for (char& c : key) c = c == ' ' ? '_' : c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
        starts_.push_back(row_.size());
        if (!hidden_[i]) row_.append(columns_[i].width + kGap, ' ');
        json_heads_.push_back((json_heads_.empty() ? "{\"" : ",\"") + key + (columns_[i].number ? "\":" : "\":\""));
    }
}

void RecordWriter::Fit(std::size_t width) {
    std::size_t total = 0;
    for (const Column& column : columns_) total += column.width + kGap;
    for (Column& column : columns_) {
        if (total <= width + kGap || column.narrow == 0 || column.narrow >= column.width) continue;
        const std::size_t cut = std::min(total - width - kGap, column.width - column.narrow);
        column.width -= cut;
        total -= cut;
    }
    while (total > width + kGap) {
        const auto rank = [&](std::size_t i) { return hidden_[i] ? 0U : columns_[i].rank; };
        std::size_t first = 0;
        for (std::size_t i = 0; i < columns_.size(); ++i)
            if (rank(i) > rank(first)) first = i;
        if (rank(first) == 0) return;
        hidden_[first] = 1;
        total -= columns_[first].width + kGap;
    }
}

std::string RecordWriter::LeftOut() const {
    std::string titles;
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (hidden_[i]) titles.append(titles.empty() ? "" : ", ").append(columns_[i].title);
    return titles;
}

void RecordWriter::Begin() {
    if (format_ == Format::Json) return;
    for (const Column& column : columns_) Cell(std::string_view(column.title));
    EndRecord();
    if (format_ == Format::Csv) return;
    for (const Column& column : columns_) Cell(std::string_view(std::string(column.width, '-')));
    EndRecord();
}

void RecordWriter::OpenCell() {
    std::string& out = output_.Text();
    if (format_ == Format::Json) {
        out += json_heads_[next_];
    } else if (format_ == Format::Csv) {
        if (next_ > 0) out += separator_;
    } else {
        out.append(std::exchange(blanks_, 0), ' ');
    }
}

void RecordWriter::CloseTableCell(std::size_t length) {
    const std::size_t width = columns_[next_].width;
    blanks_ += (length < width ? width - length : 0) + kGap;
}

/// Most rows of a table have short, plain cells: they are laid out in a row of blanks, without a look at the output.
template <typename Character>
bool RecordWriter::AddToRow(std::basic_string_view<Character> text) {
    if (!in_row_) return false;
    const std::size_t start = starts_[next_];
    if (text.size() <= columns_[next_].width && CopyPlain(row_.data() + start, text)) {
        if (!text.empty()) row_end_ = start + text.size();
        return true;
    }
    in_row_ = false;
    blanks_ = start - row_end_;
    output_.Text().append(row_, 0, row_end_);
    row_.assign(row_.size(), ' ');
    return false;
}

template <typename Character>
void RecordWriter::Add(std::basic_string_view<Character> text) {
    if (next_ == columns_.size()) return;
    if (hidden_[next_] != 0) return void(++next_);
    text = WithoutBlanks(text);
    if (!AddToRow(text)) {
        if (format_ != Format::Table || !text.empty()) OpenCell();
        std::string& out = output_.Text();
        const std::size_t before = out.size();
        const bool plain = AppendPlain(out, text, format_, separator_);
        if (format_ == Format::Json) {
            if (!plain) AppendJson(out, text);
            if (!columns_[next_].number)
                out += '"';
            else if (text.empty())
                out += "null";
        } else if (format_ == Format::Csv) {
            if (!plain) AppendCsv(out, text, separator_);
        } else {
            if (!plain) AppendShown(out, text);
            CloseTableCell(plain ? text.size() : ShownLength(std::string_view(out).substr(before)));
        }
    }
    ++next_;
}

void RecordWriter::Cell(std::u16string_view text) { Add(text); }
void RecordWriter::Cell(std::string_view utf8) { Add(utf8); }

void RecordWriter::EndRecord() {
    while (next_ < columns_.size()) Cell(std::string_view());
    std::string& out = output_.Text();
    if (in_row_) {
        out.append(row_, 0, row_end_);
        std::fill_n(row_.begin(), row_end_, ' ');
    }
    if (format_ == Format::Json) out += '}';
    out += '\n';
    next_ = 0;
    blanks_ = 0;
    row_end_ = 0;
    in_row_ = format_ == Format::Table;
    output_.FlushWhenLarge();
}

std::string WriteRecords(const Presentation& presentation, std::vector<Column> columns,
                         const std::vector<std::vector<std::string>>& records, Output& output) {
    for (const std::vector<std::string>& record : records)
        for (std::size_t i = 0; i < columns.size() && i < record.size(); ++i)
            columns[i].width = std::max(columns[i].width, ShownLength(record[i]));
    RecordWriter writer(presentation, std::move(columns), output);
    writer.Begin();
    for (const std::vector<std::string>& record : records) {
        for (const std::string& cell : record) writer.Cell(std::string_view(cell));
        writer.EndRecord();
    }
    output.Flush();
    return writer.LeftOut();
}

}  // namespace vintrel::host
