#include "tests/laws/frame_laws.h"

#include "server/received_frames.h"
#include "tests/laws/grammars.h"
#include "tests/unit/test_server.h"

namespace vintrel::laws {
namespace {

using testing::Shown;
using namespace server;  // NOLINT(google-build-using-namespace): the eight operations

/// What a host can learn of a frame.
struct Answers {
    int is_state = 0, is_alarm = 0, is_result = 0, is_setting = 0;
    std::u16string state, alarm, result, setting;
    bool operator==(const Answers&) const = default;
};

class FrameLaws {
 public:
    explicit FrameLaws(std::uint64_t seed) : random_(seed) {
        const std::pair<const char16_t*, const char16_t*> numbers[] = {{u"CLEAN", u"90"},
                                                                       {u"NOTCLEAN", u"91"},
                                                                       {u"CLEAN_OCCUPIED", u"92"},
                                                                       {u"NOTCLEAN_OCCUPIED", u"93"},
                                                                       {u"INSPECTED_OCCUPIED", u"94"},
                                                                       {u"ALARM", u"95"}};
        for (const auto& [state, number] : numbers)
            server_.Ini(std::u16string(u"ROOMSTATUS_") + state, u"dst_cdpn") = number;
        server_.Ini(u"WAKEUP_RESPONSE", u"h323") = u"Hotel";
        server_.Initialize(u"TYPE10012");
    }

    const std::string& Broken() const { return broken_; }

    void JudgeAFrame() {
        const FrameGrammar& kind = FrameGrammars()[random_.Below(FrameGrammars().size())];
        code_ = kind.grammar.code;
        Call call{.number = random_.Below(1'000'000U)};
        made_.Make(kind.grammar, random_, call);
        text_ = made_.text;
        const bool as_made = random_.Once(2);
        if (!as_made) Mutate(random_, text_, next_character_++);
        const Answers answers = Ask(text_);
        JudgeForms(answers);
        if (as_made) JudgeAsMade(kind.kind, answers);
    }

 private:
    Answers Ask(std::u16string_view frame) {
        const exchanges::Exchanges& all = server_.exchanges;
        const auto code = [this] {  // any operation may get it in either case
            asked_ = code_;
            if (random_.Once(2)) asked_[0] = u't';
            return TypeCode(asked_);
        };
        return {.is_state = GetComIsRoomState(code(), frame, all),
                .is_alarm = GetComIsRoomAlarm(code(), frame, all),
                .is_result = GetComIsConfirmClock(code(), frame, all),
                .is_setting = GetComIsSetClock(code(), frame, all),
                .state = GetComConvertRoomStateRX(code(), frame, all, server_.message),
                .alarm = GetComConvertRoomAlarmRX(code(), frame, all, server_.message),
                .result = GetComConvertConfirmClockRX(code(), frame, all, server_.message),
                .setting = GetComConvertSetClockRX(code(), frame, all, server_.message)};
    }

    void JudgeForms(const Answers& answers) {
        const bool own = server_.exchanges.Find(code_)->SpeaksTheHostsForm();
        const bool sets = own || code_ == u"TYPE12000";
        const auto is_host_form = [&](auto question, const std::u16string& form) {
            std::u16string host = u"TYPE10001";
            return question(host, form, server_.exchanges) == 1;
        };
        const auto judge = [&](bool recognised, const std::u16string& form, std::size_t length, auto question) {
            Demand(recognised == !form.empty(), "a form for what is recognised, and for nothing else");
            if (form.empty()) return;
            Demand(own ? form == text_ : form.size() == length, "the length of the form");
            Demand(is_host_form(question, form), "the form is of the same kind");
        };
        Demand(answers.is_state <= 1 && answers.is_alarm <= 2 && answers.is_result <= 2, "the range of the answers");
        judge(answers.is_state == 1, answers.state, 14, GetComIsRoomState);
        judge(answers.is_alarm == 1, answers.alarm, 14, GetComIsRoomAlarm);
        judge(answers.is_result == 1 || (answers.is_result == 2 && code_ == u"TYPE10019"), answers.result, 10,
              GetComIsConfirmClock);
        Demand(sets ? !answers.setting.empty() && answers.setting.size() <= 32
                    : answers.setting.empty() && answers.is_setting == 0,
               "the form of a setting");
        Demand(server_.message.texts.empty(), "a known code is not reported");
    }

    void JudgeAsMade(FrameKind kind, const Answers& answers) {
        const std::u16string room(made_.claims.At(records::kUser));
        const char16_t type = made_.claims.At(records::kType).front();
        const bool alarm = type == u'3';
        if (kind == FrameKind::Room) {
            const std::u16string form =
                u"\x02"
                u"08" +
                room +
                (alarm          ? u"0033"
                 : type == u'1' ? u"0011"
                                : u"0022") +
                u"1\x03";
            Demand((alarm ? answers.alarm : answers.state) == form, "a room's message is recognised");
            Demand((alarm ? answers.state : answers.alarm).empty(), "and as nothing else");
        } else if (kind == FrameKind::WakeUp) {
            Demand(answers.result ==
                       u"\x02"
                       u"07" +
                           room + type + u'\x03',
                   "a wake-up result is recognised");
        } else {
            const std::u16string form =
                u"\x02"
                u"08" +
                room + type + std::u16string(made_.claims.At(records::kTimeH)) +
                std::u16string(made_.claims.At(records::kTimeM));
            Demand(answers.is_setting == 1 && answers.setting.starts_with(form), "a setting is recognised");
        }
        made_.SayOtherwise(random_, other_text_);
        Demand(Ask(other_text_) == answers, "order and case do not matter");
    }

    void Demand(bool holds, const char* law) {
        if (holds || !broken_.empty()) return;
        broken_ = std::string("broken: ") + law + "\n" + Shown(code_) + " " + Shown(text_) + "\nmade as " +
                  Shown(made_.text) + "\nor      " + Shown(other_text_);
    }

    Random random_;
    char16_t next_character_ = 0;
    std::string broken_;
    testing::TestServer server_;
    std::u16string code_, asked_, text_, other_text_;
    Made made_;
};

}  // namespace

std::string BrokenFrameLaw(std::uint64_t frames, std::uint64_t seed) {
    FrameLaws laws(seed);
    for (; frames != 0 && laws.Broken().empty(); --frames) laws.JudgeAFrame();
    return laws.Broken();
}

}  // namespace vintrel::laws
