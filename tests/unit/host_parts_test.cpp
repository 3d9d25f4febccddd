// The parts of the reference host that need no Windows: frames, text, options and output.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/frames.h"
#include "host/options.h"
#include "host/output.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

const Framing kLines{.start = "", .end = "\r\n", .end2 = "", .limit = 40};
const Framing kMarked{.start = "\2", .end = "\3", .end2 = "", .limit = 40};

/// The pieces, each as its kind's letter and its readable bytes; at the end "|" and what is left.
std::string Pieces(const Framing& framing, std::string_view stream, std::size_t step) {
    FrameCutter cutter(framing);
    std::string shown;
    for (std::size_t at = 0; at < stream.size(); at += step) {
        cutter.Push(stream.substr(at, step));
        while (const auto piece = cutter.Next()) {
            constexpr std::string_view kLetters = "FLBO";
            // Loose bytes come as they arrive, so their cut depends on the step: they are shown without one.
            if (piece->kind != FrameCutter::Kind::Loose || shown.empty() || shown.back() != '~')
                shown += kLetters[static_cast<std::size_t>(piece->kind)] + Readable(piece->bytes) + " ";
            if (piece->kind == FrameCutter::Kind::Loose) shown.back() = '~';
        }
    }
    return shown + "|" + Readable(cutter.Rest());
}

struct CutCase {
    int line;
    const Framing& framing;
    std::string stream;
    std::string pieces;
};
const CutCase kCuts[] = {
    {__LINE__, kLines, "one\r\ntwo\r\n", "Fone<CR><LF> Ftwo<CR><LF> |"},
    {__LINE__, kLines, "a\rb\nc\r\r\nd", "Fa<CR>b<LF>c<CR><CR><LF> |d"},
    {__LINE__, kLines, "\r\n\r\n", "F<CR><LF> F<CR><LF> |"},
    {__LINE__, kMarked, "\2LA|\3\2LS|\3", "F<STX>LA|<ETX> F<STX>LS|<ETX> |"},
    {__LINE__, kMarked, "\2LA|\3y\2LS|\3", "F<STX>LA|<ETX> Ly~F<STX>LS|<ETX> |"},       // y: check character
    {__LINE__, kMarked, "\2LA|\3\2\2LS|\3", "F<STX>LA|<ETX> L<STX>~F<STX>LS|<ETX> |"},  // and one that is STX
    {__LINE__, kMarked, "\2half\2LS|\3", "B<STX>half F<STX>LS|<ETX> |"},
    {__LINE__, kMarked, "\5\2LS", "L<ENQ>~|<STX>LS"},
    {__LINE__, kMarked, "\3\2LS|\3", "L<ETX>~F<STX>LS|<ETX> |"},
};

TEST(FrameCutter, CutsTheSameFramesHoweverTheBytesArrive) {
    for (const CutCase& row : kCuts)
        for (const std::size_t step : {std::size_t{1}, std::size_t{2}, std::size_t{3}, row.stream.size()})
            EXPECT_EQ(Pieces(row.framing, row.stream, step), row.pieces) << "line " << row.line << " step " << step;
}

TEST(FrameCutter, GivesUpAFrameAtTheLimitAndFindsTheNext) {
    const std::string flood(500, 'x');
    EXPECT_TRUE(Pieces(kLines, flood + "\r\nnext\r\n", 7).ends_with(" Fnext<CR><LF> |"));
    EXPECT_TRUE(Pieces(kMarked, "\2" + flood + "\3\2LS|\3", 7).ends_with("F<STX>LS|<ETX> |"));
    FrameCutter cutter(kLines);
    for (int i = 0; i < 1000; ++i) {
        cutter.Push(flood);
        while (cutter.Next()) {
        }
        EXPECT_LE(cutter.Rest().size(), kLines.limit);
    }
}

TEST(FrameCutter, LetsAPromptWithoutEndBeTakenFromTheRest) {
    FrameCutter cutter(kLines);
    cutter.Push("Username: one\r\n");
    cutter.Take(std::string_view("Username: ").size());
    EXPECT_EQ(cutter.Next()->bytes, "one\r\n");
}

TEST(HostText, ShowsBytesReadablyAndReadsThemBackExactly) {
    EXPECT_EQ(Readable("\2PS|\3\r\x80\xE9 <I>5"), "<STX>PS|<ETX><CR><x80>\u00E9 <I>5");
    EXPECT_EQ(Readable("<cr> and <STX>"), "<LT>cr> and <LT>STX>");
    EXPECT_EQ(FromReadable("<stx>10<x0D>"),
              "\x02"
              "10\r");
    std::string every;
    for (int byte = 0; byte < 256; ++byte) ((every += static_cast<char>(byte)) += '<') += "x4";
    every += "<LT><<STX>><x00>";
    EXPECT_EQ(FromReadable(Readable(every)), every);
}

TEST(HostText, KeepsEveryByteOnTheWayToTheServerAndBack) {
    EXPECT_EQ(FromBytes("\xFF\xFD\x01"), u"\u00FF\u00FD\u0001");
    EXPECT_EQ(ToBytes(u"\u00FF\u0142"), "\xFF?");  // a letter that no exchange knows
    EXPECT_EQ(FromUtf8(ToUtf8(u"Zo\u00EB \u20AC \U0001F511")), u"Zo\u00EB \u20AC \U0001F511");
    EXPECT_EQ(FromUtf8("\xE9\xC3").size(), 2U);  // malformed bytes are taken one by one
}

constexpr Option kKnown[] = {{"--model", "CODE", "which"}, {"--seconds", "N", "how long"}, {"--verbose", "", "more"}};

TEST(Options, ReadsValuesFlagsAndWordsInAnyOrder) {
    const std::vector<std::string> line{"in.txt", "--model=TYPE10001", "--verbose", "--seconds", "30", "--", "-x", "-"};
    const Options options(kKnown, line);
    EXPECT_EQ(options.Require("--model"), "TYPE10001");
    EXPECT_EQ(options.Number("--seconds", 5, 0, 60), 30U);
    EXPECT_TRUE(options.Has("--verbose"));
    EXPECT_EQ(options.Words(), (std::vector<std::string>{"in.txt", "-x", "-"}));
}

TEST(Options, RefusesWhatItCannotMean) {
    const std::vector<std::string> lines[] = {
        {"--modle", "x"}, {"--model"}, {"--verbose=1"}, {"--model", "a", "--model", "b"}};
    for (const std::vector<std::string>& line : lines) EXPECT_THROW(Options(kKnown, line), Failure) << line[0];
    for (const char* const number : {"", "x", "-1", "61", "3s", "99999999999"})
        EXPECT_THROW(Options(kKnown, std::vector<std::string>{"--seconds", number}).Number("--seconds", 0, 0, 60),
                     Failure)
            << number;
    EXPECT_THROW(Options(kKnown, std::vector<std::string>{}).Require("--model"), Failure);
}

std::string Written(Format format) {
    std::string text;
    Output output([&](std::string_view piece) { text += piece; });
    RecordWriter writer(format, {{"User", 5}, {"Guest Name", 4}}, output);
    writer.Begin();
    writer.Cell(std::u16string_view(u"  201 "));
    writer.Cell(std::u16string_view(u"Zo\u00EB \"Z\", \\ \u0002"));
    writer.EndRecord();
    writer.Cell(std::string_view("7"));
    writer.EndRecord();
    output.Flush();
    return text;
}

TEST(RecordWriter, KeepsTheColumnsAfterACellThatIsTooWide) {
    std::string text;
    Output output([&](std::string_view piece) { text += piece; });
    RecordWriter writer(Format::Table, {{"A", 2}, {"B", 2}, {"C", 2}}, output);
    for (const std::string_view middle : {"long one", "", "\u00E9\u00E9", "b"}) {
        for (const std::string_view cell : {std::string_view("a"), middle, std::string_view("c")}) writer.Cell(cell);
        writer.EndRecord();
    }
    output.Flush();
    EXPECT_EQ(text, "a   long one  c\na       c\na   \u00E9\u00E9  c\na   b   c\n");
}

TEST(RecordWriter, AlignsQuotesAndEscapesPerFormat) {
    EXPECT_EQ(Written(Format::Table),
              "User   Guest Name\n"
              "-----  ----------\n"
              "201    Zo\u00EB \"Z\", \\ <STX>\n"
              "7\n");
    EXPECT_EQ(Written(Format::Csv), "User,Guest Name\n201,\"Zo\u00EB \"\"Z\"\", \\ <STX>\"\n7,\n");
    EXPECT_EQ(Written(Format::Json),
              "{\"user\":\"201\",\"guest_name\":\"Zo\u00EB \\\"Z\\\", \\\\ \\u0002\"}\n"
              "{\"user\":\"7\",\"guest_name\":\"\"}\n");
}

}  // namespace
}  // namespace vintrel::host
