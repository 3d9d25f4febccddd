// The 21 exchange models: their PABX type codes and names, in list order. Adding a model begins here.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vintrel::server {

enum class Model : std::uint8_t {
    Type10001,  ///< Avaya - Integral 1/3/5 SW xE3.xxx - xE5.xxx
    Type10002,  ///< Avaya - Integral 1/3/5 SW xE6.3xx or higher
    Type10003,  ///< Avaya - Integral 2/2R/22
    Type10004,  ///< Mitel - I4 - 2030/2050/2060 (PC4)
    Type10005,  ///< Mitel - Ascotel 200 (PC4)
    Type10006,  ///< Mitel - I5 - 2025/2045/2065 (PC4)
    Type10007,  ///< Avaya - Integral 3 SW x3.5xx - x9.5xx
    Type10008,  ///< Mitel - I6/I7 - 2025/2045/2065 (PC4)
    Type10009,  ///< Alcatel - OmniPCX (Oxo) V3
    Type10010,  ///< Trucco - Algoral 658
    Type10011,  ///< Mitel - IntelliGate TCP/IP (PC4)
    Type10012,  ///< Innovaphone - PBX V6 or higher
    Type10013,  ///< Wildix - WG90R (CDR-CSV)
    Type10014,  ///< Mitel - IntelliGate 7.9 TCP/IP Hotel (PC4)
    Type10015,  ///< Mitel - 400 TCP/IP (PC4)
    Type10016,  ///< Mitel - 400 TCP/IP (PC4) V1-V2 Hotel
    Type10017,  ///< Avaya - IP Office
    Type10018,  ///< Panasonic - KX-TDE RS232
    Type10019,  ///< Panasonic - KX-TDE/NS TCP/IP
    Type10020,  ///< Grandstream - UCM6300 Series
    Type12000,  ///< FIAS - PMS
};

inline constexpr std::size_t kModelCount = 21;

/// One row per model, in catalogue order. A missing, doubled or misplaced row does not compile.
template <typename Row>
class PerModel {
 public:
    struct Entry {
        Model model;
        Row row;
    };

    consteval PerModel(const Entry (&entries)[kModelCount]) {  // NOLINT(google-explicit-constructor): reads as a table
        for (std::size_t i = 0; i < kModelCount; ++i) {
            if (entries[i].model != static_cast<Model>(i)) throw "a row is missing or out of catalogue order";
            rows_[i] = entries[i].row;
        }
    }
    constexpr const Row& operator[](Model model) const { return rows_[static_cast<std::size_t>(model)]; }

 private:
    std::array<Row, kModelCount> rows_{};
};

/// The model with exactly this code: upper case, nothing around it.
std::optional<Model> FindModel(std::u16string_view code);
std::u16string_view ModelCode(Model model);
std::u16string_view ModelName(Model model);

}  // namespace vintrel::server
