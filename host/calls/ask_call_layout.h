// Asks the server where the fields of a call record stand.
#pragma once

#include "host/calls/call_layout.h"
#include "host/server.h"

namespace vintrel::host {

CallLayout AskCallLayout(const Server& server);

}  // namespace vintrel::host
