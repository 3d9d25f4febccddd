#include "host/link/order_file.h"

#include "host/clock.h"
#include "host/failure.h"
#include "host/input_file.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

/// The words of a line; the last of at most `most` keeps its blanks, for names.
std::vector<std::string> SplitWords(std::string_view line, std::size_t most) {
    std::vector<std::string> words;
    for (line = Trimmed(line); !line.empty(); line = Trimmed(line)) {
        const std::size_t end = words.size() + 1 == most ? line.size() : std::min(line.find(' '), line.size());
        words.emplace_back(line.substr(0, end));
        line.remove_prefix(end);
    }
    return words;
}

bool IsOrder(const std::vector<std::string>& words) {
    const std::string& verb = words[0];
    if (words.size() < 2 || !ParseNumber(words[1])) return false;
    if (verb == "wait" || verb == "checkout") return words.size() == 2;
    if (verb == "checkin") return words.size() <= 3;
    if (verb == "name") return words.size() == 3;
    return (verb == "wakeup" || verb == "cancel") && words.size() >= 3;
}

std::vector<std::string> ParseLine(std::string_view line) {
    const bool has_name = line.starts_with("checkin") || line.starts_with("name");
    return SplitWords(line.substr(0, line.find('#')), has_name ? 3 : 9);
}

}  // namespace

OrderFile::OrderFile(const Server& server, const Model& model, const std::string& name)
    : server_(server), code_(model.Code()) {
    if (name.empty()) return;
    const std::string text = ReadWholeFile(name);
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string line = text.substr(begin, end - begin);
        begin = end + 1;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const Words words = ParseLine(line);
        if (words.empty()) continue;
        if (!IsOrder(words)) throw Failure(ExitCode::Usage, std::string(name).append(": no order: ").append(line));
        orders_.push_back(words);
    }
}

std::vector<Event> OrderFile::Feed(Session& session, std::uint64_t now, bool connected) {
    constexpr std::uint64_t kSecond = 1000;
    std::vector<Event> events;
    while (connected && !orders_.empty() && now >= due_ && session.OrdersSent()) {
        const Words words = orders_.front();
        orders_.pop_front();
        if (words[0] == "wait") {
            due_ = now + kSecond * ParseNumber(words[1]).value_or(0);
            continue;
        }
        const std::u16string answer = Ask(words);
        if (answer == u"<OK>" || answer == u"<ERROR>")
            events.push_back({"order", words[1], words[0] + " " + ToUtf8(answer)});
        else if (answer.empty())
            events.push_back({"order", words[1], words[0] + " is no order of this model"});
        else {
            session.Queue(ToBytes(answer));
            events.push_back({"order", words[1], words.size() > 2 ? words[0] + " " + words[2] : words[0]});
        }
    }
    return events;
}

std::u16string OrderFile::Ask(const Words& words) const {
    Bstr type(code_);
    long room = static_cast<long>(ParseNumber(words[1]).value_or(0));
    short change_name = words.size() > 2 ? 1 : 0;
    Bstr name(words.size() > 2 ? FromUtf8(words[2]) : std::u16string());
    if (words[0] == "checkin") {
        short language = 2;  // English
        return server_.Text(server_.tx, &_ComEventsTX::ComEventCheckInTX, type.InOut(), &room, name.InOut(), &language,
                            &change_name);
    }
    if (words[0] == "checkout") {
        change_name = 1;
        return server_.Text(server_.tx, &_ComEventsTX::ComEventCheckOutTX, type.InOut(), &room, &change_name);
    }
    if (words[0] == "name")
        return server_.Text(server_.tx, &_ComEventsTX::ComEventUserNameTX, type.InOut(), &room, name.InOut());
    return AskWakeUp(words, room);
}

std::u16string OrderFile::AskWakeUp(const Words& words, long room) const {
    Bstr type(code_);
    Bstr time(FromUtf8(words[2]));
    Bstr date(FromUtf8(words.size() > 3 ? words[3] : DayAndMonth(LocalTime())));
    short mode = words[0] == "cancel" ? 1 : 0;
    short language = 2;
    return server_.Text(server_.tx, &_ComEventsTX::ComEventClockTX, type.InOut(), &room, time.InOut(), date.InOut(),
                        &mode, &language);
}

}  // namespace vintrel::host
