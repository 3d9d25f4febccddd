#include "host/capture/detection.h"

#include <algorithm>

#include "host/calls/ask_call_layout.h"
#include "host/link/ask_link.h"
#include "host/link/interpreter.h"
#include "host/link/link_reader.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

/// Reads a capture as one model would.
class Trial {
 public:
    Trial(const Server& server, const Model& model, const CallLayout& layout, const CivilTime& now)
        : layout_(layout),
          now_(now),
          answers_(AskAboutLink(server, model)),
          reader_(answers_, "", ""),
          interpreter_(server, model, layout) {
        evidence_.code = ToUtf8(model.Code());
        evidence_.name = ToUtf8(model.Name());
    }

    Evidence Read(std::string_view head, std::optional<Capture::Form> form) {
        Capture capture(
            [&](char* buffer, std::size_t count) {
                const std::size_t copied = head.copy(buffer, count);
                head.remove_prefix(copied);
                return copied;
            },
            answers_.framing, form);
        for (LogLine line; capture.Next(line);) {
            if (line.kind != LogLine::Kind::In) continue;
            evidence_.bytes += line.bytes.size();
            reader_.Push(line.bytes);
            while (const auto piece = reader_.Next()) Take(*piece);
        }
        return evidence_;
    }

 private:
    void Take(const LinkReader::Piece& piece) {
        switch (piece.kind) {
            case LinkReader::Kind::Frame: return TakeFrame(piece.bytes);
            case LinkReader::Kind::Broken:
            case LinkReader::Kind::Overlong: ++evidence_.other; return;
            case LinkReader::Kind::Empty:
            case LinkReader::Kind::Login:
            case LinkReader::Kind::Confirmed:
            case LinkReader::Kind::Refused: evidence_.used += piece.bytes.size(); return;
            case LinkReader::Kind::Loose: return;
        }
    }

    void TakeFrame(std::string_view bytes) {
        const Reading reading = interpreter_.Read(bytes);
        switch (reading.meaning) {
            case Meaning::Call: TakeCall(reading.form, bytes.size()); break;
            case Meaning::Event:
            case Meaning::Record: ++evidence_.events; break;
            case Meaning::Rejected: ++evidence_.rejected; return;
            case Meaning::Other: ++evidence_.other; return;
            case Meaning::Malformed:
                if (++evidence_.malformed == 1) evidence_.first_why = reading.why;
                return;
        }
        evidence_.used += bytes.size();
    }

    void TakeCall(std::u16string_view record, std::size_t length) {
        const auto number = [&](CallField field) { return *ParseNumber(ToUtf8(layout_.Cut(record, field))); };
        evidence_.shortest = evidence_.calls == 0 ? length : std::min(evidence_.shortest, length);
        evidence_.longest = std::max(evidence_.longest, length);
        ++evidence_.calls;
        if (!IsRecent(number(CallField::Day), number(CallField::Month), number(CallField::Year), now_))
            ++evidence_.old_dates;
    }

    const CallLayout& layout_;
    const CivilTime& now_;
    LinkAnswers answers_;
    LinkReader reader_;
    Interpreter interpreter_;
    Evidence evidence_;
};

}  // namespace

std::vector<Evidence> Detect(const Server& server, std::string_view head, std::optional<Capture::Form> form,
                             std::u16string_view except) {
    const CallLayout layout = AskCallLayout(server);
    const CivilTime now = LocalTime();
    std::vector<Evidence> models;
    for (const std::string& code : AllCodes(server)) {
        const Model model(server, code);
        if (model.Code() != except) models.push_back(Trial(server, model, layout, now).Read(head, form));
    }
    Rank(models);
    return models;
}

std::string BestGuess(const std::vector<Evidence>& ranked) {
    if (ranked.empty() || !Convinces(ranked.front())) return {};
    const Evidence& best = ranked.front();
    std::string text = "It reads as " + best.code + " (" + best.name + "): " + Reasons(best);
    std::string equals;
    for (std::size_t i = 1; i < ranked.size() && Fit(ranked[i]) == Fit(best) && Convinces(ranked[i]); ++i)
        equals.append(equals.empty() ? "" : ", ").append(ranked[i].code);
    if (!equals.empty()) text += ". As well as " + equals;
    return text + ".";
}

}  // namespace vintrel::host
