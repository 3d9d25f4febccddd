#include "tests/laws/record_laws.h"

#include <array>
#include <vector>

#include "server/call_records.h"
#include "tests/laws/grammars.h"
#include "tests/unit/test_server.h"

namespace vintrel::laws {
namespace {

using testing::Shown;

class RecordLaws {
 public:
    explicit RecordLaws(std::uint64_t seed) : random_(seed) {}

    std::uint64_t Records() const { return records_; }
    const std::string& Broken() const { return broken_; }

    /// Some calls, each with its legs: one server hears them call by call, another in a different order and in
    /// different words.
    void JudgeSomeCalls() {
        leg_count_ = 0;
        for (CallLegs& call : calls_) {
            MakeCall(call);
            for (std::size_t i = call.next; i < call.end; ++i) JudgeLeg(legs_[i]);
        }
        for (std::size_t left = leg_count_; left > 0;) {
            CallLegs& call = calls_[random_.Below(calls_.size())];
            if (call.next == call.end) continue;
            JudgeOtherwise(legs_[call.next++]);
            --left;
        }
    }

 private:
    struct Leg {
        Made made;
        std::u16string text;
        bool as_made = true;  ///< not broken
        std::u16string answer;
    };
    struct CallLegs {
        std::size_t next = 0, end = 0;  ///< of legs_
    };

    void MakeCall(CallLegs& legs) {
        constexpr std::uint32_t kYear2000 = 946'684'800, kYear2100 = 4'102'444'800;
        const Grammar& grammar = RecordGrammars()[random_.Below(RecordGrammars().size())];
        Call call{.number = next_call_++, .incoming = random_.Once(2), .started = random_.From(kYear2000, kYear2100)};
        legs = {leg_count_, leg_count_ + (grammar.legs ? random_.From(1, kMostLegs) : 1)};
        for (; leg_count_ < legs.end; ++leg_count_, ++call.leg) {
            call.last = leg_count_ + 1 == legs.end;
            Leg& leg = legs_[leg_count_];
            leg.made.Make(grammar, random_, call);
            leg.text = leg.made.text;
            leg.as_made = grammar.legs || random_.Once(2);
            if (!leg.as_made) Mutate(random_, leg.text, next_character_++);
        }
    }

    void JudgeLeg(Leg& leg) {
        Convert(plain_, leg, leg.text, leg.answer);
        if (leg.as_made && !leg.made.claims.HoldIn(leg.answer)) Break("a field is not in its columns", leg, leg.text);
        if (!leg.made.grammar->legs || !random_.Once(2)) return;
        // What an exchange remembers of broken records is its own affair: a third server hears them.
        text_ = leg.text;
        Mutate(random_, text_, next_character_++);
        Convert(confused_, leg, text_, answer_);
    }

    void JudgeOtherwise(Leg& leg) {
        text_ = leg.text;
        if (leg.as_made) leg.made.SayOtherwise(random_, text_);
        Convert(mixed_, leg, text_, answer_);
        if (answer_ != leg.answer) Break("order, case or another call changes the answer", leg, text_);
    }

    void Convert(testing::TestServer& server, const Leg& leg, const std::u16string& text, std::u16string& answer) {
        const std::u16string_view code = leg.made.grammar->code;
        text::InOutText record(text);
        answer = server::GetComConvertStringRX(code, record, server.exchanges, server.message).View();
        ++records_;
        const bool framed = answer.size() >= 2 && answer.size() <= records::kGdvRecordLength &&
                            answer.front() == text::kStx && answer.back() == text::kEtx;
        if (!framed && answer != std::u16string_view(&text::kDle, 1)) Break("the answer is no record", leg, text);
        if (!server.message.texts.empty()) Break("a known code is reported", leg, text);
        if (record.Replaced() && code != u"TYPE10003" && code != u"TYPE10010")
            Break("the caller's text changes", leg, text);
    }

    void Break(const char* law, const Leg& leg, const std::u16string& text) {
        if (!broken_.empty()) return;
        broken_ = std::string(law) + "\n" + Shown(leg.made.grammar->code) + " " + Shown(text) + "\nmade as " +
                  Shown(leg.made.text) + "\ngives " + Shown(leg.answer) + "\nor    " + Shown(answer_);
    }

    static constexpr std::size_t kCalls = 8;
    static constexpr std::uint32_t kMostLegs = 3;

    Random random_;
    std::uint32_t next_call_ = 1;
    char16_t next_character_ = 0;
    std::uint64_t records_ = 0;
    std::string broken_;
    std::array<Leg, kCalls * kMostLegs> legs_;
    std::size_t leg_count_ = 0;
    std::array<CallLegs, kCalls> calls_;
    std::u16string text_, answer_;
    testing::TestServer plain_, mixed_, confused_;
};

}  // namespace

std::string BrokenRecordLaw(std::uint64_t records, std::uint64_t seed) {
    RecordLaws laws(seed);
    while (laws.Records() < records && laws.Broken().empty()) laws.JudgeSomeCalls();
    return laws.Broken();
}

}  // namespace vintrel::laws
