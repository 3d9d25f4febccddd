#include "rx/login.h"

#include "rx/framing.h"
#include "server/control_characters.h"

namespace vintrel::rx {
namespace {

using server::kAckText;
using server::kEnqText;
using server::Model;

struct LoginRow {
    std::u16string_view request, confirm;
};

constexpr std::u16string_view kWillSga = u"\xFF\xFB\x03";  // Telnet IAC WILL SUPPRESS-GO-AHEAD, one character per byte

// clang-format off
constexpr server::PerModel<LoginRow> kLogin{{
    //                     request   confirm
    {Model::Type10001, {  kEnqText, kAckText}},
    {Model::Type10002, {  kEnqText, kAckText}},
    {Model::Type10003, {kNoMessage,       {}}},
    {Model::Type10004, {kNoMessage,       {}}},
    {Model::Type10005, {kNoMessage,       {}}},
    {Model::Type10006, {kNoMessage,       {}}},
    {Model::Type10007, {  kEnqText, kAckText}},
    {Model::Type10008, {kNoMessage,       {}}},
    {Model::Type10009, {kNoMessage,       {}}},
    {Model::Type10010, {kNoMessage,       {}}},
    {Model::Type10011, {kNoMessage,       {}}},
    {Model::Type10012, {   kDriven,       {}}},
    {Model::Type10013, {kNoMessage,       {}}},
    {Model::Type10014, {  kWillSga,       {}}},
    {Model::Type10015, {kNoMessage,       {}}},
    {Model::Type10016, {  kWillSga,       {}}},
    {Model::Type10017, {   kDriven,       {}}},
    {Model::Type10018, {kNoMessage,       {}}},
    {Model::Type10019, {kNoMessage,       {}}},
    {Model::Type10020, {   kDriven,       {}}},
    {Model::Type12000, {kNoMessage, kAckText}},
}};
// clang-format on

}  // namespace

std::u16string_view ComEventRequestLogInRX(server::TypeCode type, server::CriticalMessage& message) {
    return server::AnswerFrom(kLogin, &LoginRow::request, type, u"ComEventRequestLogInRX", message);
}

std::u16string_view ComEventConfirmLogInRX(server::TypeCode type, server::CriticalMessage& message) {
    return server::AnswerFrom(kLogin, &LoginRow::confirm, type, u"ComEventConfirmLogInRX", message);
}

}  // namespace vintrel::rx
