#include "server/pacing.h"

namespace vintrel::server {

using exchanges::Framing;
using exchanges::Login;
using exchanges::Model;
using exchanges::Pacing;

std::int16_t ComPortTxWaitConfirm(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::pacing, &Pacing::wait_confirm, type, u"ComPortTxWaitConfirm", message);
}

std::int32_t ComPortTXIntervalWithWait(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::pacing, &Pacing::interval_with_wait, type, u"ComPortTXIntervalWithWait", message);
}

std::int32_t ComPortTXInterval(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::pacing, &Pacing::interval, type, u"ComPortTXInterval", message);
}

std::u16string_view ComEventConfirmDataRecordTX(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::framing, &Framing::confirm_record, type, u"ComEventConfirmDataRecordTX", message);
}

std::u16string_view ComEventErrorHandleTX(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::framing, &Framing::reject_record, type, u"ComEventErrorHandleTX", message);
}

std::u16string_view ComEventRequestLogInTX(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::host_request, type, u"ComEventRequestLogInTX", message);
}

std::u16string_view ComEventConfirmLogInTX(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::host_confirm, type, u"ComEventConfirmLogInTX", message);
}

std::int16_t ComEventDtrRtsEnabled(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::pacing, &Pacing::dtr_rts, type, u"ComEventDtrRtsEnabled", message);
}

std::u16string_view ComEventPrimaryTX(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::pacing, &Pacing::before, type, u"ComEventPrimaryTX", message);
}

std::u16string_view ComEventAfterTX(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::pacing, &Pacing::after, type, u"ComEventAfterTX", message);
}

}  // namespace vintrel::server
