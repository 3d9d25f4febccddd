// Asks the server everything about the link to a model.
#pragma once

#include <string_view>

#include "host/link/link_answers.h"
#include "host/server.h"

namespace vintrel::host {

// Two answers of the server are no text of the link: the model has no such message, ...
inline constexpr std::u16string_view kNoMessage = u"@";
// ... and the server itself drives it.
inline constexpr std::u16string_view kServerDriven = u"\u00A3";
inline bool IsMarker(std::u16string_view answer) { return answer == kNoMessage || answer == kServerDriven; }

/// The server's answers how frames of the model are told apart.
Framing FramingOf(const Server& server, const Model& model);

LinkAnswers AskAboutLink(const Server& server, const Model& model);

}  // namespace vintrel::host
