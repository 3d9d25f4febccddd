#include "host/link/order_file.h"

#include "host/checks.h"
#include "host/clock.h"
#include "host/input_file.h"
#include "host/text.h"

namespace vintrel::host {

OrderFile::OrderFile(const Server& server, const Model& model, const std::string& name)
    : server_(server), code_(model.Code()) {
    if (name.empty()) return;
    for (OrderLine& order : ParseOrders(ReadTextFile(name), name, LocalTime())) orders_.push_back(std::move(order));
}

std::vector<Event> OrderFile::Feed(Session& session, std::uint64_t now, bool connected) {
    constexpr std::uint64_t kSecond = 1000;
    std::vector<Event> events;
    while (connected && !orders_.empty() && now >= due_ && session.OrdersSent()) {
        OrderLine order = orders_.front();
        orders_.pop_front();
        if (order.verb == OrderLine::Verb::Wait) {
            due_ = now + kSecond * order.seconds;
            continue;
        }
        if (!order.time.empty() && order.date.empty()) order.date = NextDayAt(order.time, LocalTime());
        const std::string room = std::to_string(order.room);
        const std::string words = Described(order);
        const std::u16string answer = Ask(order);
        const bool verdict = answer == u"<OK>" || answer == u"<ERROR>";
        failed_ = failed_ || answer.empty() || answer == u"<ERROR>";
        if (!verdict && !answer.empty()) session.Queue({room, words, ToBytes(answer)});
        events.push_back({"order", room,
                          verdict          ? words + " " + ToUtf8(answer)
                          : answer.empty() ? words + " is no order of this model"
                                           : words});
    }
    return events;
}

std::vector<Event> OrderFile::Left() const {
    std::vector<Event> events;
    for (const OrderLine& order : orders_)
        if (order.verb != OrderLine::Verb::Wait)
            events.push_back({"not sent", std::to_string(order.room), Described(order)});
    return events;
}

std::u16string OrderFile::Ask(const OrderLine& order) const {
    Bstr type(code_);
    long room = order.room;
    short change_name = order.name.empty() ? 0 : 1;
    Bstr name(FromUtf8(order.name));
    short language = 2;  // English
    switch (order.verb) {
        case OrderLine::Verb::CheckIn:
            return server_.Text(server_.tx, &_ComEventsTX::ComEventCheckInTX, type.InOut(), &room, name.InOut(),
                                &language, &change_name);
        case OrderLine::Verb::CheckOut:
            change_name = 1;
            return server_.Text(server_.tx, &_ComEventsTX::ComEventCheckOutTX, type.InOut(), &room, &change_name);
        case OrderLine::Verb::Name:
            return server_.Text(server_.tx, &_ComEventsTX::ComEventUserNameTX, type.InOut(), &room, name.InOut());
        case OrderLine::Verb::WakeUp:
        case OrderLine::Verb::Cancel: {
            Bstr time(FromUtf8(order.time));
            Bstr date(FromUtf8(order.date));
            short mode = order.verb == OrderLine::Verb::Cancel ? 1 : 0;
            return server_.Text(server_.tx, &_ComEventsTX::ComEventClockTX, type.InOut(), &room, time.InOut(),
                                date.InOut(), &mode, &language);
        }
        case OrderLine::Verb::Wait: break;
    }
    return {};
}

}  // namespace vintrel::host
