#include "server/login.h"

namespace vintrel::server {

using exchanges::Login;
using exchanges::Model;

std::u16string_view ComEventRequestLogInRX(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::request, type, u"ComEventRequestLogInRX", message);
}

std::u16string_view ComEventConfirmLogInRX(TypeCode type, platform::CriticalMessage& message) {
    return AnswerFrom(&Model::login, &Login::confirm, type, u"ComEventConfirmLogInRX", message);
}

}  // namespace vintrel::server
