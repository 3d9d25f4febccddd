#include <array>
#include <memory>

#include "exchanges/answer.h"
#include "exchanges/innovaphone/innovaphone.h"
#include "platform/waits.h"
#include "text/numbers.h"

namespace vintrel::exchanges::innovaphone {

using namespace text;

namespace {

constexpr std::int32_t kRequestLimit = 10000;
constexpr std::u16string_view kCommandPage = u"/PBX0/ADMIN/mod_cmd_login.xml?cmd=";
constexpr std::string_view kShowOk = R"(<show state="ok"/>)";
constexpr std::array<std::u16string_view, 5> kLanguages{u"de", u"it", u"en", u"fr", u"sp"};

bool IsShowOk(std::string_view answer) {
    const std::size_t first = answer.find_first_not_of(' ');
    if (first == std::string_view::npos) return false;
    return answer.substr(first, answer.find_last_not_of(' ') + 1 - first) == kShowOk;
}

std::u16string ObjectRequest(std::int32_t room, std::u16string_view name_part, std::u16string_view filter_part) {
    return Command(
        {kCommandPage, u"submit-object&cfnr=15&busy-out=1&cn=", Room(room), name_part, filter_part, u"&guid=*"});
}

}  // namespace

std::u16string Innovaphone::WakeUp(const WakeUpOrder& order) {
    const std::u16string head = Command({kCommandPage, u"submit-wakeup&cn=", Room(order.room), u"&name=wakeup-moh-",
                                         LanguageWord(kLanguages, order.language, u"en")});
    if (order.mode == kCancel) return Submit(Command({head, u"&num=&h=&m=&s=&retry=2&wakeup=&guid=*"}));
    if (order.mode != kSetOnce && order.mode != kSetRepeating) return Submit({});

    const std::u16string fallback = DecimalText(NumberValue(numbers_.WakeupResponseFallback));
    return Submit(
        Command({head, u"&num=&h=", order.Hours(), u"&m=", order.Minutes(), u"&s=00&retry=2",
                 order.mode == kSetRepeating ? u"&mult=on" : u"", u"&to=300&fallback=", fallback, u"&wakeup=&guid=*"}));
}

std::u16string Innovaphone::CheckIn(const CheckInOrder& order) {
    const std::u16string name_part = order.change_name ? Command({u"&dn=", order.name}) : std::u16string();
    return Submit(ObjectRequest(order.room, name_part, u"&filter=checkin"));
}

std::u16string Innovaphone::CheckOut(const CheckOutOrder& order) {
    return Submit(ObjectRequest(order.room, order.change_name ? u"&dn=" : u"", u"&filter=checkout"));
}

std::u16string Innovaphone::UserName(std::int32_t room, InOutText& name) {
    return Submit(ObjectRequest(room, Command({u"&dn=", name.View()}), u""));
}

/// Makes the request the current one, unless it is empty, and fetches the current one.
std::u16string Innovaphone::Submit(std::u16string request) {
    const OrderGuard::Turn turn(Server().guard);
    if (!turn) return Verdict(false);
    if (!request.empty()) request_ = std::move(request);
    if (request_.empty()) return Verdict(false);
    const bool fetched = FetchCurrent();
    Server().loop.ProcessPending();
    return Verdict(fetched);
}

bool Innovaphone::FetchCurrent() {
    const platform::Settings& settings = Server().settings;
    const std::unique_ptr<platform::Transfer> transfer =
        Server().request_engine.Start({.method = u"GET",
                                       .host = settings.PbxHost,
                                       .port = settings.PbxPort,
                                       .target = request_,
                                       .user = settings.PbxUser,
                                       .password = settings.PbxPassword});
    if (!transfer) return false;
    Answer answer;
    platform::WaitUntil(Server().loop, Server().clock, kRequestLimit, [&] { return !answer.Collect(*transfer); });
    return answer.Whole() && IsShowOk(answer.Text());
}

}  // namespace vintrel::exchanges::innovaphone
