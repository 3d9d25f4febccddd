// Orders that the server carries out on a telephony line.
#include <gtest/gtest.h>

#include "order_fakes.h"

namespace vintrel::tx {
namespace {

using testing::FakeTelephony;

using Values = std::vector<std::uint32_t>;

class PanasonicOrders : public ::testing::Test, protected testing::OrderBench {
 protected:
    PanasonicOrders() {
        telephony.lines = {{u"EXT00101"}, {std::u16string(u" ext00204 \0rest", 15)}, {u"EXT123456"}};
        settings.TapiLineCount = 3;
    }
    std::string WakeUp(std::int32_t room, std::u16string_view time, std::int16_t mode) {
        return OrderBench::WakeUp(kType, {.room = room, .time = time, .date = u"1511", .mode = mode});
    }
    /// Some words of a request, of four bytes each.
    std::vector<std::uint32_t> Words(std::size_t request, const std::vector<std::size_t>& positions) const {
        std::vector<std::uint32_t> words;
        for (const std::size_t position : positions) {
            std::uint32_t& word = words.emplace_back(0);
            for (std::size_t i = 4; i-- > 0;)
                word = word << 8U | static_cast<unsigned char>(telephony.blocks.at(request).at(position + i));
        }
        return words;
    }
    std::string NameBytes(std::size_t block) const { return telephony.blocks[block].substr(36); }

    const std::u16string kType = u"TYPE10019";
    const FakeTelephony::Reply second{.identifier = 51, .after = 20, .replied_identifier = 51};
};

TEST_F(PanasonicOrders, AWakeUpCallPacksItsTimeAndKeepsTheWordsThatItDoesNotSet) {
    telephony.replies = {{}, {}, {}, {}};
    EXPECT_EQ(WakeUp(204, u"0730", 2), "<OK>");
    EXPECT_EQ(WakeUp(204, u"2359", -4), "<OK>");  // a negative mode sets, and keeps the repeat word
    EXPECT_EQ(WakeUp(204, u"0101", 1), "<OK>");   // clearing keeps both
    EXPECT_EQ(WakeUp(204, u"0500", 0), "<OK>");
    EXPECT_EQ(WakeUp(204, u"0500", 3), "");
    const std::vector<std::size_t> positions{0, 12, 16, 24};  // size, request, time, repeat
    EXPECT_EQ(Words(0, positions), (Values{61, 6, 7 * 2048 + 30 * 32, 1}));
    EXPECT_EQ(Words(1, positions), (Values{61, 6, 23 * 2048 + 59 * 32, 1}));
    EXPECT_EQ(Words(2, positions), (Values{61, 16, 23 * 2048 + 59 * 32, 1}));
    EXPECT_EQ(Words(3, positions), (Values{61, 6, 5 * 2048, 0}));
    EXPECT_EQ(telephony.blocks.size(), 4U);
    for (const std::string& block : telephony.blocks) EXPECT_EQ(block.size(), 61U);
    EXPECT_EQ(telephony.opened, (Values{1, 1, 1, 1}));
    EXPECT_EQ(telephony.closed, (Values{901, 901, 901, 901}));
    EXPECT_EQ(Elapsed(), 4 * 220U);  // reply after 20, then the pause of 200
}

TEST_F(PanasonicOrders, ACheckInSetsTheNameInASecondRequest) {
    telephony.replies = {{}, second, {}, second, {}, second};
    EXPECT_EQ(CheckIn(kType, u" Ren\u00E9 "), "<OK>");
    EXPECT_EQ(CheckIn(kType, u"Maximilian Hubertus von Tal"), "<OK>");
    EXPECT_EQ(CheckIn(kType, u"  "), "<OK>");
    ASSERT_EQ(telephony.blocks.size(), 6U);
    for (std::size_t i = 0; i < 6; i += 2) EXPECT_EQ(Words(i, {12}), Values{63});
    EXPECT_EQ(Words(1, {12, 28, 32}), (Values{13, 5, 56}));
    EXPECT_EQ(Words(3, {12, 28, 32}), (Values{13, 28, 33}));
    EXPECT_EQ(Words(5, {12, 28, 32}), (Values{13, 0, 0}));
    EXPECT_EQ(NameBytes(1), "Ren\xE9" + std::string(21, '\0'));
    EXPECT_EQ(NameBytes(3), "Maximilian Hubertus von T");
    EXPECT_EQ(NameBytes(5), "Maximilian Hubertus von T");
}

TEST_F(PanasonicOrders, CheckOutClearsTheNameOnlyWhenAskedAndARenameAlwaysDoes) {
    telephony.replies = {{}, {}, {}, {}};
    EXPECT_EQ(CheckOut(kType), "<OK>");
    EXPECT_EQ(CheckOut(kType, true), "<OK>");
    EXPECT_EQ(UserName(kType), "<OK>");
    ASSERT_EQ(telephony.blocks.size(), 4U);
    for (const auto& [block, request] : {std::pair(0U, 64U), {1U, 64U}, {2U, 13U}})
        EXPECT_EQ(Words(block, {12}), Values{request});
    EXPECT_EQ(Words(3, {12, 28}), (Values{13, 0}));
}

TEST_F(PanasonicOrders, TheLineIsTheFirstVoiceLineOfThatNameThatAnswers) {
    telephony.lines = {{.name = u"EXT00204", .media_modes = 8},
                       {.name = u"EXT00204", .negotiates = false},
                       {.name = u"EXT00204", .has_capabilities = false},
                       {.name = u"EXT00204", .media_modes = 0x1C},
                       {.name = u"EXT00204"},
                       {.name = u"EXT123456"}};
    settings.TapiLineCount = 6;
    telephony.replies = {{}, {}};
    EXPECT_EQ(CheckOut(kType), "<OK>");
    EXPECT_EQ(WakeUp(123456, u"0730", 0), "<OK>");
    EXPECT_EQ(telephony.opened, (Values{3, 5}));
    EXPECT_EQ(WakeUp(12345, u"0730", 0), "<ERROR>");
    telephony.lines[3].opens = false;
    EXPECT_EQ(CheckOut(kType), "<ERROR>");
    EXPECT_EQ(telephony.blocks.size(), 2U);
}

TEST_F(PanasonicOrders, OnlyTheReplyToItsOwnRequestConfirms) {
    constexpr int kNoReply = FakeTelephony::kNoReply;
    const struct {
        FakeTelephony::Reply reply;
        std::string verdict;
        std::uint64_t milliseconds;
    } cases[] = {
        {{.identifier = 50, .after = 0}, "<OK>", 200},  // before the request has returned
        {{.identifier = 50, .after = 2990}, "<OK>", 3190},
        {{.identifier = 50, .after = 3100}, "<OK>", 3200},  // within the pause
        {{.identifier = 50, .after = kNoReply}, "<ERROR>", 3200},
        {{.identifier = 50, .after = 20, .replied_identifier = 51}, "<ERROR>", 3200},
        {{.identifier = 0, .after = kNoReply}, "<ERROR>", 0},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE("reply after " + std::to_string(row.reply.after));
        const std::uint64_t before = clock.milliseconds;
        telephony.replies = {row.reply};
        EXPECT_EQ(CheckOut(kType), row.verdict);
        EXPECT_EQ(clock.milliseconds - before, row.milliseconds);
        telephony.replies = {{}};
        EXPECT_EQ(CheckOut(kType), "<OK>") << "the next order";
    }
    EXPECT_EQ(telephony.closed.size(), telephony.opened.size());
}

TEST_F(PanasonicOrders, AFailedFirstRequestSendsNoSecondAndAStaleReplyConfirmsNone) {
    telephony.replies = {{.identifier = 50, .after = FakeTelephony::kNoReply}, {}};
    EXPECT_EQ(CheckIn(kType, u"Rossi"), "<ERROR>");
    EXPECT_EQ(telephony.blocks.size(), 1U);
    telephony.replies = {{}, {.identifier = 50, .after = FakeTelephony::kNoReply}};
    EXPECT_EQ(CheckIn(kType, u"Rossi"), "<ERROR>");
    telephony.replies = {{.identifier = 50, .after = 3300}, second};
    EXPECT_EQ(CheckOut(kType), "<ERROR>");
    EXPECT_EQ(CheckOut(kType), "<OK>") << "the belated reply takes no confirmation back";
}

TEST_F(PanasonicOrders, NeedTheServiceOnlyWhenHotelFunctionsAreOn) {
    settings.TapiReady = false;
    EXPECT_EQ(WakeUp(204, u"0730", 0), "<ERROR>");
    EXPECT_EQ(UserName(kType), "<ERROR>");
    settings.HotelEnabled = false;
    EXPECT_EQ(WakeUp(204, u"0730", 3), "<OK>");
    EXPECT_EQ(CheckIn(kType, u"Rossi"), "<OK>");
    EXPECT_TRUE(telephony.opened.empty());
}

}  // namespace
}  // namespace vintrel::tx
