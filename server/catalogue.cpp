#include "server/catalogue.h"

#include <algorithm>
#include <cstring>

namespace vintrel::server {
namespace {

struct CatalogueRow {
    std::u16string_view code;
    std::u16string_view name;
};

constexpr PerModel<CatalogueRow> kCatalogue{{
    {Model::Type10001, {u"TYPE10001", u"Avaya - Integral 1/3/5 SW xE3.xxx - xE5.xxx"}},
    {Model::Type10002, {u"TYPE10002", u"Avaya - Integral 1/3/5 SW xE6.3xx or higher"}},
    {Model::Type10003, {u"TYPE10003", u"Avaya - Integral 2/2R/22"}},
    {Model::Type10004, {u"TYPE10004", u"Mitel - I4 - 2030/2050/2060 (PC4)"}},
    {Model::Type10005, {u"TYPE10005", u"Mitel - Ascotel 200 (PC4)"}},
    {Model::Type10006, {u"TYPE10006", u"Mitel - I5 - 2025/2045/2065 (PC4)"}},
    {Model::Type10007, {u"TYPE10007", u"Avaya - Integral 3 SW x3.5xx - x9.5xx"}},
    {Model::Type10008, {u"TYPE10008", u"Mitel - I6/I7 - 2025/2045/2065 (PC4)"}},
    {Model::Type10009, {u"TYPE10009", u"Alcatel - OmniPCX (Oxo) V3"}},
    {Model::Type10010, {u"TYPE10010", u"Trucco - Algoral 658"}},
    {Model::Type10011, {u"TYPE10011", u"Mitel - IntelliGate TCP/IP (PC4)"}},
    {Model::Type10012, {u"TYPE10012", u"Innovaphone - PBX V6 or higher"}},
    {Model::Type10013, {u"TYPE10013", u"Wildix - WG90R (CDR-CSV)"}},
    {Model::Type10014, {u"TYPE10014", u"Mitel - IntelliGate 7.9 TCP/IP Hotel (PC4)"}},
    {Model::Type10015, {u"TYPE10015", u"Mitel - 400 TCP/IP (PC4)"}},
    {Model::Type10016, {u"TYPE10016", u"Mitel - 400 TCP/IP (PC4) V1-V2 Hotel"}},
    {Model::Type10017, {u"TYPE10017", u"Avaya - IP Office"}},
    {Model::Type10018, {u"TYPE10018", u"Panasonic - KX-TDE RS232"}},
    {Model::Type10019, {u"TYPE10019", u"Panasonic - KX-TDE/NS TCP/IP"}},
    {Model::Type10020, {u"TYPE10020", u"Grandstream - UCM6300 Series"}},
    {Model::Type12000, {u"TYPE12000", u"FIAS - PMS"}},
}};

constexpr std::size_t kCodeLength = 9;

/// The number that the last two characters of a code form; of characters that are no digits, any number.
constexpr unsigned Ending(std::u16string_view code) {
    return (code[kCodeLength - 2] - unsigned{u'0'}) * 10 + (code[kCodeLength - 1] - unsigned{u'0'});
}

/// The codes alone, close together.
constexpr auto kCodes = [] {
    std::array<std::array<char16_t, kCodeLength>, kModelCount> codes{};
    for (std::size_t i = 0; i < kModelCount; ++i) {
        const std::u16string_view code = kCatalogue[static_cast<Model>(i)].code;
        if (code.size() != kCodeLength) throw "a code of another length";
        std::copy(code.begin(), code.end(), codes.at(i).begin());
    }
    return codes;
}();

/// The one model that a code with a given ending can be. Two codes with the same ending do not compile.
constexpr auto kByEnding = [] {
    std::array<std::uint8_t, 100> models{};
    models.fill(kModelCount);
    for (std::size_t i = 0; i < kModelCount; ++i) {
        std::uint8_t& place = models.at(Ending(kCatalogue[static_cast<Model>(i)].code));
        if (place != kModelCount) throw "two codes with the same ending";
        place = static_cast<std::uint8_t>(i);
    }
    return models;
}();

}  // namespace

std::optional<Model> FindModel(std::u16string_view code) {
    if (code.size() != kCodeLength) return std::nullopt;
    const unsigned ending = Ending(code);
    if (ending >= kByEnding.size() || kByEnding[ending] == kModelCount) return std::nullopt;
    const std::size_t place = kByEnding[ending];
    const bool equal = std::memcmp(kCodes[place].data(), code.data(), sizeof kCodes[place]) == 0;
    return equal ? std::optional(static_cast<Model>(place)) : std::nullopt;
}

std::u16string_view ModelCode(Model model) { return kCatalogue[model].code; }

std::u16string_view ModelName(Model model) { return kCatalogue[model].name; }

}  // namespace vintrel::server
