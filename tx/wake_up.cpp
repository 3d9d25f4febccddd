#include "tx/wake_up.h"

#include "server/control_characters.h"
#include "server/text.h"

namespace vintrel::tx {

using server::kCr;
using server::kEtx;
using server::kStx;
using server::kTab;
using server::Model;

namespace {

/// Avaya Integral: the same for every mode.
std::u16string IntegralWakeUp(const WakeUpOrder& order) {
    return Command({kStx, u"07", PaddedRoom(order.room), order.time, u"1", kEtx});
}

std::u16string MitelWakeUp(const WakeUpOrder& order) {
    std::u16string_view mode;
    if (order.mode == kSetOnce) mode = u"1";
    if (order.mode == kCancel) mode = u"0";
    if (order.mode == kSetRepeating) mode = u"2";
    if (mode.empty()) return {};
    return Command({u"h6", kTab, Room(order.room), kTab, mode, kTab, order.time, kCr});
}

/// FIAS knows no repeating call, and its date is always of this year.
std::u16string FiasWakeUp(const WakeUpOrder& order, const server::Clock& clock) {
    if (order.mode != kSetOnce && order.mode != kCancel) return {};
    std::u16string date;
    if (order.date != u"----")
        date = Command({u"|DA", server::TwoDigits(clock.LocalNow().year), order.Month(), order.Day()});
    return Command(
        {kStx, order.mode == kSetOnce ? u"WR|RN" : u"WC|RN", Room(order.room), date, u"|TI", order.time, u"00|", kEtx});
}

}  // namespace

std::u16string ComEventClockTX(server::TypeCode TypeX, std::int32_t UserX, std::u16string_view TimeX,
                               std::u16string_view DateX, std::int16_t WakeUpMode, std::int16_t LanguageX,
                               server::CriticalMessage& message, const server::Clock& clock,
                               DrivenExchanges& exchanges) {
    const std::optional<Model> model = server::UpperAndFind(TypeX, u"ComEventClockTX", message);
    if (!model) return {};
    const WakeUpOrder order{.room = UserX, .time = TimeX, .date = DateX, .mode = WakeUpMode, .language = LanguageX};
    switch (*model) {
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10007: return IntegralWakeUp(order);
        case Model::Type10004:
        case Model::Type10006:
        case Model::Type10008:
        case Model::Type10014:
        case Model::Type10016: return MitelWakeUp(order);
        case Model::Type10012: return std::u16string(exchanges.innovaphone.WakeUp(order));
        case Model::Type10019: return std::u16string(exchanges.panasonic.WakeUp(order));
        case Model::Type10020: return std::u16string(exchanges.grandstream.WakeUp(order));
        case Model::Type12000: return FiasWakeUp(order, clock);
        case Model::Type10003:
        case Model::Type10005:
        case Model::Type10009:
        case Model::Type10010:
        case Model::Type10011:
        case Model::Type10013:
        case Model::Type10015:
        case Model::Type10017:
        case Model::Type10018: break;
    }
    return {};
}

}  // namespace vintrel::tx
