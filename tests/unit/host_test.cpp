// The reference host, text and command line: what people type, and what they read.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/failure.h"
#include "host/options.h"
#include "host/record_writer.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

TEST(HostText, KeepsEveryByteInReadableFormAndOnTheWayToTheServerAndBack) {
    EXPECT_EQ(Readable("\2PS|\3\r\x80\xE9 <I>5<cr>"), "<STX>PS|<ETX><CR><x80>\u00E9 <I>5<LT>cr>");
    EXPECT_EQ(FromReadable("<stx>10<x0D>"), std::string("\2") + "10\r");
    std::string every;
    for (int byte = 0; byte < 256; ++byte) ((every += static_cast<char>(byte)) += '<') += "x4";
    every += "<LT><<STX>><x00>";
    EXPECT_EQ(FromReadable(Readable(every)), every);
    EXPECT_EQ(ToBytes(FromBytes(every)), every);
    EXPECT_EQ(ToBytes(u"\u00FF\u0142"), "\xFF?");  // a letter that no exchange knows
    EXPECT_EQ(FromUtf8(ToUtf8(u"Zo\u00EB \u20AC \U0001F511")), u"Zo\u00EB \u20AC \U0001F511");
    EXPECT_EQ(FromUtf8("\xE9\xC3").size(), 2U);  // malformed bytes are taken one by one
}

constexpr Option kKnown[] = {{"--model", "CODE", "which"}, {"--seconds", "N", "how long"}, {"--verbose", "", "more"}};

TEST(Options, ReadsValuesFlagsAndWordsInAnyOrder) {
    const std::vector<std::string> line{"in.txt", "--model=TYPE10001", "--verbose", "--seconds", "30"};
    const Options options(kKnown, "the file", line);
    EXPECT_EQ(options.Require("--model"), "TYPE10001");
    EXPECT_EQ(options.Number("--seconds", 5, 0, 60), 30U);
    EXPECT_TRUE(options.Has("--verbose"));
    EXPECT_EQ(options.Word(), "in.txt");
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{{"-"}, {"--", "-x"}})
        EXPECT_EQ(Options(kKnown, "the file", words).Word(), words.back());
}

TEST(Options, RefusesWhatItCannotMean) {
    for (const std::vector<std::string>& line : std::vector<std::vector<std::string>>{
             {"--modle", "x"}, {"--model"}, {"--verbose=1"}, {"--model", "a", "--model", "b"}})
        EXPECT_THROW(Options(kKnown, "", line), Failure) << line[0];
    // A word that no option takes would be dropped.
    EXPECT_THROW(Options(kKnown, "", std::vector<std::string>{"--model", "a", "Rossi"}), Failure);
    EXPECT_THROW(Options(kKnown, "the file", std::vector<std::string>{"a", "b"}), Failure);
    EXPECT_THROW(Options(kKnown, "the file", std::vector<std::string>{}), Failure);
    for (const char* const number : {"", "x", "-1", "61", "3s", "99999999999"}) {
        const std::vector<std::string> line{"--seconds", number};
        EXPECT_THROW(Options(kKnown, "", line).Number("--seconds", 0, 0, 60), Failure) << number;
    }
    EXPECT_THROW(Options(kKnown, "", std::vector<std::string>{}).Require("--model"), Failure);
}

template <typename Text>
std::string Written(const Presentation& presentation, std::vector<Column> columns,
                    const std::vector<std::vector<Text>>& records) {
    std::string text;
    Output output([&](std::string_view piece) { text += piece; });
    RecordWriter writer(presentation, std::move(columns), output);
    writer.Begin();
    for (const auto& record : records) {
        for (const Text cell : record) writer.Cell(cell);
        writer.EndRecord();
    }
    output.Flush();
    return text;
}

TEST(RecordWriter, KeepsTheColumnsAfterACellThatIsTooWide) {
    const std::vector<std::vector<std::string_view>> records{
        {"a", "long one", "c"}, {"a", "", "c"}, {"a", "\u00E9\u00E9", "c"}, {"a", "b", "c"}};
    EXPECT_EQ(Written({}, {{"A", 2}, {"B", 2}, {"C", 2}}, records),
              "A   B   C\n--  --  --\na   long one  c\na       c\na   \u00E9\u00E9  c\na   b   c\n");
}

TEST(RecordWriter, AlignsQuotesAndEscapesPerFormat) {
    const std::vector<Column> columns{{"User", 5}, {"Guest Name", 4}};
    const std::vector<std::vector<std::u16string_view>> records{{u"  201 ", u"Zo\u00EB \"Z\", \\ \u0002"}, {u"7"}};
    EXPECT_EQ(Written({}, columns, records),
              "User   Guest Name\n-----  ----------\n201    Zo\u00EB \"Z\", \\ <STX>\n7\n");
    EXPECT_EQ(Written({.format = Format::Csv}, columns, records),
              "User,Guest Name\n201,\"Zo\u00EB \"\"Z\"\", \\ <STX>\"\n7,\n");
    EXPECT_EQ(Written({.format = Format::Json}, columns, records),
              "{\"user\":\"201\",\"guest_name\":\"Zo\u00EB \\\"Z\\\", \\\\ \\u0002\"}\n"
              "{\"user\":\"7\",\"guest_name\":\"\"}\n");
}

TEST(RecordWriter, LeavesOutWhatMattersLeastWhereTheTableIsTooWide) {
    const std::vector<Column> columns{{.title = "Time", .width = 5},
                                      {.title = "Detail", .width = 10, .narrow = 6},
                                      {.title = "Line", .width = 5, .rank = 1},
                                      {.title = "Mac", .width = 17, .rank = 2}};
    const std::vector<std::vector<std::string_view>> records{{"07:30", "out", "00003", "02-00"}};
    const auto width = [&](std::size_t most) {
        const std::string table = Written({.width = most}, columns, records);
        return table.substr(0, table.find('\n'));
    };
    EXPECT_EQ(width(43), "Time   Detail      Line   Mac");
    EXPECT_EQ(width(42), "Time   Detail     Line   Mac") << "narrower first";
    EXPECT_EQ(width(38), "Time   Detail  Line");
    EXPECT_EQ(width(19), "Time   Detail") << "what has no rank stays, however narrow";
    EXPECT_EQ(Written({.width = 3}, columns, records), "Time   Detail\n-----  ------\n07:30  out\n");
}

TEST(RecordWriter, SeparatesByOtherMarksAndWritesNumbersAsNumbers) {
    const std::vector<Column> columns{{.title = "A", .width = 1}, {.title = "N", .width = 1, .number = true}};
    const std::vector<std::vector<std::string_view>> records{{"a;b,c", "65"}, {"", ""}};
    EXPECT_EQ(Written({.format = Format::Csv, .separator = ';'}, columns, records), "A;N\n\"a;b,c\";65\n;\n");
    EXPECT_EQ(Written({.format = Format::Json}, columns, records),
              "{\"a\":\"a;b,c\",\"n\":65}\n{\"a\":\"\",\"n\":null}\n");
}

}  // namespace
}  // namespace vintrel::host
