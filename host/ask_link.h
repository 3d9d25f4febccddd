// Asks the server everything about the link to a model.
#pragma once

#include "host/link_answers.h"
#include "host/server.h"

namespace vintrel::host {

/// The server's answers how frames of the model are told apart.
Framing FramingOf(const Server& server, const Model& model);

LinkAnswers AskAboutLink(const Server& server, const Model& model);

}  // namespace vintrel::host
