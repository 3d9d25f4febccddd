#include "tests/laws/transfer_laws.h"

#include <cstdlib>

#include "exchanges/catalogue.h"
#include "server/external_transfer.h"
#include "tests/laws/random.h"
#include "tests/unit/fakes.h"
#include "tests/unit/printing.h"

namespace vintrel::laws {
namespace {

struct Leg {
    std::int32_t user, day, minute, duration;
    char16_t direction;

    std::u16string Date() const { return {static_cast<char16_t>(u'0' + day), u'.', u'0', u'1'}; }
    std::u16string Time() const {
        const auto digit = [](int number) { return static_cast<char16_t>(u'0' + number % 10); };
        const int hour = minute / 60;
        return {digit(hour / 10), digit(hour), u':', digit(minute % 60 / 10), digit(minute)};
    }
};

class TransferLaws {
 public:
    explicit TransferLaws(std::uint64_t seed) : random_(seed) {}

    const std::string& Broken() const { return broken_; }

    void JudgeAPair() {
        const auto models = exchanges::Models();
        model_ = models[random_.Below(models.size())];
        for (char16_t& flag : condition_) flag = random_.Once(2) ? u'1' : u'0';
        const Leg first = ALeg();
        const Leg second = Near(first);
        const bool paired = Paired(first, second);
        const bool expected = Agree(first, second);
        if (paired == expected && Paired(second, first) == paired) return;
        broken_ = (paired == expected ? "the order matters: " : "paired, or not: ") + testing::Shown(model_->code) +
                  " " + testing::Shown(condition_);
        for (const Leg& leg : {first, second})
            broken_ += "\n" + std::to_string(leg.user) + " " + testing::Shown(leg.Date() + u" " + leg.Time()) + " " +
                       std::to_string(leg.duration) + " " + testing::Shown({&leg.direction, 1});
    }

 private:
    static constexpr int kMinutes = 24 * 60;

    Leg ALeg() {
        const auto number = [this](std::uint32_t end) { return static_cast<std::int32_t>(random_.Below(end)); };
        return {number(100'000), number(10), number(kMinutes), number(100'000),
                static_cast<char16_t>(u'0' + number(2))};
    }
    /// Differs a little in some of its values.
    Leg Near(Leg leg) {
        const auto step = [this](std::int32_t most) {
            return random_.Once(2)
                       ? 0
                       : static_cast<std::int32_t>(random_.From(0, static_cast<std::uint32_t>(2 * most))) - most;
        };
        leg.user = std::abs(leg.user + step(1));
        leg.day = std::abs(leg.day + step(1)) % 10;
        leg.minute = (leg.minute + step(3) + kMinutes) % kMinutes;
        leg.duration += step(4);
        if (!random_.Once(4)) leg.direction ^= 1;
        return leg;
    }
    bool Agree(const Leg& one, const Leg& other) const {
        return one.direction != other.direction && (condition_[0] == u'0' || one.user == other.user) &&
               (condition_[1] == u'0' || one.day == other.day) &&
               (condition_[2] == u'0' || std::abs(one.minute - other.minute) <= model_->transfer.minutes) &&
               (condition_[3] == u'0' || std::abs(one.duration - other.duration) <= model_->transfer.duration);
    }
    bool Paired(const Leg& first, const Leg& second) {
        pending_.Clear();
        return Check(first) == 0 && Check(second) == 1;
    }
    int Check(const Leg& leg) {
        return server::CheckExternalTransfert(leg.user, leg.Date(), leg.Time(), leg.duration, {&leg.direction, 1},
                                              condition_, model_->code, pending_, clock_, loop_);
    }

    Random random_;
    std::string broken_;
    const exchanges::Model* model_ = nullptr;
    std::u16string condition_ = u"0000";
    server::PendingLeg pending_;
    testing::FakeClock clock_;
    testing::FakeLoop loop_{clock_};
};

}  // namespace

std::string BrokenTransferLaw(std::uint64_t pairs, std::uint64_t seed) {
    TransferLaws laws(seed);
    for (; pairs != 0 && laws.Broken().empty(); --pairs) laws.JudgeAPair();
    return laws.Broken();
}

}  // namespace vintrel::laws
