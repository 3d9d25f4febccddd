// What the operator sees, kept as a picture for a person to look at.
#pragma once

#include <string>

namespace vintrel::testing {

/// Writes the screen to "screenshots/name.png" beside the test program.
/// @return whether that worked and the picture is not of one colour
bool SaveScreenshot(const std::wstring& name);

}  // namespace vintrel::testing
