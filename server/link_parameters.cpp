#include "server/link_parameters.h"

#include "server/control_characters.h"

namespace vintrel::server {
namespace {

struct LinkRow {
    std::int16_t port_ready, dtr_time, end_read, multi_duration, read_buffer;
    std::int16_t connection, winsock, direction, connect;
    std::int32_t reconnect, check_in, ini;
};

// clang-format off
// port ready, DTR time: 0 for the Integral models with STX ETX frames only
// link: 0 serial, 1 CSV lines, 2 network        socket: 2 = the server itself drives the exchange over HTTP or SOAP
// direct = who connects, conn. = way of connecting, INI = sections of its own in Vintrel.ini
constexpr PerModel<LinkRow> kLink{{
    //                    port     DTR  end of   multi    read                                  recon-  check-
    //                   ready    time    read  durat.  buffer    link  socket  direct   conn.    nect      in     INI
    {Model::Type10001, {     0,      0,      1,      0,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10002, {     0,      0,      1,      1,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10003, {     1,      1,      2,      0,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10004, {     1,      1,      2,      0,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10005, {     1,      1,      2,      0,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10006, {     1,      1,      2,      0,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10007, {     0,      0,      1,      0,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10008, {     1,      1,      2,      0,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10009, {     1,      1,      2,      0,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10010, {     1,      1,      2,      0,      0,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10011, {     1,      1,      2,      0,      0,      2,      0,      0,      1,      1,      0,      0}},
    {Model::Type10012, {     1,      1,      1,      0,      0,      2,      2,      0,      0,      0,      1,      1}},
    {Model::Type10013, {     1,      1,      1,      0,      0,      1,      0,      0,      0,      0,      0,      0}},
    {Model::Type10014, {     1,      1,      2,      0,      0,      2,      1,      0,      1,      1,      0,      0}},
    {Model::Type10015, {     1,      1,      2,      0,      0,      2,      0,      0,      1,      1,      0,      0}},
    {Model::Type10016, {     1,      1,      2,      0,      0,      2,      1,      0,      1,      1,      0,      0}},
    {Model::Type10017, {     1,      1,      2,      0,      0,      2,      2,      0,      1,      0,      1,      1}},
    {Model::Type10018, {     1,      1,      2,      0,      1,      0,      0,      0,      0,      0,      0,      0}},
    {Model::Type10019, {     1,      1,      2,      0,      0,      2,      0,      1,      0,  65500,      1,      1}},  // 65500: odd, and meant so
    {Model::Type10020, {     1,      1,      1,      0,      0,      2,      2,      0,      1,      0,      0,      0}},
    {Model::Type12000, {     1,      1,      1,      0,      0,      2,      1,      0,      1,      0,      1,      0}},
}};
// clang-format on

/// What the exchange asks and what the host answers, in the order of the dialogue. What is not named is "".
struct LoginRow {
    std::u16string_view id_request{}, id_confirm{}, pw_request{}, pw_confirm{};
    std::u16string_view id_request2{}, id_confirm2{}, pw_request2{}, pw_confirm2{};
    std::u16string_view download{};
};

// clang-format off
constexpr PerModel<LoginRow> kLogin{{
    {Model::Type10001, {}},
    {Model::Type10002, {}},
    {Model::Type10003, {}},
    {Model::Type10004, {}},
    {Model::Type10005, {}},
    {Model::Type10006, {}},
    {Model::Type10007, {}},
    {Model::Type10008, {}},
    {Model::Type10009, {}},
    {Model::Type10010, {}},
    {Model::Type10011, {}},
    {Model::Type10012, {.id_request2 = u"HTTP",       .pw_request2 = u"HTTP"}},
    {Model::Type10013, {}},
    {Model::Type10014, {.id_request2 = u"Username: ", .pw_request2 = u"Password: ",      .pw_confirm2 = u"I"}},
    {Model::Type10015, {}},
    {Model::Type10016, {.id_request2 = u"Username: ", .pw_request2 = u"Password: ",      .pw_confirm2 = u"I"}},
    {Model::Type10017, {.id_request2 = u"VINTREL",    .pw_request2 = u"VINTREL"}},
    {Model::Type10018, {}},
    {Model::Type10019, {.id_request  = u"-",          .pw_request  = u"Enter Password:", .pw_confirm  = u"*\r"}},
    {Model::Type10020, {.id_request2 = u"HTTP",       .pw_request2 = u"HTTP"}},
    {Model::Type12000, {}},
}};
// clang-format on

template <typename Answer>
Answer Link(Answer LinkRow::*column, TypeCode type, std::u16string_view operation, CriticalMessage& message) {
    return AnswerFrom(kLink, column, type, operation, message);
}

std::u16string_view Login(std::u16string_view LoginRow::*column, TypeCode type, std::u16string_view operation,
                          CriticalMessage& message) {
    return AnswerFrom(kLogin, column, type, operation, message);
}

}  // namespace

std::int16_t ComPortReadyType(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::port_ready, type, u"ComPortReadyType", message);
}

std::int16_t ComPortDTRTime(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::dtr_time, type, u"ComPortDTRTime", message);
}

std::u16string_view GetComSTXRx() { return {&kStx, 1}; }

std::u16string_view GetComETXRx() { return {&kEtx, 1}; }

std::u16string_view GetComDLERx() { return {&kDle, 1}; }

std::int16_t GetComEtxEndReadRxType(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::end_read, type, u"GetComEtxEndReadRxType", message);
}

std::int16_t GetComMultiDurationReadRx(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::multi_duration, type, u"GetComMultiDurationReadRx", message);
}

std::int16_t UseDataReadBuffer(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::read_buffer, type, u"UseDataReadBuffer", message);
}

std::int16_t GetPABXConnectionType(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::connection, type, u"GetPABXConnectionType", message);
}

std::int16_t GetTCPIPWinsockAB(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::winsock, type, u"GetTCPIPWinsockAB", message);
}

std::int16_t GetTCPIPConnectDirection(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::direction, type, u"GetTCPIPConnectDirection", message);
}

std::int16_t GetPABXTCPIPConnectionType(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::connect, type, u"GetPABXTCPIPConnectionType", message);
}

std::int32_t GetPABXTCPIPREConnection(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::reconnect, type, u"GetPABXTCPIPREConnection", message);
}

std::u16string_view GetPABXTCPIPIDRequest(TypeCode type, CriticalMessage& message) {
    return Login(&LoginRow::id_request, type, u"GetPABXTCPIPIDRequest", message);
}

std::u16string_view GetPABXTCPIPIDConfirm(TypeCode type, CriticalMessage& message) {
    return Login(&LoginRow::id_confirm, type, u"GetPABXTCPIPIDConfirm", message);
}

std::u16string_view GetPABXTCPIPPWRequest(TypeCode type, CriticalMessage& message) {
    return Login(&LoginRow::pw_request, type, u"GetPABXTCPIPPWRequest", message);
}

std::u16string_view GetPABXTCPIPPWConfirm(TypeCode type, CriticalMessage& message) {
    return Login(&LoginRow::pw_confirm, type, u"GetPABXTCPIPPWConfirm", message);
}

std::u16string_view GetPABXTCPIPIDRequest2(TypeCode type, CriticalMessage& message) {
    return Login(&LoginRow::id_request2, type, u"GetPABXTCPIPIDRequest2", message);
}

std::u16string_view GetPABXTCPIPIDConfirm2(TypeCode type, CriticalMessage& message) {
    return Login(&LoginRow::id_confirm2, type, u"GetPABXTCPIPIDConfirm2", message);
}

std::u16string_view GetPABXTCPIPPWRequest2(TypeCode type, CriticalMessage& message) {
    return Login(&LoginRow::pw_request2, type, u"GetPABXTCPIPPWRequest2", message);
}

std::u16string_view GetPABXTCPIPPWConfirm2(TypeCode type, CriticalMessage& message) {
    return Login(&LoginRow::pw_confirm2, type, u"GetPABXTCPIPPWConfirm2", message);
}

std::u16string_view GetPABXTCPIPDLCommand(TypeCode type, CriticalMessage& message) {
    return Login(&LoginRow::download, type, u"GetPABXTCPIPDLCommand", message);
}

std::int32_t GetCheckInType(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::check_in, type, u"GetCheckInType", message);
}

std::int32_t GetINIEnabled(TypeCode type, CriticalMessage& message) {
    return Link(&LinkRow::ini, type, u"GetINIEnabled", message);
}

}  // namespace vintrel::server
