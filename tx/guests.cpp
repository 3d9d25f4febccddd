#include "tx/guests.h"

#include <optional>

#include "server/control_characters.h"

namespace vintrel::tx {

using server::kCr;
using server::kEtx;
using server::kStx;
using server::kTab;
using server::Model;

namespace {

/// How a model takes guest orders.
enum class Family : std::uint8_t { None, Integral, MitelHotel, Innovaphone, IpOffice, Panasonic, Grandstream, Fias };

constexpr server::PerModel<Family> kFamily{{
    {Model::Type10001, Family::Integral},  {Model::Type10002, Family::Integral},
    {Model::Type10003, Family::None},      {Model::Type10004, Family::MitelHotel},
    {Model::Type10005, Family::None},      {Model::Type10006, Family::MitelHotel},
    {Model::Type10007, Family::Integral},  {Model::Type10008, Family::MitelHotel},
    {Model::Type10009, Family::None},      {Model::Type10010, Family::None},
    {Model::Type10011, Family::None},      {Model::Type10012, Family::Innovaphone},
    {Model::Type10013, Family::None},      {Model::Type10014, Family::MitelHotel},
    {Model::Type10015, Family::None},      {Model::Type10016, Family::MitelHotel},
    {Model::Type10017, Family::IpOffice},  {Model::Type10018, Family::None},
    {Model::Type10019, Family::Panasonic}, {Model::Type10020, Family::Grandstream},
    {Model::Type12000, Family::Fias},
}};

constexpr std::array<std::u16string_view, 5> kFiasLanguages{u"GLGE|", u"GLIT|", u"GLEA|", u"GLFR|", u"GLSP|"};

/// "11" opens the telephone, "22" bars it.
std::u16string IntegralRoom(std::int32_t room, std::u16string_view state) {
    return Command({kStx, u"04", PaddedRoom(room), state, kEtx});
}

std::u16string IntegralName(Model model, std::int32_t room, std::u16string_view name) {
    const std::u16string plain = Room(room);
    // The newer software takes no empty name.
    if (model == Model::Type10002 && server::Trim(name).empty()) name = plain;
    return Command({kStx, u"06", PaddedRoom(room), name, kEtx});
}

std::u16string MitelRoom(std::int32_t room, std::u16string_view state) {
    return Command({u"h5", kTab, Room(room), kTab, state, kCr});
}

std::u16string MitelName(std::int32_t room, server::InOutText& name) {
    if (name.View().empty() || name.View() == u" " || server::IsNumeric(name.View()))
        name.Replace(Command({u"I", Room(room)}));
    return Command({u"h4", kTab, Room(room), kTab, name.View(), kCr});
}

std::u16string FiasCheckIn(const CheckInOrder& order) {
    const std::u16string_view name = server::Trim(order.name);
    const std::u16string name_part = name.empty() ? std::u16string() : Command({u"GN", name, u"|"});
    return Command(
        {kStx, u"GI|RN", Room(order.room), u"|", name_part, LanguageWord(kFiasLanguages, order.language, u""), kEtx});
}

}  // namespace

std::u16string ComEventCheckInTX(server::TypeCode TypeX, std::int32_t UserX, std::u16string_view NameX,
                                 std::int16_t LanguageX, std::int16_t ChangeNameEnabled,
                                 server::CriticalMessage& message, DrivenExchanges& exchanges) {
    const std::optional<Model> model = server::UpperAndFind(TypeX, u"ComEventCheckInTX", message);
    if (!model) return {};
    const CheckInOrder order{
        .room = UserX, .name = NameX, .language = LanguageX, .change_name = ChangeNameEnabled == 1};
    switch (kFamily[*model]) {
        case Family::Integral: return IntegralRoom(UserX, u"11");
        case Family::MitelHotel: return MitelRoom(UserX, u"1");
        case Family::Innovaphone: return std::u16string(exchanges.innovaphone.CheckIn(order));
        case Family::IpOffice: return std::u16string(exchanges.ip_office.CheckIn(order));
        case Family::Panasonic: return std::u16string(exchanges.panasonic.CheckIn(order));
        case Family::Grandstream: return std::u16string(exchanges.grandstream.CheckIn(order));
        case Family::Fias: return FiasCheckIn(order);
        case Family::None: break;
    }
    return {};
}

std::u16string ComEventCheckOutTX(server::TypeCode TypeX, std::int32_t UserX, std::int16_t ChangeNameEnabled,
                                  server::CriticalMessage& message, DrivenExchanges& exchanges) {
    const std::optional<Model> model = server::UpperAndFind(TypeX, u"ComEventCheckOutTX", message);
    if (!model) return {};
    const CheckOutOrder order{.room = UserX, .change_name = ChangeNameEnabled == 1};
    switch (kFamily[*model]) {
        case Family::Integral: return IntegralRoom(UserX, u"22");
        case Family::MitelHotel: return MitelRoom(UserX, u"0");
        case Family::Innovaphone: return std::u16string(exchanges.innovaphone.CheckOut(order));
        case Family::IpOffice: return std::u16string(exchanges.ip_office.CheckOut(order));
        case Family::Panasonic: return std::u16string(exchanges.panasonic.CheckOut(order));
        case Family::Grandstream: return std::u16string(exchanges.grandstream.CheckOut());
        case Family::Fias: return Command({kStx, u"GO|RN", Room(UserX), u"|", kEtx});
        case Family::None: break;
    }
    return {};
}

std::u16string ComEventUserNameTX(server::TypeCode TypeX, std::int32_t UserX, server::InOutText& NameZ,
                                  server::CriticalMessage& message, DrivenExchanges& exchanges) {
    const std::optional<Model> model = server::UpperAndFind(TypeX, u"ComEventUserNameTX", message);
    if (!model) return {};
    const std::u16string_view name = NameZ.View();
    switch (kFamily[*model]) {
        case Family::Integral: return IntegralName(*model, UserX, name);
        case Family::MitelHotel: return MitelName(UserX, NameZ);
        case Family::Innovaphone: return std::u16string(exchanges.innovaphone.UserName(UserX, name));
        case Family::IpOffice: return std::u16string(exchanges.ip_office.UserName(UserX, name));
        case Family::Panasonic: return std::u16string(exchanges.panasonic.UserName(UserX));
        case Family::Fias: return Command({kStx, u"GC|RN", Room(UserX), u"|GN", server::Trim(name), u"|", kEtx});
        case Family::Grandstream:  // the exchange renames by checking in
        case Family::None: break;
    }
    return {};
}

}  // namespace vintrel::tx
