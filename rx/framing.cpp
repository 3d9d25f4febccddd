#include "rx/framing.h"

#include "server/control_characters.h"

namespace vintrel::rx {
namespace {

using server::kAckText;
using server::kCrLf;
using server::kEtxText;
using server::kLfText;
using server::Model;

struct FramingRow {
    std::int32_t length;
    std::u16string_view end, end2, acknowledge;
    std::int16_t repeat_error;
    std::int16_t columns, space, comma;
};

// clang-format off
// length 0 = frames end at the end string only; errors = repeat count; columns, space, comma: of a separated record
constexpr server::PerModel<FramingRow> kFraming{{
    //                  length       end  end2  acknowled.  errors  columns  space  comma
    {Model::Type10001, {     0, kEtxText,   {},   kAckText,      8,       0,     0,     0}},
    {Model::Type10002, {     0, kEtxText,   {},   kAckText,      8,       0,     0,     0}},
    {Model::Type10003, {   100,    kCrLf,   {}, kNoMessage,      1,       0,     0,     0}},
    {Model::Type10004, {    50,    kCrLf,   {},      kCrLf,      1,       0,     0,     0}},
    {Model::Type10005, {    80,    kCrLf,   {},      kCrLf,      1,       0,     0,     0}},
    {Model::Type10006, {    50,    kCrLf,   {},      kCrLf,      1,       0,     0,     0}},
    {Model::Type10007, {     0, kEtxText,   {},   kAckText,      8,       0,     0,     0}},
    {Model::Type10008, {    50,    kCrLf,   {},      kCrLf,      1,       0,     0,     0}},
    {Model::Type10009, {   146,    kCrLf,   {}, kNoMessage,      1,       0,     0,     0}},
    {Model::Type10010, {   292,    kCrLf,   {}, kNoMessage,      1,       0,     0,     0}},
    {Model::Type10011, {    50,    kCrLf,   {}, kNoMessage,      1,       0,     0,     0}},
    {Model::Type10012, {   200,    kCrLf,   {},    kDriven,      1,       0,     0,     0}},
    {Model::Type10013, {   200,  kLfText,   {}, kNoMessage,      1,      25,     0,     1}},
    {Model::Type10014, {    50,    kCrLf,   {},      kCrLf,      1,       0,     0,     0}},
    {Model::Type10015, {    50,    kCrLf,   {}, kNoMessage,      1,       0,     0,     0}},
    {Model::Type10016, {    50,    kCrLf,   {},      kCrLf,      1,       0,     0,     0}},
    {Model::Type10017, {    50,    kCrLf,   {},    kDriven,      1,       0,     0,     0}},
    {Model::Type10018, {    80,    kCrLf,   {}, kNoMessage,      1,       0,     0,     0}},
    {Model::Type10019, {    80,    kCrLf,   {}, kNoMessage,      1,       0,     0,     0}},
    {Model::Type10020, {   100,  kLfText,   {},    kDriven,      1,       0,     0,     0}},
    {Model::Type12000, {     0, kEtxText,   {},   kAckText,      1,       0,     0,     0}},
}};
// clang-format on

template <typename Answer>
Answer Framing(Answer FramingRow::*column, server::TypeCode type, std::u16string_view operation,
               server::CriticalMessage& message, Answer unknown = {}) {
    return server::AnswerFrom(kFraming, column, type, operation, message, unknown);
}

}  // namespace

std::int32_t GetComLngEndReadRx(server::TypeCode type, server::CriticalMessage& message) {
    // The report has always named this operation without its last letter.
    return Framing(&FramingRow::length, type, u"GetComLngEndReadR", message);
}

std::u16string_view GetComEtxEndReadRx(server::TypeCode type, server::CriticalMessage& message) {
    return Framing(&FramingRow::end, type, u"GetComEtxEndReadRx", message);
}

std::u16string_view GetComEtxEndReadRx2(server::TypeCode type, server::CriticalMessage& message) {
    return Framing(&FramingRow::end2, type, u"GetComEtxEndReadRx2", message);
}

std::u16string_view GetComACKRx(server::TypeCode type, server::CriticalMessage& message) {
    return Framing(&FramingRow::acknowledge, type, u"GetComACKRx", message);
}

std::int16_t GetRepeatErrorEventRX(server::TypeCode type, server::CriticalMessage& message) {
    return Framing(&FramingRow::repeat_error, type, u"GetRepeatErrorEventRX", message, std::int16_t{1});
}

std::int16_t GetIPXComColumn(server::TypeCode type, server::CriticalMessage& message) {
    return Framing(&FramingRow::columns, type, u"GetIPXComColumn", message);
}

std::int16_t GetIPXComSpace(server::TypeCode type, server::CriticalMessage& message) {
    return Framing(&FramingRow::space, type, u"GetIPXComSpace", message);
}

std::int16_t GetIPXComComma(server::TypeCode type, server::CriticalMessage& message) {
    return Framing(&FramingRow::comma, type, u"GetIPXComComma", message);
}

}  // namespace vintrel::rx
