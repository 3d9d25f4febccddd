#include "host/link/link_reader.h"

#include <utility>

namespace vintrel::host {

LinkReader::LinkReader(const LinkAnswers& answers, const std::string& user, const std::string& password)
    : answers_(answers), login_(answers, user, password), cutter_(answers.framing) {}

std::string LinkReader::Begin() {
    cutter_ = FrameCutter(answers_.framing);
    rest_ = {};
    return login_.Begin();
}

std::optional<LinkReader::Piece> LinkReader::Next() {
    for (;;) {
        if (std::optional<Piece> piece = rest_is_frame_ ? NextInFrame() : NextLoose()) return piece;
        const std::optional<FrameCutter::Piece> cut = cutter_.Next();
        if (!cut) break;
        switch (cut->kind) {
            case FrameCutter::Kind::Frame:
            case FrameCutter::Kind::Loose:
                rest_ = cut->bytes;
                rest_is_frame_ = cut->kind == FrameCutter::Kind::Frame;
                break;
            case FrameCutter::Kind::Broken: return Piece{.kind = Kind::Broken, .bytes = cut->bytes};
            case FrameCutter::Kind::Overlong: return Piece{.kind = Kind::Overlong, .bytes = cut->bytes};
        }
    }
    // A prompt has no end; what follows a Telnet negotiation may be complete again.
    const std::string_view open = cutter_.Rest();
    if (open.empty()) return std::nullopt;
    std::optional<Login::Reply> reply = login_.Hear(open);
    if (!reply) return std::nullopt;
    reply_ = *std::move(reply);
    cutter_.Take(reply_.taken);
    return Piece{.kind = Kind::Login, .bytes = open.substr(0, reply_.taken)};
}

/// Takes what a piece of the login dialogue is off the front of the rest.
LinkReader::Piece LinkReader::TakeLogin(Login::Reply reply) {
    reply_ = std::move(reply);
    const std::string_view bytes = rest_.substr(0, reply_.taken);
    rest_.remove_prefix(reply_.taken);
    return {.kind = Kind::Login, .bytes = bytes};
}

std::optional<LinkReader::Piece> LinkReader::NextInFrame() {
    if (rest_.empty()) return std::nullopt;
    // The login dialogue has no ends of its own: it stands before the first line.
    if (answers_.framing.start.empty())
        if (const std::optional<Login::Reply> reply = login_.HearInLine(rest_)) return TakeLogin(*reply);
    const std::string_view frame = std::exchange(rest_, {});
    if (frame.size() > answers_.framing.end.size()) {
        if (!login_.IsEcho(frame)) return Piece{.kind = Kind::Frame, .bytes = frame};
        reply_ = {};
        return Piece{.kind = Kind::Login, .bytes = frame};
    }
    return Piece{.kind = Kind::Empty, .bytes = frame};
}

std::optional<LinkReader::Piece> LinkReader::NextLoose() {
    if (rest_.empty()) return std::nullopt;
    if (const std::optional<Login::Reply> reply = login_.Hear(rest_)) return TakeLogin(*reply);
    for (const auto& [text, kind] :
         {std::pair(&answers_.login_confirmed, Kind::Confirmed), std::pair(&answers_.reject, Kind::Refused)}) {
        if (text->empty() || !rest_.starts_with(*text)) continue;
        const std::string_view bytes = rest_.substr(0, text->size());
        rest_.remove_prefix(text->size());
        return Piece{.kind = kind, .bytes = bytes};
    }
    std::size_t loose = 1;
    while (loose < rest_.size() && !MeansSomething(rest_.substr(loose))) ++loose;
    const std::string_view bytes = rest_.substr(0, loose);
    rest_.remove_prefix(loose);
    return Piece{.kind = Kind::Loose, .bytes = bytes};
}

bool LinkReader::MeansSomething(std::string_view bytes) const {
    for (const std::string& text : {answers_.exchange_request, answers_.login_confirmed, answers_.reject})
        if (!text.empty() && bytes.starts_with(text)) return true;
    return false;
}

std::string LinkReader::DropHalfFrame() {
    std::string half(cutter_.Rest());
    cutter_ = FrameCutter(answers_.framing);
    // A start character alone is the check character of the frame before.
    return half == answers_.framing.start ? std::string() : half;
}

}  // namespace vintrel::host
