// The parts of a link that need no Windows: login, pacing, and the simulated exchange.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/exchange.h"
#include "host/failure.h"
#include "host/login.h"
#include "host/scenario.h"
#include "host/sender.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

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
    const LinkAnswers answers = MitelHotel();
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
}

TEST(Login, TakesAPromptOfOneCharacterOnlyWhenItStandsAlone) {
    LinkAnswers answers = MitelHotel();
    answers.exchange_request.clear();
    answers.user_prompt = "-";
    Login login(answers, "SMDR", "");
    EXPECT_FALSE(login.Hear("01-02-2026 half a record -"));
    EXPECT_EQ(login.Hear("-")->answer, "SMDR\r");
}

TEST(Sender, SendsOneOrderAfterTheOtherAndGivesUpAfterItsRepeats) {
    const LinkAnswers answers = Integral();
    std::vector<std::string> sent;
    Sender sender(answers, [&](std::string_view bytes) { sent.emplace_back(bytes); });
    sender.Queue("one");
    sender.Queue("two");
    sender.Tick(1000);
    sender.Tick(1100);  // waits for the confirmation
    EXPECT_EQ(sent, (std::vector<std::string>{"one"}));
    sender.Confirmed();
    sender.Confirmed();  // a second one belongs to nothing
    sender.Tick(1120);
    std::string lost;
    for (std::uint64_t now = 1200; lost.empty() && now < 20'000; now += 10) lost = sender.Tick(now);
    EXPECT_EQ(lost, "two");
    EXPECT_EQ(sent, (std::vector<std::string>{"one", "two", "two", "two"}));
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

TEST(Exchange, LogsInAndWaitsForTheAcknowledgementOfEveryFrame) {
    const LinkAnswers answers = Integral();
    EXPECT_EQ(Played(answers, "TYPE10001", "room 201 clean\nroom 202 alarm\n", "\2\3", 1500),
              "<ENQ><ACK><STX>080020100111<ETX>");
    EXPECT_EQ(Played(answers, "TYPE10001", "room 201 clean\nroom 202 alarm\n", "\2\3", 2500),
              "<ENQ><ACK><STX>080020100111<ETX>[not acknowledged]<STX>080020200331<ETX>");
    EXPECT_EQ(Played(answers, "TYPE10001", "disconnect\nroom 201 clean\n",
                     "\2\3\2"
                     "0700201\3",
                     1500),
              "<ENQ><ACK><ACK>[order <STX>0700201<ETX>][disconnects][off]");
}

TEST(Exchange, AsksForNameAndPasswordAndEchoesThem) {
    const LinkAnswers answers = MitelHotel();
    EXPECT_EQ(Played(answers, "TYPE10014", "room 201 clean", "\xFF\xFD\x01hotel\rsecret\r", 100),
              Readable("\xFF\xFB\x03") +
                  "Username: hotel<CR><LF>Password: ******<CR><LF>[logged in]"
                  "01<FF>201<FF>010126<FF>0000<FF><FF><FF>25<FF>2<FF><VT><ETX><CR><LF>");
}

}  // namespace
}  // namespace vintrel::host
