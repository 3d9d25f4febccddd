#include "server/capabilities.h"

namespace vintrel::server {
namespace {

struct ServiceRow {
    std::int16_t room_state, clock, central, call_list, check_in_out, name, clock_date, room_alarm;
};

// clang-format off
// 1 = offered; central = the central wake-up flag; date = wake-up date level, 0 to 2
constexpr PerModel<ServiceRow> kServices{{
    //                   room   wake   cen-   call  check  guest   date   room
    //                  state    -up   tral   list  inout   name  level  alarm
    {Model::Type10001, {    1,     1,     0,     1,     1,     1,     1,     1}},
    {Model::Type10002, {    1,     1,     0,     1,     1,     1,     1,     1}},
    {Model::Type10003, {    0,     0,     1,     0,     0,     0,     0,     0}},
    {Model::Type10004, {    0,     1,     1,     1,     1,     1,     2,     0}},
    {Model::Type10005, {    0,     0,     1,     1,     0,     0,     0,     0}},
    {Model::Type10006, {    0,     1,     1,     1,     1,     1,     2,     0}},
    {Model::Type10007, {    1,     1,     0,     0,     1,     1,     1,     1}},
    {Model::Type10008, {    1,     1,     1,     1,     1,     1,     2,     1}},
    {Model::Type10009, {    0,     0,     1,     1,     0,     0,     0,     0}},
    {Model::Type10010, {    0,     0,     1,     1,     0,     0,     0,     0}},
    {Model::Type10011, {    0,     0,     1,     1,     0,     0,     0,     1}},
    {Model::Type10012, {    1,     1,     1,     1,     1,     1,     2,     1}},
    {Model::Type10013, {    0,     0,     1,     1,     0,     0,     0,     0}},
    {Model::Type10014, {    1,     1,     1,     1,     1,     1,     2,     1}},
    {Model::Type10015, {    0,     0,     1,     1,     0,     0,     0,     1}},
    {Model::Type10016, {    1,     1,     1,     1,     1,     1,     2,     1}},
    {Model::Type10017, {    1,     0,     1,     1,     1,     1,     0,     1}},  // all but wake-up calls
    {Model::Type10018, {    0,     0,     1,     1,     0,     0,     0,     0}},
    {Model::Type10019, {    1,     1,     1,     1,     1,     1,     2,     1}},
    {Model::Type10020, {    1,     1,     1,     1,     1,     0,     1,     1}},  // no name changes, and date level 1
    {Model::Type12000, {    1,     1,     1,     1,     1,     1,     1,     1}},
}};
// clang-format on

std::int16_t Service(std::int16_t ServiceRow::*column, TypeCode type, std::u16string_view operation,
                     CriticalMessage& message) {
    return AnswerFrom(kServices, column, type, operation, message);
}

}  // namespace

std::int16_t GetRoomStateEnabled(TypeCode type, CriticalMessage& message) {
    return Service(&ServiceRow::room_state, type, u"GetRoomStateEnabled", message);
}

std::int16_t GetClockEnabled(TypeCode type, CriticalMessage& message) {
    return Service(&ServiceRow::clock, type, u"GetClockEnabled", message);
}

std::int16_t GetClockCentral(TypeCode type, CriticalMessage& message) {
    return Service(&ServiceRow::central, type, u"GetClockCentral", message);
}

std::int16_t GetCallListEnabled(TypeCode type, CriticalMessage& message) {
    return Service(&ServiceRow::call_list, type, u"GetCallListEnabled", message);
}

std::int16_t GetCheckInOutEnabled(TypeCode type, CriticalMessage& message) {
    return Service(&ServiceRow::check_in_out, type, u"GetCheckInOutEnabled", message);
}

std::int16_t GetModifyNameEnabled(TypeCode type, CriticalMessage& message) {
    return Service(&ServiceRow::name, type, u"GetModifyNameEnabled", message);
}

std::int16_t GetClockDateEnabled(TypeCode type, CriticalMessage& message) {
    return Service(&ServiceRow::clock_date, type, u"GetClockDateEnabled", message);
}

std::int16_t GetRoomAlarmEnabled(TypeCode type, CriticalMessage& message) {
    return Service(&ServiceRow::room_alarm, type, u"GetRoomAlarmEnabled", message);
}

}  // namespace vintrel::server
