#include "host/link/order_lines.h"

#include <algorithm>
#include <array>

#include "host/checks.h"
#include "host/failure.h"
#include "host/text.h"
#include "host/words.h"

namespace vintrel::host {
namespace {

struct Form {
    std::string_view word;
    OrderLine::Verb verb;
    std::string_view form;
};
constexpr std::array<Form, 6> kForms{{
    {"wait", OrderLine::Verb::Wait, "wait SECONDS"},
    {"wakeup", OrderLine::Verb::WakeUp, "wakeup ROOM HHMM [DDMM]"},
    {"cancel", OrderLine::Verb::Cancel, "cancel ROOM HHMM [DDMM]"},
    {"checkin", OrderLine::Verb::CheckIn, "checkin ROOM [NAME]"},
    {"checkout", OrderLine::Verb::CheckOut, "checkout ROOM"},
    {"name", OrderLine::Verb::Name, "name ROOM NAME"},
}};

OrderLine ParseOrder(Words& words, const CivilTime& now) {
    OrderLine order;
    order.word = words.Next();
    const auto form = std::find_if(kForms.begin(), kForms.end(), [&](const Form& f) { return f.word == order.word; });
    if (form == kForms.end()) throw Failure(ExitCode::Usage, "there is no order \"" + order.word + "\"");
    order.verb = form->verb;
    const auto expects = [&](bool condition) {
        if (!condition) throw Failure(ExitCode::Usage, "the order is " + std::string(form->form));
    };
    expects(!words.Empty());
    if (order.verb == OrderLine::Verb::Wait) {
        order.seconds = words.Number();
    } else {
        order.room = CheckedRoom(words.Next());
    }
    if (order.verb == OrderLine::Verb::WakeUp || order.verb == OrderLine::Verb::Cancel) {
        expects(!words.Empty());
        order.time = CheckedTime(words.Next());
        if (!words.Empty()) order.date = CheckedDate(words.Next(), now);
    } else if (order.verb == OrderLine::Verb::CheckIn || order.verb == OrderLine::Verb::Name) {
        order.name = CheckedName(words.Rest());
        expects(order.verb == OrderLine::Verb::CheckIn || !order.name.empty());
    }
    return order;
}

}  // namespace

std::string Described(const OrderLine& order) {
    std::string text = order.word;
    for (const std::string& part : {order.time, order.date, order.name})
        if (!part.empty()) text.append(" ").append(part);
    return text;
}

std::vector<OrderLine> ParseOrders(std::string_view text, const std::string& file, const CivilTime& now) {
    std::vector<OrderLine> orders;
    ForEachLine(text, file, Comments::BehindWordsToo, [&](Words& words) { orders.push_back(ParseOrder(words, now)); });
    return orders;
}

}  // namespace vintrel::host
