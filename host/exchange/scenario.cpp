#include "host/exchange/scenario.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

/// Takes words from the front of a line.
class Words {
 public:
    explicit Words(std::string_view line) : rest_(Trimmed(line)) {}
    std::string_view Next() {
        const std::string_view word = rest_.substr(0, rest_.find(' '));
        rest_ = Trimmed(rest_.substr(word.size()));
        return word;
    }
    /// A number; the line is no step without it.
    unsigned Number() {
        const std::optional<unsigned> number = ParseNumber(Next());
        good_ = good_ && number.has_value();
        return number.value_or(0);
    }
    /// One of the words; the line is no step with another.
    std::string OneOf(std::initializer_list<std::string_view> words) {
        const std::string_view word = Next();
        good_ = good_ && std::find(words.begin(), words.end(), word) != words.end();
        return std::string(word);
    }
    std::string Rest() { return std::string(std::exchange(rest_, {})); }
    void Require(bool condition) { good_ = good_ && condition; }
    bool Good() const { return good_ && rest_.empty(); }

 private:
    std::string_view rest_;
    bool good_ = true;
};

Step ParseCall(Words& words) {
    Step step{.kind = Step::Kind::Call};
    step.outgoing = words.OneOf({"out", "in"}) == "out";
    step.room = words.Number();
    step.text = words.Next();
    step.duration = words.Number();
    if (step.outgoing) step.units = words.Number();
    return step;
}

std::optional<Step> ParseStep(std::string_view line) {
    Words words(line);
    const std::string_view verb = words.Next();
    Step step;
    if (verb == "wait") {
        const std::string number(words.Next());
        char* end = nullptr;
        step.seconds = std::strtod(number.c_str(), &end);
        words.Require(!number.empty() && *end == '\0' && step.seconds >= 0);
    } else if (verb == "call") {
        step = ParseCall(words);
    } else if (verb == "room") {
        step = {.kind = Step::Kind::Room, .room = words.Number()};
        step.text = words.OneOf({"clean", "notclean", "alarm"});
    } else if (verb == "wakeup") {
        step = {.kind = Step::Kind::WakeUp, .room = words.Number()};
        step.text = words.OneOf({"answered", "unanswered"});
    } else if (verb == "setwakeup") {
        step = {.kind = Step::Kind::SetWakeUp, .room = words.Number()};
        step.text = words.Next();
        words.Require(step.text == "clear" || (step.text.size() == 4 && ParseNumber(step.text)));
    } else if (verb == "checkin") {
        step = {.kind = Step::Kind::CheckIn, .room = words.Number()};
        step.text = words.Rest();
    } else if (verb == "checkout") {
        step = {.kind = Step::Kind::CheckOut, .room = words.Number()};
    } else if (verb == "send") {
        step.kind = Step::Kind::Send;
        step.text = words.Rest();
    } else if (verb == "await" || verb == "half" || verb == "garbage" || verb == "disconnect") {
        step.kind = verb == "await"     ? Step::Kind::Await
                    : verb == "half"    ? Step::Kind::Half
                    : verb == "garbage" ? Step::Kind::Garbage
                                        : Step::Kind::Disconnect;
    } else {
        return std::nullopt;
    }
    if (!words.Good()) return std::nullopt;
    return step;
}

}  // namespace

std::vector<Step> ParseScenario(std::string_view text) {
    std::vector<Step> steps;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        line = Trimmed(line);
        if (line.empty() || line.starts_with('#')) continue;
        const std::optional<Step> step = ParseStep(line);
        if (!step) throw Failure(ExitCode::Usage, "the scenario has no step \"" + std::string(line) + "\"");
        steps.push_back(*step);
    }
    return steps;
}

std::string_view BuiltInDay() {
    return R"(# Early morning: two guests are woken.
wakeup 201 answered
wakeup 202 unanswered
call in  202 0327771100 65
# Guests arrive and telephone.
checkin 203 Rossi
call out 203 0041448001122 192 12
call in  203 0327771101 0
setwakeup 203 0730
# The maid goes round.
room 201 clean
room 202 notclean
call out 201 0043123456789 644 33
# Somebody needs help.
room 202 alarm
call in  201 0327771102 250
# Departure.
call out 203 0049301234567 31 2
setwakeup 203 clear
checkout 203
)";
}

}  // namespace vintrel::host
