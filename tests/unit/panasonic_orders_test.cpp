// Orders that the server carries out on a telephony line.
#include <gtest/gtest.h>

#include "order_fakes.h"
#include "printing.h"
#include "tx/guests.h"
#include "tx/wake_up.h"

namespace vintrel::tx {
namespace {

using testing::FakeTelephony;
using testing::Shown;

class PanasonicOrders : public ::testing::Test, protected testing::OrderBench {
 protected:
    PanasonicOrders() {
        telephony.lines = {{u"EXT00101"}, {std::u16string(u" ext00204 \0rest", 15)}, {u"EXT123456"}};
        settings.TapiLineCount = 3;
    }
    std::string WakeUp(std::int32_t room, std::u16string_view time, std::int16_t mode) {
        return Shown(ComEventClockTX(type, room, time, u"1511", mode, 0, message, clock, exchanges));
    }
    std::string CheckIn(std::u16string_view name) {
        return Shown(ComEventCheckInTX(type, 204, name, 0, 0, message, exchanges));
    }
    std::string CheckOut(std::int16_t change_name) {
        return Shown(ComEventCheckOutTX(type, 204, change_name, message, exchanges));
    }
    std::string UserName() {
        server::InOutText name(u"Rossi");
        return Shown(ComEventUserNameTX(type, 204, name, message, exchanges));
    }
    std::uint32_t Word(std::size_t block, std::size_t position) const {
        std::uint32_t word = 0;
        for (std::size_t i = 4; i-- > 0;)
            word = word << 8U | static_cast<unsigned char>(telephony.blocks[block][position + i]);
        return word;
    }
    std::string NameBytes(std::size_t block) const { return telephony.blocks[block].substr(36); }

    std::u16string type = u"TYPE10019";
    const FakeTelephony::Reply second{.identifier = 51, .after = 20, .replied_identifier = 51};
};

TEST_F(PanasonicOrders, AWakeUpCallPacksItsTimeAndKeepsTheWordsThatItDoesNotSet) {
    telephony.replies = {{}, {}, {}, {}};
    EXPECT_EQ(WakeUp(204, u"0730", 2), "<OK>");
    EXPECT_EQ(WakeUp(204, u"2359", -4), "<OK>");  // a negative mode sets, and keeps the repeat word
    EXPECT_EQ(WakeUp(204, u"0101", 1), "<OK>");   // clearing keeps both
    EXPECT_EQ(WakeUp(204, u"0500", 0), "<OK>");
    EXPECT_EQ(WakeUp(204, u"0500", 3), "");
    const std::array<std::array<std::uint32_t, 4>, 4> words{{
        // size  request  time                repeat
        {61, 6, 7 * 2048 + 30 * 32, 1},
        {61, 6, 23 * 2048 + 59 * 32, 1},
        {61, 16, 23 * 2048 + 59 * 32, 1},
        {61, 6, 5 * 2048, 0},
    }};
    ASSERT_EQ(telephony.blocks.size(), words.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
        EXPECT_EQ((std::array{Word(i, 0), Word(i, 12), Word(i, 16), Word(i, 24)}), words[i]) << "request " << i;
        EXPECT_EQ(telephony.blocks[i].size(), 61U);
    }
    EXPECT_EQ(telephony.opened, (std::vector<std::uint32_t>{1, 1, 1, 1}));
    EXPECT_EQ(telephony.closed, (std::vector<std::uint32_t>{901, 901, 901, 901}));
    EXPECT_EQ(Elapsed(), 4 * 220U);  // reply after 20, then the pause of 200
}

TEST_F(PanasonicOrders, ACheckInSetsTheNameInASecondRequest) {
    telephony.replies = {{}, second, {}, second, {}, second};
    EXPECT_EQ(CheckIn(u" Ren\u00E9 "), "<OK>");
    EXPECT_EQ(CheckIn(u"Maximilian Hubertus von Tal"), "<OK>");
    EXPECT_EQ(CheckIn(u"  "), "<OK>");
    ASSERT_EQ(telephony.blocks.size(), 6U);
    for (std::size_t i = 0; i < 6; i += 2) {
        EXPECT_EQ(Word(i, 12), 63U);
        EXPECT_EQ(Word(i + 1, 12), 13U);
    }
    EXPECT_EQ((std::array{Word(1, 28), Word(1, 32)}), (std::array{5U, 56U}));
    EXPECT_EQ(NameBytes(1), "Ren\xE9" + std::string(21, '\0'));
    EXPECT_EQ((std::array{Word(3, 28), Word(3, 32)}), (std::array{28U, 33U}));
    EXPECT_EQ(NameBytes(3), "Maximilian Hubertus von T");
    EXPECT_EQ((std::array{Word(5, 28), Word(5, 32)}), (std::array{0U, 0U}));
    EXPECT_EQ(NameBytes(5), "Maximilian Hubertus von T");
}

TEST_F(PanasonicOrders, CheckOutClearsTheNameOnlyWhenAskedAndARenameAlwaysDoes) {
    telephony.replies = {{}, {}, {}, {}};
    EXPECT_EQ(CheckOut(0), "<OK>");
    EXPECT_EQ(CheckOut(1), "<OK>");
    EXPECT_EQ(UserName(), "<OK>");
    ASSERT_EQ(telephony.blocks.size(), 4U);
    EXPECT_EQ((std::array{Word(0, 12), Word(1, 12), Word(2, 12), Word(3, 12)}), (std::array{64U, 64U, 13U, 13U}));
    EXPECT_EQ(Word(3, 28), 0U);
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
    EXPECT_EQ(CheckOut(0), "<OK>");
    EXPECT_EQ(WakeUp(123456, u"0730", 0), "<OK>");
    EXPECT_EQ(telephony.opened, (std::vector<std::uint32_t>{3, 5}));
    EXPECT_EQ(WakeUp(12345, u"0730", 0), "<ERROR>");
    telephony.lines[3].opens = false;
    EXPECT_EQ(CheckOut(0), "<ERROR>");
    EXPECT_EQ(telephony.blocks.size(), 2U);
}

TEST_F(PanasonicOrders, OnlyTheReplyToItsOwnRequestConfirms) {
    const struct {
        int line;
        FakeTelephony::Reply reply;
        std::string verdict;
        std::uint64_t milliseconds;
    } cases[] = {
        {__LINE__, {.identifier = 50, .after = 0}, "<OK>", 200},  // before the request has returned
        {__LINE__, {.identifier = 50, .after = 2990}, "<OK>", 3190},
        {__LINE__, {.identifier = 50, .after = 3100}, "<OK>", 3200},  // within the pause
        {__LINE__, {.identifier = 50, .after = FakeTelephony::kNoReply}, "<ERROR>", 3200},
        {__LINE__, {.identifier = 50, .after = 20, .replied_identifier = 51}, "<ERROR>", 3200},
        {__LINE__, {.identifier = 0, .after = FakeTelephony::kNoReply}, "<ERROR>", 0},
    };
    for (const auto& row : cases) {
        const std::uint64_t before = clock.milliseconds;
        telephony.replies = {row.reply};
        EXPECT_EQ(CheckOut(0), row.verdict) << "case in line " << row.line;
        EXPECT_EQ(clock.milliseconds - before, row.milliseconds) << "case in line " << row.line;
        telephony.replies = {{}};
        EXPECT_EQ(CheckOut(0), "<OK>") << "after the case in line " << row.line;
    }
    EXPECT_EQ(telephony.closed.size(), telephony.opened.size());
}

TEST_F(PanasonicOrders, AFailedFirstRequestSendsNoSecondAndAStaleReplyConfirmsNone) {
    telephony.replies = {{.identifier = 50, .after = FakeTelephony::kNoReply}, {}};
    EXPECT_EQ(CheckIn(u"Rossi"), "<ERROR>");
    EXPECT_EQ(telephony.blocks.size(), 1U);
    telephony.replies = {{}, {.identifier = 50, .after = FakeTelephony::kNoReply}};
    EXPECT_EQ(CheckIn(u"Rossi"), "<ERROR>");
    telephony.replies = {{.identifier = 50, .after = 3300}, second};
    EXPECT_EQ(CheckOut(0), "<ERROR>");
    EXPECT_EQ(CheckOut(0), "<OK>") << "the belated reply takes no confirmation back";
}

TEST_F(PanasonicOrders, NeedTheServiceOnlyWhenHotelFunctionsAreOn) {
    settings.TapiReady = false;
    EXPECT_EQ(WakeUp(204, u"0730", 0), "<ERROR>");
    EXPECT_EQ(UserName(), "<ERROR>");
    settings.HotelEnabled = false;
    EXPECT_EQ(WakeUp(204, u"0730", 3), "<OK>");
    EXPECT_EQ(CheckIn(u"Rossi"), "<OK>");
    EXPECT_TRUE(telephony.opened.empty());
}

}  // namespace
}  // namespace vintrel::tx
