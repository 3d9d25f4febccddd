// The simulated exchange of the reference host.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/exchange/exchange.h"
#include "host/exchange/scenario.h"
#include "host/failure.h"
#include "host/text.h"
#include "tests/unit/host_link_answers.h"

namespace vintrel::host {
namespace {

TEST(Scenario, SkipsCommentsAndRefusesWhatIsNoStep) {
    const std::vector<Step> steps =
        ParseScenario("# a day\r\n\n  checkin 203 Anna  Rossi\r\nsend P#1 #\rwait 0.5\n", "");
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].text, "Anna  Rossi");
    EXPECT_EQ(steps[1].text, "P#1 #");
    EXPECT_EQ(steps[2].seconds, 0.5);
    EXPECT_FALSE(ParseScenario(BuiltInDay(), "").empty());
    for (const char* const line : {"call out 201", "call up 201 1 2 3", "room x clean", "room 201 dusty", "wait",
                                   "wait -1", "wait 1s", "setwakeup 201 73", "room 0 clean", "half way", "sing"})
        EXPECT_THROW(ParseScenario(line, ""), Failure) << line;
}

/// What an exchange sent, readable, while the clock ran to `until`.
std::string Played(const LinkAnswers& answers, std::string_view code, std::string_view scenario,
                   std::string_view host_says, std::uint64_t until) {
    std::string sent;
    Exchange exchange(
        code, answers, ParseScenario(scenario, ""), 100,
        {[&](std::string_view bytes) { sent += Readable(bytes); }, [&] { sent += "[off]"; },
         [&](std::string_view text) { (sent += "[") += std::string(text) + "]"; }, [] { return CivilTime{}; }});
    exchange.Connected(1);
    exchange.Received(host_says);
    for (std::uint64_t now = 1; now < until; now += 50) exchange.Tick(now);
    return sent;
}

TEST(Exchange, RefusesAModelThatItHasNoWordsFor) {
    EXPECT_NO_THROW(ExchangeRecords("TYPE10004"));
    EXPECT_THROW(ExchangeRecords("TYPE99999"), Failure);
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
