// The reference host's end of a link: frames, login, pacing.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/link/frames.h"
#include "host/link/login.h"
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

TEST(Sender, SendsOneOrderAfterTheOtherAndGivesUpAfterItsRepeats) {
    const LinkAnswers answers = Integral();
    std::string sent;
    std::string lost;
    Sender sender(answers, [&](std::string_view bytes) { (sent += bytes) += " "; });
    sender.Queue("one");
    sender.Queue("two");
    sender.Tick(1000);
    sender.Tick(1100);  // waits for the confirmation
    EXPECT_EQ(sent, "one ");
    sender.Confirmed();
    sender.Confirmed();  // a second one belongs to nothing
    sender.Tick(1120);
    for (std::uint64_t now = 1200; lost.empty() && now < 20'000; now += 10) lost = sender.Tick(now);
    EXPECT_EQ(lost, "two");
    EXPECT_EQ(sent, "one two two two ");
    EXPECT_TRUE(sender.Idle());
}

TEST(Sender, FramesAnOrderAndKeepsThePause) {
    LinkAnswers answers = Integral();
    answers.wait_for_confirmation = false;
    answers.before_order = "h\r";
    answers.after_order = "q\r";
    std::string sent;
    Sender sender(answers, [&](std::string_view bytes) { sent += bytes; });
    sender.Queue("one");
    for (std::uint64_t now = 1000; now <= 1100; now += 25) sender.Tick(now);
    EXPECT_EQ(sent, "h\roneq\r");
    EXPECT_TRUE(sender.Idle());
}

}  // namespace
}  // namespace vintrel::host
