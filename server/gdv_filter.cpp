#include "server/gdv_filter.h"

namespace vintrel::server {

std::int16_t GetGdvRealClockLen(TypeCode type, platform::CriticalMessage& message) {
    const exchanges::Model* const model = UpperAndFind(type, u"GetGdvRealClockLen", message);
    return model ? model->raw_length : std::int16_t{0};
}

}  // namespace vintrel::server
