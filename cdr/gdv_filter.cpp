#include "cdr/gdv_filter.h"

#include <optional>

namespace vintrel::cdr {
namespace {

using server::Model;

// 14 and 70: serial and TCP frames of fixed length; 9999: network records of any length; 0: no such length
constexpr server::PerModel<std::int16_t> kRealClockLen{{
    {Model::Type10001, 14},   {Model::Type10002, 14}, {Model::Type10003, 0},
    {Model::Type10004, 70},   {Model::Type10005, 0},  // the only Mitel without
    {Model::Type10006, 70},   {Model::Type10007, 14}, {Model::Type10008, 70},
    {Model::Type10009, 0},    {Model::Type10010, 0},  {Model::Type10011, 70},
    {Model::Type10012, 9999}, {Model::Type10013, 0},  // network records too, but of a file
    {Model::Type10014, 70},   {Model::Type10015, 70}, {Model::Type10016, 70},
    {Model::Type10017, 9999}, {Model::Type10018, 0},  {Model::Type10019, 9999},
    {Model::Type10020, 9999}, {Model::Type12000, 14},
}};

}  // namespace

std::int16_t GetGdvRealClockLen(server::TypeCode type, server::CriticalMessage& message) {
    const std::optional<Model> model = server::UpperAndFind(type, u"GetGdvRealClockLen", message);
    return model ? kRealClockLen[*model] : std::int16_t{0};
}

}  // namespace vintrel::cdr
