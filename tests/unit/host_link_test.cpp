// The reference host's end of a link: frames, login, pacing.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "host/failure.h"
#include "host/link/address.h"
#include "host/link/frames.h"
#include "host/link/line_settings.h"
#include "host/link/link_reader.h"
#include "host/link/log_line.h"
#include "host/link/login.h"
#include "host/link/password_mask.h"
#include "host/link/patient_output.h"
#include "host/link/sender.h"
#include "host/text.h"
#include "tests/unit/host_link_answers.h"

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

TEST(FrameCutter, CutsTheSameFramesHoweverTheBytesArrive) {
    const struct {
        const Framing& framing;
        std::string stream, pieces;
    } rows[] = {
        {kLines, "one\r\ntwo\r\n", "Fone<CR><LF> Ftwo<CR><LF> |"},
        {kLines, "a\rb\nc\r\r\nd", "Fa<CR>b<LF>c<CR><CR><LF> |d"},
        {kLines, "\r\n\r\n", "F<CR><LF> F<CR><LF> |"},
        {kMarked, "\2LA|\3\2LS|\3", "F<STX>LA|<ETX> F<STX>LS|<ETX> |"},
        {kMarked, "\2LA|\3y\2LS|\3", "F<STX>LA|<ETX> Ly~F<STX>LS|<ETX> |"},       // y: check character
        {kMarked, "\2LA|\3\2\2LS|\3", "F<STX>LA|<ETX> L<STX>~F<STX>LS|<ETX> |"},  // and one that is STX
        {kMarked, "\2half\2LS|\3", "B<STX>half F<STX>LS|<ETX> |"},
        {kMarked, "\5\2LS", "L<ENQ>~|<STX>LS"},
        {kMarked, "\3\2LS|\3", "L<ETX>~F<STX>LS|<ETX> |"},
    };
    for (const auto& row : rows)
        for (const std::size_t step : {std::size_t{1}, std::size_t{2}, std::size_t{3}, row.stream.size()})
            EXPECT_EQ(Pieces(row.framing, row.stream, step), row.pieces) << "step " << step;
}

TEST(FrameCutter, GivesUpAFrameAtTheLimitAndFindsTheNextAndLetsAPromptBeTaken) {
    const std::string flood(500, 'x');
    EXPECT_TRUE(Pieces(kLines, flood + "\r\nnext\r\n", 7).ends_with(" Fnext<CR><LF> |"));
    EXPECT_TRUE(Pieces(kMarked, "\2" + flood + "\3\2LS|\3", 7).ends_with("F<STX>LS|<ETX> |"));
    FrameCutter cutter(kLines);
    cutter.Push("Username: one\r\n");
    cutter.Take(10);  // a prompt without an end
    EXPECT_EQ(cutter.Next()->bytes, "one\r\n");
    for (int i = 0; i < 1000; ++i) {
        cutter.Push(flood);
        while (cutter.Next()) {
        }
        EXPECT_LE(cutter.Rest().size(), kLines.limit);
    }
}

TEST(Login, AnswersTheNegotiationThePromptsAndNothingElse) {
    LinkAnswers answers = MitelHotel();
    Login login(answers, "hotel", "");
    EXPECT_EQ(login.Begin(), "");
    EXPECT_EQ(login.Hear("\xFF\xFB\x03Username: ")->answer, "\xFF\xFD\x01");
    EXPECT_EQ(login.Hear("\xFF\xFB\x01")->answer, "");  // another option is taken, unanswered
    EXPECT_FALSE(login.Hear("\xFF\xFB"));               // half of one is awaited
    EXPECT_FALSE(login.Hear("User"));
    EXPECT_FALSE(login.IsEcho("hotel\r\n"));
    EXPECT_EQ(login.Hear("Welcome. Username: ")->answer, "hotel\r");
    EXPECT_TRUE(login.IsEcho("hotel\r\n"));
    EXPECT_EQ(login.Hear("Password: ")->answer, "I");  // the operator gave none: the server's answer
    EXPECT_TRUE(login.IsEcho("*\r\n"));
    EXPECT_FALSE(login.IsEcho("   201 a record\r\n"));

    answers.exchange_request.clear();
    answers.user_prompt = "-";
    Login short_prompt(answers, "SMDR", "");
    EXPECT_FALSE(short_prompt.Hear("01-02-2026 half a record -"));
    EXPECT_EQ(short_prompt.Hear("-")->answer, "SMDR\r") << "one that stands alone";
}

/// A sender whose transmissions, and what becomes of its orders, are one text.
struct Sending {
    explicit Sending(const LinkAnswers& answers)
        : sender(
              answers, [this](std::string_view bytes) { (told += bytes) += " "; },
              [this](const QueuedOrder& order, Sender::Fate fate) {
                  constexpr const char* kFates[] = {"confirmed", "sent", "given up"};
                  told += "[" + order.room + " " + kFates[static_cast<std::size_t>(fate)] + "] ";
              }) {}
    std::string told;
    Sender sender;
};

TEST(Sender, SendsOneOrderAfterTheOtherAndGivesUpAfterItsRepeats) {
    const LinkAnswers answers = Integral();
    Sending link(answers);
    for (const char* const room : {"1", "2", "3"}) link.sender.Queue({room, "checkin", "order" + std::string(room)});
    link.sender.Tick(1000);
    link.sender.Tick(1100);  // waits for the confirmation
    EXPECT_EQ(link.told, "order1 ");
    link.sender.Confirmed();
    link.sender.Confirmed();  // a second one belongs to nothing
    EXPECT_FALSE(link.sender.UnderWay());
    for (std::uint64_t now = 1200; link.sender.Unsent().size() > 1; now += 10) link.sender.Tick(now);
    EXPECT_EQ(link.told, "order1 [1 confirmed] order2 order2 order2 [2 given up] ");
    link.sender.Tick(20'000);
    EXPECT_TRUE(link.sender.UnderWay());
    EXPECT_EQ(link.sender.Unsent().front().room, "3");
}

TEST(Sender, FramesAnOrderKeepsThePauseAndBeginsItAnewOnTheNextConnection) {
    LinkAnswers answers = Integral();
    answers.wait_for_confirmation = false;
    answers.before_order = "h";
    answers.after_order = "q";
    Sending link(answers);
    link.sender.Queue({"204", "checkout", "one"});
    for (std::uint64_t now = 1000; now <= 1075; now += 25) link.sender.Tick(now);
    link.sender.Disconnected();
    for (std::uint64_t now = 2000; now <= 2100; now += 25) link.sender.Tick(now);
    EXPECT_EQ(link.told, "h one h one q [204 sent] ");
    EXPECT_TRUE(link.sender.Idle());
}

/// What a link brings, as its kind's letter and its readable bytes.
std::string Read(const LinkAnswers& answers, std::string_view stream, std::size_t step) {
    LinkReader reader(answers, "hotel", "secret");
    std::string shown = Readable(reader.Begin());
    for (std::size_t at = 0; at < stream.size(); at += step) {
        reader.Push(stream.substr(at, step));
        while (const auto piece = reader.Next()) {
            constexpr std::string_view kLetters = "FEGCRLBO";
            shown += kLetters[static_cast<std::size_t>(piece->kind)] + Readable(piece->bytes) + " ";
        }
    }
    return shown + "|" + Readable(reader.DropHalfFrame());
}

TEST(LinkReader, TellsFramesFromTheLoginAndFromNoise) {
    const std::string login = "\xFF\xFB\x03Username: hotel\r\nPassword: ******\r\n 201 a call\r\n\r\nhalf";
    // All at once, as a capture holds it.
    EXPECT_EQ(Read(MitelHotel(), login, login.size()),
              Readable("G\xFF\xFB\x03 GUsername: hotel\r\n GPassword: ******\r\n F 201 a call\r\n E\r\n |half"));
    EXPECT_EQ(Read(Integral(), "\5\6\2one\3xy\6\x15z\2two\3\2", 1),
              Readable("\2\3G\5 G\6 F\2one\3 Lx Ly C\6 R\x15 Lz F\2two\3 |"));
    EXPECT_EQ(Read(Integral(), "ab\2one\2two\3", 99), Readable("\2\3Lab B\2one F\2two\3 |"));
}

TEST(PasswordMask, HidesThePasswordAndItsEchoAndNothingElse) {
    PasswordMask mask;
    EXPECT_EQ(mask.Sent("secret\r"), "<password><CR>");
    EXPECT_EQ(mask.Received("sec"), "");
    EXPECT_EQ(mask.Received("ret\r\nsecret call"), "<password><CR><LF>secret call");
    EXPECT_EQ(mask.Sent("I"), "<password>");
    EXPECT_EQ(mask.Received("\r\nI"), "<CR><LF>I") << "stars or nothing: no echo";
    mask.Sent("secret\r");
    EXPECT_EQ(mask.Received("sec"), "");
    EXPECT_EQ(mask.Received("ond\r"), "second<CR>");
}

TEST(PatientOutput, WaitsForAFullDiskAndGivesUpAClosedOutput) {
    std::string written;
    std::size_t room = 6;
    bool closed = false;
    PatientOutput output(
        [&](std::string_view bytes) -> PatientOutput::Written {
            const std::size_t length = std::min(room, bytes.size());
            written += bytes.substr(0, length);
            room -= length;
            const auto fault = closed ? PatientOutput::Fault::Closed : PatientOutput::Fault::Full;
            return {length, length == bytes.size() ? PatientOutput::Fault::None : fault};
        },
        12);
    output.Add("one\ntwo\n");
    EXPECT_FALSE(output.Flush());
    output.Add("three\n");
    output.Add("too much for the memory\n");
    EXPECT_FALSE(output.Flush());
    room = 100;
    EXPECT_TRUE(output.Flush());
    EXPECT_EQ(written, "one\ntwo\nthree\n") << "no line is cut, and none comes twice";
    EXPECT_EQ(output.Lost(), 1U);
    room = 0;
    closed = true;
    output.Add("four\n");
    EXPECT_FALSE(output.Flush());
    output.Add("five\n");
    EXPECT_EQ(output.Lost(), 3U);
}

TEST(LogLine, IsReadAsItWasWritten) {
    const Moment moment{"2026-11-15 06:00:00.123", 0};
    const std::optional<LogLine> in = ParseLogLine(InLine(moment, Readable("\2PS|\3<cr>")) + "\r");
    ASSERT_TRUE(in);
    EXPECT_EQ(in->bytes, "\2PS|\3<cr>");
    EXPECT_EQ(in->moment.stamp, moment.stamp);
    EXPECT_EQ(ParseLogLine(NoteLine(moment, {"lost", "7", "a|b"}))->event.detail, "a|b");
    EXPECT_EQ(ParseLogHead(HeadLine(moment, {"TYPE1", "A - B, COM1"}))->words, "A - B, COM1");
    for (const char* const line : {"", "2026-11-15 06:00:00.123 <", "2026-11-15 06:00:00.123 -- lost",
                                   "2026-11-15 06:00:00,123 <- x", "yesterday, at six o'clock <- <STX>"})
        EXPECT_FALSE(ParseLogLine(line)) << line;
}

TEST(Addresses, AreReadWithTheirBracketsAndRefusedWithAReason) {
    EXPECT_EQ(ParseAddress("[::1]:5999").host, "::1");
    EXPECT_EQ(ParseAddress("exchange.example:65535").port, 65'535U);
    for (const char* const text :
         {"", "nowhere", ":5999", "host:", "host:0", "host:65536", "host:x", "::1:5999", "[::1]"})
        EXPECT_THROW(ParseAddress(text), Failure) << text;
}

TEST(LineSettings, RefuseWhatTheyDoNotKnow) {
    const LineSettings line = ParseLine("19200,7,e");
    EXPECT_EQ(std::to_string(line.baud) + std::to_string(line.bits) + line.parity + line.stop, "192007E1");
    for (const char* const text :
         {"", "fast", "9600,9", "9600,8,X", "9600,8,N,3", "9600,8,N,1,RTS", "9600,,N", "9600 8"})
        EXPECT_THROW(ParseLine(text), Failure) << text;
    EXPECT_THROW(ParseHandshake("rts"), Failure);
}

}  // namespace
}  // namespace vintrel::host
