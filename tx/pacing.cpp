#include "tx/pacing.h"

#include "server/control_characters.h"

namespace vintrel::tx {
namespace {

using server::kAckText;
using server::kNakText;
using server::Model;

struct PacingRow {
    std::int16_t wait_confirm;
    std::int32_t interval_with_wait, interval;
    std::int16_t dtr_rts;
};

// clang-format off
// wait conf. = wait for the exchange's confirmation; intervals: while waiting for it, and without waiting
constexpr server::PerModel<PacingRow> kPacing{{
    //                   wait  while  inter    DTR
    //                  conf.   wait    val    RTS
    {Model::Type10001, {    1,     1,    50,     1}},
    {Model::Type10002, {    1,     1,    50,     1}},
    {Model::Type10003, {    0,     1,     0,     0}},
    {Model::Type10004, {    1,    10,   130,     0}},
    {Model::Type10005, {    0,     1,     0,     0}},
    {Model::Type10006, {    1,    10,   130,     0}},
    {Model::Type10007, {    1,     1,    50,     1}},
    {Model::Type10008, {    1,    10,   130,     0}},
    {Model::Type10009, {    0,    10,   100,     0}},
    {Model::Type10010, {    0,     1,     1,     0}},
    {Model::Type10011, {    0,    10,    50,     0}},
    {Model::Type10012, {    1,    10,    50,     0}},
    {Model::Type10013, {    0,    10,     0,     0}},
    {Model::Type10014, {    1,    10,    50,     0}},
    {Model::Type10015, {    0,    10,    50,     0}},
    {Model::Type10016, {    1,    10,    50,     0}},
    {Model::Type10017, {    0,    10,    50,     0}},
    {Model::Type10018, {    0,     1,     0,     0}},
    {Model::Type10019, {    0,    30,    30,     0}},
    {Model::Type10020, {    0,     1,     1,     0}},
    {Model::Type12000, {    1,    10,    50,     0}},
}};
// clang-format on

/// What is not named is "".
struct StringsRow {
    std::u16string_view confirm_record{}, reject_record{}, request_login{}, confirm_login{}, before{}, after{};
};

constexpr std::u16string_view kStxEtx = u"\x02\x03";
constexpr std::u16string_view kIacDoEcho = u"\xFF\xFD\x01";  // a Telnet negotiation, one character per byte

// The Integral models confirm a login with NAK, the same character that rejects a record.
constexpr StringsRow kIntegral{
    .confirm_record = kAckText, .reject_record = kNakText, .request_login = kStxEtx, .confirm_login = kNakText};
constexpr StringsRow kMitelHotelTcp{.confirm_login = kIacDoEcho};

// clang-format off
constexpr server::PerModel<StringsRow> kStrings{{
    {Model::Type10001, kIntegral},
    {Model::Type10002, kIntegral},
    {Model::Type10003, {}},
    {Model::Type10004, {.before = u"h\rh\r", .after = u"h\r"}},
    {Model::Type10005, {.before = u"\rh", .after = u"h\r"}},
    {Model::Type10006, {.request_login = u"\ri3mode\r\r\r", .before = u"\rh", .after = u"h\r"}},
    {Model::Type10007, kIntegral},
    {Model::Type10008, {.before = u"h\rh\r", .after = u"h\r"}},
    {Model::Type10009, {}},
    {Model::Type10010, {}},
    {Model::Type10011, {}},
    {Model::Type10012, {}},
    {Model::Type10013, {}},
    {Model::Type10014, kMitelHotelTcp},
    {Model::Type10015, {}},
    {Model::Type10016, kMitelHotelTcp},
    {Model::Type10017, {}},
    {Model::Type10018, {}},
    {Model::Type10019, {.request_login = u"\r\n"}},
    {Model::Type10020, {}},
    {Model::Type12000, {.confirm_record = kAckText}},
}};
// clang-format on

template <typename Answer>
Answer Pacing(Answer PacingRow::*column, server::TypeCode type, std::u16string_view operation,
              server::CriticalMessage& message) {
    return server::AnswerFrom(kPacing, column, type, operation, message);
}

std::u16string_view String(std::u16string_view StringsRow::*column, server::TypeCode type,
                           std::u16string_view operation, server::CriticalMessage& message) {
    return server::AnswerFrom(kStrings, column, type, operation, message);
}

}  // namespace

std::int16_t ComPortTxWaitConfirm(server::TypeCode type, server::CriticalMessage& message) {
    return Pacing(&PacingRow::wait_confirm, type, u"ComPortTxWaitConfirm", message);
}

std::int32_t ComPortTXIntervalWithWait(server::TypeCode type, server::CriticalMessage& message) {
    return Pacing(&PacingRow::interval_with_wait, type, u"ComPortTXIntervalWithWait", message);
}

std::int32_t ComPortTXInterval(server::TypeCode type, server::CriticalMessage& message) {
    return Pacing(&PacingRow::interval, type, u"ComPortTXInterval", message);
}

std::u16string_view ComEventConfirmDataRecordTX(server::TypeCode type, server::CriticalMessage& message) {
    return String(&StringsRow::confirm_record, type, u"ComEventConfirmDataRecordTX", message);
}

std::u16string_view ComEventErrorHandleTX(server::TypeCode type, server::CriticalMessage& message) {
    return String(&StringsRow::reject_record, type, u"ComEventErrorHandleTX", message);
}

std::u16string_view ComEventRequestLogInTX(server::TypeCode type, server::CriticalMessage& message) {
    return String(&StringsRow::request_login, type, u"ComEventRequestLogInTX", message);
}

std::u16string_view ComEventConfirmLogInTX(server::TypeCode type, server::CriticalMessage& message) {
    return String(&StringsRow::confirm_login, type, u"ComEventConfirmLogInTX", message);
}

std::int16_t ComEventDtrRtsEnabled(server::TypeCode type, server::CriticalMessage& message) {
    return Pacing(&PacingRow::dtr_rts, type, u"ComEventDtrRtsEnabled", message);
}

std::u16string_view ComEventPrimaryTX(server::TypeCode type, server::CriticalMessage& message) {
    return String(&StringsRow::before, type, u"ComEventPrimaryTX", message);
}

std::u16string_view ComEventAfterTX(server::TypeCode type, server::CriticalMessage& message) {
    return String(&StringsRow::after, type, u"ComEventAfterTX", message);
}

}  // namespace vintrel::tx
