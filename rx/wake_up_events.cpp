#include "rx/wake_up_events.h"

#include "rx/frame.h"
#include "server/text.h"
#include "server/word.h"

namespace vintrel::rx {
namespace {

using namespace server;

enum class Confirmation : std::int16_t { No = 0, Yes = 1, SecondKind = 2 };

constexpr char16_t kStarted = u'0';  // or to be repeated
constexpr char16_t kAnswered = u'1';
constexpr char16_t kNotAnswered = u'2';

Confirmation YesIf(bool confirmation) { return confirmation ? Confirmation::Yes : Confirmation::No; }
Confirmation SecondKindIf(bool confirmation) { return confirmation ? Confirmation::SecondKind : Confirmation::No; }

/// STX "07", five digits of extension, status, ETX.
bool IsIntegralConfirmation(std::u16string_view frame) { return frame.size() == 10 && IsFramed(frame, u"07"); }

/// Mitel hotel frames: field 7 of a wake-up result is "7".
bool IsMitelConfirmation(std::u16string_view frame) { return HasMitelTrailer(frame) && MitelField(frame, 7) == u"7"; }

/// Whether `mark` stands anywhere with `text` right behind it.
bool ContainsInSequence(std::u16string_view frame, std::u16string_view mark, std::u16string_view text) {
    for (std::size_t at = frame.find(mark); at != std::u16string_view::npos; at = frame.find(mark, at + 1))
        if (frame.substr(at + mark.size()).starts_with(text)) return true;
    return false;
}

/// innovaphone event log: the first extension (e164) of a call.
std::u16string_view EventExtension(std::u16string_view frame) {
    constexpr std::u16string_view kMark = u"e164=\"";
    return Contains(frame, kMark) ? Trim(GetTextBetween(frame, kMark, u"\"")) : std::u16string_view{};
}

bool WakeUpAnswered(std::u16string_view frame) { return Contains(frame, u"<event msg=\"conn-from\""); }
bool WakeUpReleased(std::u16string_view frame) { return Contains(frame, u"<event msg=\"rel-to\""); }

bool IsInnovaphoneConfirmation(std::u16string_view frame, const Settings& settings) {
    if (!ContainsInSequence(frame, u"h323=\"", settings.WakeupResponseH323)) return false;
    if (!Contains(frame, u"type=\"ext\"")) return false;
    const std::u16string_view extension = EventExtension(frame);
    if (extension.empty() || extension == settings.WakeupResponseFallback || !IsNumeric(extension)) return false;
    if (Contains(frame, u"e164=\"0")) return false;
    return WakeUpReleased(frame) || WakeUpAnswered(frame);
}

/// Panasonic: "Timed Reminder/Start", "/Answer" and "/No Answer" in the column of the dialled number.
Confirmation PanasonicConfirmation(std::u16string_view frame) {
    if (UpperContains<u"TIMED REMINDER/ANSWER", u"TIMED REMINDER/NO ANSWER">(frame)) return Confirmation::Yes;
    return SecondKindIf(UpperContains<u"TIMED REMINDER/START">(frame));
}

/// Grandstream: the record of a call by "Wake Up Call"; field 18 of it, as it is split at every comma, is the result.
bool IsGrandstreamConfirmation(std::u16string_view frame) {
    if (!UpperContains<u"WAKE UP CALL">(GetCommaField(frame, 6))) return false;
    const std::u16string_view result = GetCommaField(frame, 18);
    return UpperContains<u"ANSWERED">(result) || UpperContains<u"NO ANSWER">(result) || UpperContains<u"BUSY">(result);
}

Confirmation Confirms(Model model, std::u16string_view frame, const Settings& settings) {
    switch (model) {
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10007: return YesIf(IsIntegralConfirmation(frame));
        case Model::Type10004:
        case Model::Type10011:
        case Model::Type10015: return SecondKindIf(HasMitelTrailer(frame));
        case Model::Type10006:  // the only Mitel model with both kinds
            return IsMitelConfirmation(frame) ? Confirmation::Yes : SecondKindIf(HasMitelTrailer(frame));
        case Model::Type10008:
        case Model::Type10014:
        case Model::Type10016: return YesIf(IsMitelConfirmation(frame));
        case Model::Type10012: return YesIf(IsInnovaphoneConfirmation(frame, settings));
        case Model::Type10019: return PanasonicConfirmation(frame);
        case Model::Type10020: return YesIf(IsGrandstreamConfirmation(frame));
        case Model::Type12000: return YesIf(IsFramed(frame, u"WA|"));
        case Model::Type10003:
        case Model::Type10005:
        case Model::Type10009:
        case Model::Type10010:
        case Model::Type10013:
        case Model::Type10017:
        case Model::Type10018: return Confirmation::No;
    }
    return Confirmation::No;
}

/// STX "08", five digits of extension, "hhmm", mode, ETX. Room states and alarms have the same shape; "0011" and the
/// like in place of the time tell them apart.
bool IsIntegralSetClock(std::u16string_view frame) {
    const std::u16string_view time = Mid(frame, 9, 4);
    const bool room_event = time == u"0011" || time == u"0022" || time == u"0033";
    return frame.size() == 14 && !room_event && IsFramed(frame, u"08");
}

bool SetsClock(Model model, std::u16string_view frame) {
    switch (model) {
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10007: return IsIntegralSetClock(frame);
        case Model::Type12000: return IsFramed(frame, u"WR|") || IsFramed(frame, u"WC|");
        case Model::Type10003:
        case Model::Type10004:
        case Model::Type10005:
        case Model::Type10006:
        case Model::Type10008:
        case Model::Type10009:
        case Model::Type10010:
        case Model::Type10011:
        case Model::Type10012:
        case Model::Type10013:
        case Model::Type10014:
        case Model::Type10015:
        case Model::Type10016:
        case Model::Type10017:
        case Model::Type10018:
        case Model::Type10019:
        case Model::Type10020: return false;
    }
    return false;
}

std::u16string PanasonicFrame(std::u16string_view frame) {
    const std::u16string_view extension = PanasonicExtension(frame);
    if (UpperContains<u"TIMED REMINDER/NO ANSWER">(frame)) return ConfirmationFrame(extension, kNotAnswered);
    if (UpperContains<u"TIMED REMINDER/ANSWER">(frame)) return ConfirmationFrame(extension, kAnswered);
    return ConfirmationFrame(extension, kStarted);
}

std::u16string GrandstreamFrame(std::u16string_view frame) {
    const std::u16string_view called = QuotedField(frame, 4);
    const std::u16string_view extension = IsDigits(Trim(called)) ? called : QuotedField(frame, 3);
    const std::u16string_view result = GetCommaField(frame, 18);
    const bool missed = UpperContains<u"NO ANSWER">(result) || UpperContains<u"BUSY">(result);
    return ConfirmationFrame(extension, missed ? kNotAnswered : kAnswered);
}

std::u16string FiasFrame(std::u16string_view frame) {
    const std::u16string_view answer = FiasValue(frame, u"|AS");
    const char16_t status = answer == u"OK" ? kAnswered : answer == u"RY" ? kStarted : kNotAnswered;
    return ConfirmationFrame(FiasValue(frame, u"|RN"), status);
}

/// A recognised frame in the host's form.
std::u16string HostFrame(Model model, std::u16string_view frame) {
    switch (model) {
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10007: return std::u16string(frame);  // the host's form is theirs
        case Model::Type10006:
        case Model::Type10008:
        case Model::Type10014:
        case Model::Type10016:
            return IsMitelConfirmation(frame) ? ConfirmationFrame(MitelRoom(frame), kAnswered) : std::u16string();
        case Model::Type10012:
            return ConfirmationFrame(EventExtension(frame), WakeUpAnswered(frame) ? kAnswered : kNotAnswered);
        case Model::Type10019: return PanasonicFrame(frame);
        case Model::Type10020: return GrandstreamFrame(frame);
        case Model::Type12000: return FiasFrame(frame);
        case Model::Type10004:  // of these three only the second kind is recognised, which says nothing of a room
        case Model::Type10011:
        case Model::Type10015:
        case Model::Type10003:
        case Model::Type10005:
        case Model::Type10009:
        case Model::Type10010:
        case Model::Type10013:
        case Model::Type10017:
        case Model::Type10018: return {};
    }
    return {};
}

}  // namespace

std::int16_t GetComIsConfirmClock(TypeCode type, std::u16string_view frame, const Settings& settings) {
    const std::optional<Model> model = UpperAndFind(type);
    return static_cast<std::int16_t>(model ? Confirms(*model, frame, settings) : Confirmation::Yes);
}

std::int16_t GetComIsSetClock(TypeCode type, std::u16string_view frame) {
    const std::optional<Model> model = UpperAndFind(type);
    return !model || SetsClock(*model, frame) ? 1 : 0;
}

std::u16string GetComConvertConfirmClockRX(TypeCode type, std::u16string_view frame, const Settings& settings,
                                           CriticalMessage& message) {
    const std::optional<Model> model = UpperAndFind(type, u"GetComConvertConfirmClockRX", message);
    const bool recognised = model && Confirms(*model, frame, settings) != Confirmation::No;
    return recognised ? HostFrame(*model, frame) : std::u16string();
}

}  // namespace vintrel::rx
