// Which model a capture comes from: all models of the server read it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/capture/capture.h"
#include "host/capture/evidence.h"
#include "host/server.h"

namespace vintrel::host {

/// Lets every model read the beginning of a capture.
/// @param form  see Capture. @param except  a code that is left out, or ""
/// @return the best first
std::vector<Evidence> Detect(const Server& server, std::string_view head, std::optional<Capture::Form> form,
                             std::u16string_view except = {});

/// A sentence that names the model that reads the capture, and those that read it as well; "" when none does.
std::string BestGuess(const std::vector<Evidence>& ranked);

}  // namespace vintrel::host
