#include "host/link/ask_link.h"

#include "host/link/recognition.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

/// The answer for models whose connections the server makes itself: it also does their login.
constexpr long kDrivenByTheServer = 2;

std::string WithoutMarker(std::u16string_view text) { return IsMarker(text) ? std::string() : ToBytes(text); }

void AskAboutLogin(const Server& server, const Model& model, LinkAnswers& answers) {
    answers.login_request = ToBytes(model.Text(server.tx, &_ComEventsTX::ComEventRequestLogInTX));
    answers.login_confirmed = ToBytes(model.Text(server.rx, &_ComEventsRX::ComEventConfirmLogInRX));
    answers.exchange_request = WithoutMarker(model.Text(server.rx, &_ComEventsRX::ComEventRequestLogInRX));
    answers.confirm_exchange = ToBytes(model.Text(server.tx, &_ComEventsTX::ComEventConfirmLogInTX));
    if (model.Value(server.link, &_ComProgramSet::GetTCPIPWinsockAB) == kDrivenByTheServer) return;
    const auto either = [&](auto first, auto second) {
        const std::u16string answer = model.Text(server.link, first);
        return ToBytes(answer.empty() ? model.Text(server.link, second) : answer);
    };
    answers.user_prompt = either(&_ComProgramSet::GetPABXTCPIPIDRequest, &_ComProgramSet::GetPABXTCPIPIDRequest2);
    answers.user_answer = either(&_ComProgramSet::GetPABXTCPIPIDConfirm, &_ComProgramSet::GetPABXTCPIPIDConfirm2);
    answers.password_prompt = either(&_ComProgramSet::GetPABXTCPIPPWRequest, &_ComProgramSet::GetPABXTCPIPPWRequest2);
    answers.password_answer = either(&_ComProgramSet::GetPABXTCPIPPWConfirm, &_ComProgramSet::GetPABXTCPIPPWConfirm2);
}

/// The units are the host's: the pause between transmissions counts in milliseconds, the wait for a confirmation in
/// seconds, and a reconnection value of a second or more is milliseconds, a smaller one just says that there is one.
void AskAboutTimes(const Server& server, const Model& model, LinkAnswers& answers) {
    constexpr std::uint64_t kSecond = 1000;
    constexpr std::uint64_t kUsualReconnectPause = 5 * kSecond;
    const auto number = [](long value) { return static_cast<std::uint64_t>(value < 0 ? 0 : value); };
    answers.wait_for_confirmation = model.Value(server.tx, &_ComEventsTX::ComPortTxWaitConfirm) != 0;
    answers.pause = number(model.Value(server.tx, &_ComEventsTX::ComPortTXInterval));
    answers.confirmation_time = kSecond * number(model.Value(server.tx, &_ComEventsTX::ComPortTXIntervalWithWait));
    const std::uint64_t pause = number(model.Value(server.link, &_ComProgramSet::GetPABXTCPIPREConnection));
    answers.reconnect_pause = pause < kSecond ? kUsualReconnectPause : pause;
}

}  // namespace

Framing FramingOf(const Server& server, const Model& model) {
    Framing framing;
    framing.end = ToBytes(model.Text(server.rx, &_ComEventsRX::GetComEtxEndReadRx));
    framing.end2 = ToBytes(model.Text(server.rx, &_ComEventsRX::GetComEtxEndReadRx2));
    // A frame that ends with the end character begins with the start character; text lines begin where the last ended.
    if (framing.end == ToBytes(server.Text(server.link, &_ComProgramSet::GetComETXRx)))
        framing.start = ToBytes(server.Text(server.link, &_ComProgramSet::GetComSTXRx));
    return framing;
}

LinkAnswers AskAboutLink(const Server& server, const Model& model) {
    LinkAnswers answers;
    answers.framing = FramingOf(server, model);
    answers.fias = SpeaksFias(server, model);
    answers.acknowledge = WithoutMarker(model.Text(server.rx, &_ComEventsRX::GetComACKRx));
    answers.reject = ToBytes(model.Text(server.tx, &_ComEventsTX::ComEventErrorHandleTX));
    answers.repeat_errors = static_cast<unsigned>(model.Value(server.rx, &_ComEventsRX::GetRepeatErrorEventRX));
    answers.before_order = ToBytes(model.Text(server.tx, &_ComEventsTX::ComEventPrimaryTX));
    answers.after_order = ToBytes(model.Text(server.tx, &_ComEventsTX::ComEventAfterTX));
    answers.raise_dtr_rts = model.Value(server.tx, &_ComEventsTX::ComEventDtrRtsEnabled) != 0;
    AskAboutLogin(server, model, answers);
    AskAboutTimes(server, model, answers);
    return answers;
}

}  // namespace vintrel::host
