#include "server/framing.h"

namespace vintrel::server {

using exchanges::Framing;
using exchanges::Model;

std::int32_t GetComLngEndReadRx(TypeCode type, platform::CriticalMessage& message) {
    // The report has always named this operation without its last letter.
    return AnswerFrom(&Model::framing, &Framing::length, type, u"GetComLngEndReadR", message);
}

std::u16string_view GetComEtxEndReadRx(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::framing, &Framing::end, type, u"GetComEtxEndReadRx", message);
}

std::u16string_view GetComEtxEndReadRx2(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::framing, &Framing::end2, type, u"GetComEtxEndReadRx2", message);
}

std::u16string_view GetComACKRx(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::framing, &Framing::acknowledge, type, u"GetComACKRx", message);
}

std::int16_t GetRepeatErrorEventRX(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::framing, &Framing::repeat_error, type, u"GetRepeatErrorEventRX", message,
                      std::int16_t{1});
}

std::int16_t GetIPXComColumn(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::framing, &Framing::columns, type, u"GetIPXComColumn", message);
}

std::int16_t GetIPXComSpace(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::framing, &Framing::space, type, u"GetIPXComSpace", message);
}

std::int16_t GetIPXComComma(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::framing, &Framing::comma, type, u"GetIPXComComma", message);
}

}  // namespace vintrel::server
