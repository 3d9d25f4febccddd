#include "host/exchange/scenario.h"

#include <cstdlib>

#include "host/checks.h"
#include "host/failure.h"
#include "host/words.h"

namespace vintrel::host {
namespace {

unsigned Room(Words& words) { return static_cast<unsigned>(CheckedRoom(words.Next())); }

Step ParseCall(Words& words) {
    Step step{.kind = Step::Kind::Call};
    step.outgoing = words.OneOf({"out", "in"}) == "out";
    step.room = Room(words);
    step.text = words.Next();
    step.duration = words.Number();
    if (step.outgoing) step.units = words.Number();
    return step;
}

double Seconds(std::string_view word) {
    const std::string number(word);
    char* end = nullptr;
    const double seconds = std::strtod(number.c_str(), &end);
    if (number.empty() || *end != '\0' || !(seconds >= 0))
        throw Failure(ExitCode::Usage, "seconds are expected, not \"" + number + "\"");
    return seconds;
}

Step ParseStep(Words& words) {
    const std::string verb(words.Next());
    Step step;
    if (verb == "wait") {
        step.seconds = Seconds(words.Next());
    } else if (verb == "call") {
        step = ParseCall(words);
    } else if (verb == "room") {
        step = {.kind = Step::Kind::Room, .room = Room(words)};
        step.text = words.OneOf({"clean", "notclean", "alarm"});
    } else if (verb == "wakeup") {
        step = {.kind = Step::Kind::WakeUp, .room = Room(words)};
        step.text = words.OneOf({"answered", "unanswered"});
    } else if (verb == "setwakeup") {
        step = {.kind = Step::Kind::SetWakeUp, .room = Room(words)};
        step.text = words.Next();
        if (step.text != "clear") CheckedTime(step.text);
    } else if (verb == "checkin") {
        step = {.kind = Step::Kind::CheckIn, .room = Room(words)};
        step.text = words.Rest();
    } else if (verb == "checkout") {
        step = {.kind = Step::Kind::CheckOut, .room = Room(words)};
    } else if (verb == "send") {
        step.kind = Step::Kind::Send;
        step.text = words.Rest();
    } else if (verb == "await" || verb == "half" || verb == "garbage" || verb == "disconnect") {
        step.kind = verb == "await"     ? Step::Kind::Await
                    : verb == "half"    ? Step::Kind::Half
                    : verb == "garbage" ? Step::Kind::Garbage
                                        : Step::Kind::Disconnect;
    } else {
        throw Failure(ExitCode::Usage, "there is no step \"" + verb + "\"");
    }
    return step;
}

}  // namespace

std::vector<Step> ParseScenario(std::string_view text, const std::string& file) {
    std::vector<Step> steps;
    ForEachLine(text, file, Comments::WholeLines, [&](Words& words) { steps.push_back(ParseStep(words)); });
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
