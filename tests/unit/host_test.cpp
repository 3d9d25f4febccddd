// The parts of the reference host that need no Windows: frames, text, options, output, login, pacing, and the
// simulated exchange.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/exchange/exchange.h"
#include "host/exchange/scenario.h"
#include "host/failure.h"
#include "host/link/frames.h"
#include "host/link/login.h"
#include "host/link/sender.h"
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
    const std::vector<std::string> line{"in.txt", "--model=TYPE10001", "--verbose", "--seconds", "30", "--", "-x", "-"};
    const Options options(kKnown, line);
    EXPECT_EQ(options.Require("--model"), "TYPE10001");
    EXPECT_EQ(options.Number("--seconds", 5, 0, 60), 30U);
    EXPECT_TRUE(options.Has("--verbose"));
    EXPECT_EQ(options.Words(), (std::vector<std::string>{"in.txt", "-x", "-"}));
}

TEST(Options, RefusesWhatItCannotMean) {
    for (const std::vector<std::string>& line : std::vector<std::vector<std::string>>{
             {"--modle", "x"}, {"--model"}, {"--verbose=1"}, {"--model", "a", "--model", "b"}})
        EXPECT_THROW(Options(kKnown, line), Failure) << line[0];
    for (const char* const number : {"", "x", "-1", "61", "3s", "99999999999"}) {
        const std::vector<std::string> line{"--seconds", number};
        EXPECT_THROW(Options(kKnown, line).Number("--seconds", 0, 0, 60), Failure) << number;
    }
    EXPECT_THROW(Options(kKnown, std::vector<std::string>{}).Require("--model"), Failure);
}

template <typename Text>
std::string Written(Format format, std::vector<Column> columns, const std::vector<std::vector<Text>>& records) {
    std::string text;
    Output output([&](std::string_view piece) { text += piece; });
    RecordWriter writer(format, std::move(columns), output);
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
    EXPECT_EQ(Written(Format::Table, {{"A", 2}, {"B", 2}, {"C", 2}}, records),
              "A   B   C\n--  --  --\na   long one  c\na       c\na   \u00E9\u00E9  c\na   b   c\n");
}

TEST(RecordWriter, AlignsQuotesAndEscapesPerFormat) {
    const std::vector<Column> columns{{"User", 5}, {"Guest Name", 4}};
    const std::vector<std::vector<std::u16string_view>> records{{u"  201 ", u"Zo\u00EB \"Z\", \\ \u0002"}, {u"7"}};
    EXPECT_EQ(Written(Format::Table, columns, records),
              "User   Guest Name\n-----  ----------\n201    Zo\u00EB \"Z\", \\ <STX>\n7\n");
    EXPECT_EQ(Written(Format::Csv, columns, records), "User,Guest Name\n201,\"Zo\u00EB \"\"Z\"\", \\ <STX>\"\n7,\n");
    EXPECT_EQ(Written(Format::Json, columns, records),
              "{\"user\":\"201\",\"guest_name\":\"Zo\u00EB \\\"Z\\\", \\\\ \\u0002\"}\n"
              "{\"user\":\"7\",\"guest_name\":\"\"}\n");
}

LinkAnswers Integral() {
    LinkAnswers answers;
    answers.framing = {.start = "\2", .end = "\3", .end2 = "", .limit = 1024};
    answers.acknowledge = "\6";
    answers.reject = "\x15";
    answers.repeat_errors = 2;
    answers.login_request = "\2\3";
    answers.login_confirmed = "\6";
    answers.exchange_request = "\5";
    answers.confirm_exchange = "\x15";
    answers.wait_for_confirmation = true;
    answers.pause = 50;
    answers.confirmation_time = 1000;
    return answers;
}

LinkAnswers MitelHotel() {
    LinkAnswers answers;
    answers.framing = {.start = "", .end = "\r\n", .end2 = "", .limit = 1024};
    answers.acknowledge = "\r\n";
    answers.exchange_request = "\xFF\xFB\x03";
    answers.confirm_exchange = "\xFF\xFD\x01";
    answers.user_prompt = "Username: ";
    answers.password_prompt = "Password: ";
    answers.password_answer = "I";
    return answers;
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

TEST(Scenario, SkipsCommentsAndRefusesWhatIsNoStep) {
    const std::vector<Step> steps = ParseScenario("# a day\r\n\n  checkin 203 Anna  Rossi\r\nwait 0.5\n");
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].text, "Anna  Rossi");
    EXPECT_EQ(steps[1].seconds, 0.5);
    EXPECT_FALSE(ParseScenario(BuiltInDay()).empty());
    for (const char* const line : {"call out 201", "call up 201 1 2 3", "room x clean", "room 201 dusty", "wait",
                                   "wait -1", "wait 1s", "setwakeup 201 73", "half way", "sing"})
        EXPECT_THROW(ParseScenario(line), Failure) << line;
}

/// What an exchange sent, readable, while the clock ran to `until`.
std::string Played(const LinkAnswers& answers, std::string_view code, std::string_view scenario,
                   std::string_view host_says, std::uint64_t until) {
    std::string sent;
    Exchange exchange(
        code, answers, ParseScenario(scenario), 100,
        {[&](std::string_view bytes) { sent += Readable(bytes); }, [&] { sent += "[off]"; },
         [&](std::string_view text) { (sent += "[") += std::string(text) + "]"; }, [] { return CivilTime{}; }});
    exchange.Connected(1);
    exchange.Received(host_says);
    for (std::uint64_t now = 1; now < until; now += 50) exchange.Tick(now);
    return sent;
}

TEST(Exchange, RefusesAModelThatItHasNoWordsFor) {
    EXPECT_NO_THROW(ExchangeRecords("TYPE10004"));
    EXPECT_THROW(ExchangeRecords("TYPE10021"), Failure);
}

TEST(Exchange, LogsInAndWaitsForTheAcknowledgementOfEveryFrame) {
    const auto integral = [](std::string_view scenario, const std::string& orders, std::uint64_t until) {
        return Played(Integral(), "TYPE10001", scenario, "\2\3" + orders, until);
    };
    EXPECT_EQ(integral("room 201 clean\nroom 202 alarm\n", "", 1500), "<ENQ><ACK><STX>080020100111<ETX>");
    EXPECT_EQ(integral("room 201 clean\nroom 202 alarm\n", "", 2500),
              "<ENQ><ACK><STX>080020100111<ETX>[not acknowledged]<STX>080020200331<ETX>");
    EXPECT_EQ(integral("disconnect\nroom 201 clean\n", FromReadable("<STX>0700201<ETX>"), 1500),
              "<ENQ><ACK><ACK>[order <STX>0700201<ETX>][disconnects][off]");
    EXPECT_EQ(Played(MitelHotel(), "TYPE10014", "room 201 clean", "\xFF\xFD\x01hotel\rsecret\r", 100),
              Readable("\xFF\xFB\x03") +
                  "Username: hotel<CR><LF>Password: ******<CR><LF>[logged in]"
                  "01<FF>201<FF>010126<FF>0000<FF><FF><FF>25<FF>2<FF><VT><ETX><CR><LF>");
}

}  // namespace
}  // namespace vintrel::host
