#include <array>
#include <memory>
#include <optional>

#include "exchanges/answer.h"
#include "exchanges/grandstream/grandstream.h"
#include "platform/waits.h"
#include "text/numbers.h"

namespace vintrel::exchanges::grandstream {

using namespace text;

namespace {

constexpr std::int32_t kPhaseLimit = 10000;
/// Unknown authority, wrong usage, another name, expired: the exchange certifies itself.
constexpr std::uint32_t kIgnoredCertificateErrors = 13056;
constexpr std::string_view kSuccess = "SUCCESS";
constexpr std::array<std::u16string_view, 5> kLanguages{u"DE", u"IT", u"EN", u"FR", u"ES_ES"};

/// The place that a base URL ("https://host:port/path...") names.
struct Address {
    std::u16string_view host;
    std::int32_t port = 0;
    std::u16string_view path;
};

std::optional<Address> Split(std::u16string_view url) {
    constexpr std::u16string_view kScheme = u"https://";
    if (!url.starts_with(kScheme)) return std::nullopt;
    url.remove_prefix(kScheme.size());
    const std::size_t path = url.find(u'/');
    if (path == std::u16string_view::npos) return std::nullopt;
    const std::u16string_view authority = url.substr(0, path);
    const std::size_t colon = authority.rfind(u':');
    if (colon == std::u16string_view::npos || colon == 0) return std::nullopt;
    const std::u16string_view digits = authority.substr(colon + 1);
    const double port = NumberValue(digits);
    if (!IsDigits(digits) || port < 1 || port > 65535) return std::nullopt;
    return Address{authority.substr(0, colon), static_cast<std::int32_t>(port), url.substr(path)};
}

}  // namespace

std::u16string WakeUpDate(const WakeUpOrder& order, const DateTime& today) {
    const bool numbers = IsDigits(order.Month()) && IsDigits(order.Day());
    const auto number = [](std::u16string_view digits) { return static_cast<int>(NumberValue(digits)); };
    const auto wanted = numbers ? DayOf(today.year, number(order.Month()), number(order.Day())) : std::nullopt;
    const bool over = wanted && *wanted < DayOf(today);
    return Command({DecimalText(over ? today.year + 1 : today.year), order.Month(), order.Day()});
}

std::u16string Grandstream::WakeUp(const WakeUpOrder& order) {
    std::u16string_view action;
    if (order.mode == kSetOnce) action = u"<w_action>1</w_action><w_mode>1</w_mode>";
    if (order.mode == kCancel) action = u"<w_action>0</w_action><w_mode>1</w_mode>";
    if (order.mode == kSetRepeating) action = u"<w_action>1</w_action><w_mode>2</w_mode>";
    const std::u16string room = Room(order.room);
    return Submit(Command({u"<pms_data_request><wakeup><address>", room, u"</address><room>", room, u"</room>", action,
                           u"<w_time>", order.time, u"</w_time><w_date>", WakeUpDate(order, Server().clock.LocalNow()),
                           u"</w_date></wakeup></pms_data_request>"}));
}

std::u16string Grandstream::CheckIn(const CheckInOrder& order) {
    const std::u16string room = Room(order.room);
    const DateTime now = Server().clock.LocalNow();
    return Submit(Command(
        {u"<pms_data_request><checkin><address>", room, u"</address><room>", room, u"</room><account>", room,
         u"</account><language>", LanguageWord(kLanguages, order.language, u""), u"</language><firstname>", order.name,
         u"</firstname><lastname></lastname><datein>", DecimalText(now.year), TwoDigits(now.month), TwoDigits(now.day),
         u" 00:01</datein><dateout>23991231 23:59</dateout><cos>4</cos></checkin>", u"</pms_data_request>"}));
}

std::u16string Grandstream::CheckOut(const CheckOutOrder& /*order*/) {
    return Submit(
        u"<pms_data_request><checkout><address>10</address><room>10</room><firstname></firstname>"
        u"<lastname></lastname></checkout></pms_data_request>");
}

std::u16string Grandstream::Submit(std::u16string_view document) {
    const OrderGuard::Turn turn(Server().guard);
    return Verdict(turn && Confirmed(document));
}

bool Grandstream::Confirmed(std::u16string_view document) {
    const platform::Settings& settings = Server().settings;
    const std::optional<Address> address = Split(GsBaseUrl_);
    if (!address) return false;
    const std::u16string target = Command({address->path, document});
    const std::unique_ptr<platform::Transfer> transfer =
        Server().request_engine.Start({.method = u"POST",
                                       .host = address->host,
                                       .port = address->port,
                                       .target = target,
                                       .header = u"format: xml",
                                       .user = settings.PbxUser,
                                       .password = settings.PbxPassword,
                                       .secure = true,
                                       .ignored_certificate_errors = kIgnoredCertificateErrors});
    if (!transfer) return false;

    const auto started = [&] { return transfer->State() != platform::TransferState::Starting; };
    if (!platform::WaitUntil(Server().loop, Server().clock, kPhaseLimit, started)) return false;
    Answer answer;
    bool confirmed = false;
    platform::WaitUntil(Server().loop, Server().clock, kPhaseLimit, [&] {
        const bool more = answer.Collect(*transfer);
        confirmed = answer.Brought(kSuccess);
        return confirmed || !more;
    });
    return confirmed;
}

}  // namespace vintrel::exchanges::grandstream
