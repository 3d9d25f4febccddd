#include "server/services.h"

namespace vintrel::server {

using exchanges::Model;
using exchanges::Services;

std::int16_t GetRoomStateEnabled(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::services, &Services::room_state, type, u"GetRoomStateEnabled", message);
}

std::int16_t GetClockEnabled(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::services, &Services::clock, type, u"GetClockEnabled", message);
}

std::int16_t GetClockCentral(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::services, &Services::central, type, u"GetClockCentral", message);
}

std::int16_t GetCallListEnabled(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::services, &Services::call_list, type, u"GetCallListEnabled", message);
}

std::int16_t GetCheckInOutEnabled(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::services, &Services::check_in_out, type, u"GetCheckInOutEnabled", message);
}

std::int16_t GetModifyNameEnabled(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::services, &Services::name, type, u"GetModifyNameEnabled", message);
}

std::int16_t GetClockDateEnabled(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::services, &Services::clock_date, type, u"GetClockDateEnabled", message);
}

std::int16_t GetRoomAlarmEnabled(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::services, &Services::room_alarm, type, u"GetRoomAlarmEnabled", message);
}

}  // namespace vintrel::server
