#include "server/link.h"

#include "text/control_characters.h"

namespace vintrel::server {

using exchanges::Link;
using exchanges::Login;
using exchanges::Model;

std::int16_t ComPortReadyType(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::port_ready, type, u"ComPortReadyType", message);
}

std::int16_t ComPortDTRTime(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::dtr_time, type, u"ComPortDTRTime", message);
}

std::u16string_view GetComSTXRx() { return {&text::kStx, 1}; }

std::u16string_view GetComETXRx() { return {&text::kEtx, 1}; }

std::u16string_view GetComDLERx() { return {&text::kDle, 1}; }

std::int16_t GetComEtxEndReadRxType(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::end_read, type, u"GetComEtxEndReadRxType", message);
}

std::int16_t GetComMultiDurationReadRx(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::multi_duration, type, u"GetComMultiDurationReadRx", message);
}

std::int16_t UseDataReadBuffer(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::read_buffer, type, u"UseDataReadBuffer", message);
}

std::int16_t GetPABXConnectionType(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::connection, type, u"GetPABXConnectionType", message);
}

std::int16_t GetTCPIPWinsockAB(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::winsock, type, u"GetTCPIPWinsockAB", message);
}

std::int16_t GetTCPIPConnectDirection(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::direction, type, u"GetTCPIPConnectDirection", message);
}

std::int16_t GetPABXTCPIPConnectionType(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::connect, type, u"GetPABXTCPIPConnectionType", message);
}

std::int32_t GetPABXTCPIPREConnection(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::reconnect, type, u"GetPABXTCPIPREConnection", message);
}

std::u16string_view GetPABXTCPIPIDRequest(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::id_request, type, u"GetPABXTCPIPIDRequest", message);
}

std::u16string_view GetPABXTCPIPIDConfirm(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::id_confirm, type, u"GetPABXTCPIPIDConfirm", message);
}

std::u16string_view GetPABXTCPIPPWRequest(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::pw_request, type, u"GetPABXTCPIPPWRequest", message);
}

std::u16string_view GetPABXTCPIPPWConfirm(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::pw_confirm, type, u"GetPABXTCPIPPWConfirm", message);
}

std::u16string_view GetPABXTCPIPIDRequest2(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::id_request2, type, u"GetPABXTCPIPIDRequest2", message);
}

std::u16string_view GetPABXTCPIPIDConfirm2(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::id_confirm2, type, u"GetPABXTCPIPIDConfirm2", message);
}

std::u16string_view GetPABXTCPIPPWRequest2(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::pw_request2, type, u"GetPABXTCPIPPWRequest2", message);
}

std::u16string_view GetPABXTCPIPPWConfirm2(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::pw_confirm2, type, u"GetPABXTCPIPPWConfirm2", message);
}

std::u16string_view GetPABXTCPIPDLCommand(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::download, type, u"GetPABXTCPIPDLCommand", message);
}

std::int32_t GetCheckInType(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::check_in, type, u"GetCheckInType", message);
}

std::int32_t GetINIEnabled(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::link, &Link::ini, type, u"GetINIEnabled", message);
}

}  // namespace vintrel::server
