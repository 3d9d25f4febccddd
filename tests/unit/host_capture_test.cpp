// Captures as people bring them to the reference host, what is a call in them, and whose they are.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "host/calls/call_judge.h"
#include "host/calls/call_rows.h"
#include "host/capture/capture.h"
#include "host/capture/evidence.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

const Framing kLines{.start = "", .end = "\r\n"};
const Framing kLineFeeds{.start = "", .end = "\n"};
const Framing kMarked{.start = "\2", .end = "\3"};

/// What a capture was read as, and the bytes of the link in it; events of a log stand in brackets.
std::string Read(std::string file, const Framing& framing, std::optional<Capture::Form> form = std::nullopt) {
    std::size_t at = 0;
    Capture capture(
        [&](char* buffer, std::size_t count) {
            const std::size_t length = file.copy(buffer, std::min<std::size_t>(count, 7), at);  // a slow pipe
            at += length;
            return length;
        },
        framing, form);
    std::string bytes;
    for (LogLine line; capture.Next(line);)
        bytes += line.kind == LogLine::Kind::Note ? "[" + line.event.name + "]" : Readable(line.bytes);
    return capture.ReadAs() + ": " + bytes;
}

std::string Utf16(std::u16string_view text, bool big_endian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const std::string pair{static_cast<char>(unit >> 8U), static_cast<char>(unit & 0xFFU)};
        bytes += big_endian ? pair : std::string(pair.rbegin(), pair.rend());
    }
    return bytes;
}

TEST(Capture, ReadsEncodingsLineEndsAndFormsAsTheLinkHadThem) {
    const std::string marked = Utf16(u"\uFEFF\2GI|GNZo\u00EB|\3", false);
    const struct {
        std::string file;
        const Framing& framing;
        std::string read;
    } rows[] = {
        {"one\r\ntwo\r\n", kLines, "plain bytes: one<CR><LF>two<CR><LF>"},
        {"\xEF\xBB\xBFZo\xC3\xAB\r\n", kLines, "UTF-8 text: Zo\u00EB<CR><LF>"},
        {"Zo\xEB\r\n", kLines, "plain bytes: Zo\u00EB<CR><LF>"},
        {marked, kMarked, "UTF-16 text: <STX>GI|GNZo\u00EB|<ETX>"},
        {Utf16(u"201 a call\r\n202\r\n", true), kLines, "UTF-16 text: 201 a call<CR><LF>202<CR><LF>"},
        {"one\ntwo\n", kLines, "lines that end with <LF>: one<CR><LF>two<CR><LF>"},
        {"one\rtwo\r", kLines, "lines that end with <CR>: one<CR><LF>two<CR><LF>"},
        {"one\rtwo\r", kLineFeeds, "lines that end with <CR>: one<LF>two<LF>"},
        {"one\r\na\nb\nc\r\nd\r\n", kLines, "plain bytes: one<CR><LF>a<LF>b<LF>c<CR><LF>d<CR><LF>"},
        {"LS|DA|\r\nLA|\nLE|", kMarked,
         "lines without their framing characters: <STX>LS|DA|<ETX><STX>LA|<ETX><STX>LE|"},
        {"<stx>LS|<ETX>\n <STX>LA|<ETX>\r\n", kMarked, "control characters by name: <STX>LS|<ETX> <STX>LA|<ETX>"},
        {"201 a\n call<CR><LF>\n", kLines, "control characters by name: 201 a call<CR><LF>"},
        {"02<FF>204<FF>\n03<FF>\n", kLines,
         "control characters by name, lines that end with <LF>: 02<FF>204<FF><CR><LF>03<FF><CR><LF>"},
        {"15/11/26 <I>032777\r\n", kLines, "plain bytes: 15/11/26 <I>032777<CR><LF>"},
        {"2026-11-15 06:00:00.000 == TYPE1 A, COM1\r\n2026-11-15 06:00:00.123 <- <STX>LS|<ETX>\r\n"
         "2026-11-15 06:00:00.200 -> <ACK>\r\ncut 2026-11-15 0\r\n2026-11-15 06:00:01.000 -- lost||gone\r\n",
         kMarked, "the log of a link: <STX>LS|<ETX><ACK>[lost]"},
        {"", kLines, "plain bytes: "},
    };
    for (const auto& row : rows) EXPECT_EQ(Read(row.file, row.framing), row.read);
    // Told to be readable, nothing but the names is data.
    EXPECT_EQ(Read("201\n a call\n", kLines, Capture::Form::Readable), "control characters by name: 201 a call");
}

TEST(Decoder, PutsCutCharactersTogether) {
    const std::u16string text = u"\uFEFFa\u00EB\u20AC\U0001F511z";
    for (const std::string& file : {Utf16(text, false), Utf16(text, true), ToUtf8(text)})
        for (std::size_t step = 1; step <= file.size(); ++step) {
            Decoder decoder(EncodingOf(file));
            std::string decoded;
            for (std::size_t at = 0; at < file.size(); at += step) decoded += decoder.Decode(file.substr(at, step));
            EXPECT_EQ(decoded, ToUtf8(text.substr(1))) << "step " << step;
        }
}

/// Line 0, user 5, number 10, type 14, unity 15, duration 17, day 20, month 22, year 24, hour 26, minute 28.
CallLayout SmallLayout() {
    CallLayout layout;
    layout.body_length = 30;
    const auto place = [&](CallField field, std::size_t start, std::size_t length) {
        layout.places[static_cast<std::size_t>(field)] = {start + 1, length};
    };
    place(CallField::Line, 0, 5);
    place(CallField::User, 5, 5);
    place(CallField::Number, 10, 4);
    place(CallField::Type, 14, 1);
    place(CallField::Unity, 15, 2);
    place(CallField::Duration, 17, 3);
    std::size_t at = 20;
    for (const CallField field :
         {CallField::Day, CallField::Month, CallField::Year, CallField::Hour, CallField::Minute}) {
        place(field, at, 2);
        at += 2;
    }
    return layout;
}

TEST(WhyNoCall, FindsWhatCanBeNoCall) {
    const CallLayout layout = SmallLayout();
    const auto why = [&](std::u16string_view body) { return WhyNoCall(layout, u"\2" + std::u16string(body) + u"\3"); };
    EXPECT_EQ(why(u"00L01  302032710306529022423"
                  u"59"),
              "");
    EXPECT_EQ(why(u"000010030203  700000010170"
                  u"0000"),
              "")
        << "an exchange whose clock was never set";
    EXPECT_EQ(why(u"0000100302032710306530022423"
                  u"59"),
              "the date is none");
    EXPECT_EQ(why(u"0000100302032710306529022323"
                  u"59"),
              "the date is none");
    EXPECT_EQ(why(u"000010030203271030651 122423"
                  u"59"),
              "the date is none");
    EXPECT_EQ(why(u"0000100302032710306529022424"
                  u"00"),
              "the time is none");
    EXPECT_EQ(why(u"00001003020327103 6529022423"
                  u"59"),
              "the duration is no number");
    EXPECT_EQ(why(u"0000100302032790306529022423"
                  u"59"),
              "the type of call is none");
    EXPECT_EQ(why(u"000010030203271 306529022423"
                  u"59"),
              "the charge units are no number");
    EXPECT_EQ(why(u"05 <I00302032710306529022423"
                  u"59"),
              "the line is none");
    EXPECT_EQ(why(u"00001->  L032710306529022423"
                  u"59"),
              "the extension is none");
    EXPECT_EQ(why(u"000010030203\r710306529022423"
                  u"59"),
              "a control character stands in it");
    EXPECT_EQ(why(u"0000100302"), "a value does not fit its field");
}

TEST(CallRows, WritePlainValuesWithoutTouchingTelephoneNumbers) {
    const CallLayout layout = SmallLayout();
    const CallRows rows(layout, Values::Plain);
    std::string text;
    Output output([&](std::string_view piece) { text += piece; });
    RecordWriter writer({.format = Format::Csv}, rows.Columns(), output);
    rows.Write(
        u"\2"
        u"00L01  302003210006529022423"
        u"59\3",
        writer);
    writer.EndRecord();
    output.Flush();
    EXPECT_EQ(text, "2024-02-29,23:59,out,1,302,L01,0032,65,0,,,,\n");
}

TEST(Evidence, RanksByWhatIsUsedAndByDates) {
    const CivilTime now{.year = 2026, .month = 3, .day = 1};
    EXPECT_TRUE(IsRecent(2, 3, 26, now));
    EXPECT_TRUE(IsRecent(1, 3, 16, now));
    EXPECT_FALSE(IsRecent(28, 2, 16, now));
    EXPECT_FALSE(IsRecent(3, 4, 26, now));

    std::vector<Evidence> models{{.code = "nothing", .other = 9, .bytes = 900},
                                 {.code = "one by chance", .calls = 1, .malformed = 8, .bytes = 900, .used = 100},
                                 {.code = "shifted years", .calls = 9, .old_dates = 9, .bytes = 900, .used = 900},
                                 {.code = "the one", .calls = 8, .rejected = 1, .bytes = 900, .used = 800},
                                 {.code = "the one too", .calls = 8, .rejected = 1, .bytes = 900, .used = 800}};
    Rank(models);
    std::string order;
    for (const Evidence& model : models) order += model.code + " " + std::to_string(Fit(model)) + ", ";
    EXPECT_EQ(order, "the one 88, the one too 88, shifted years 50, one by chance 1, nothing 0, ");
    EXPECT_TRUE(Convinces(models[0]));
    EXPECT_FALSE(Convinces(models[3]));
}

}  // namespace
}  // namespace vintrel::host
