// Orders for the exchange from a text file, one per line, sent while a link runs.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "host/link/order_lines.h"
#include "host/link/session.h"
#include "host/server.h"

namespace vintrel::host {

class OrderFile {
 public:
    /// @param name  "" for none. @throws Failure (Usage) with file and line of what is no order.
    OrderFile(const Server& server, const Model& model, const std::string& name);

    /// Hands the orders that are due to the session. @return which they are, or what else became of them
    std::vector<Event> Feed(Session& session, std::uint64_t now, bool connected);
    /// What has not been handed to the session.
    std::vector<Event> Left() const;
    /// Whether the model has no such order, or the exchange answered <ERROR>.
    bool Failed() const { return failed_; }

 private:
    std::u16string Ask(const OrderLine& order) const;

    const Server& server_;
    std::u16string code_;
    std::deque<OrderLine> orders_;
    std::uint64_t due_ = 0;
    bool failed_ = false;
};

}  // namespace vintrel::host
