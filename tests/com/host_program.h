// The reference host as a person runs it: a program of its own, with a command line and what it writes.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace vintrel::testing {

struct HostRun {
    DWORD exit_code = 0xFFFFFFFF;    ///< left when the program could not be started or took more than a minute
    std::vector<std::string> lines;  ///< of the standard output, UTF-8
};

/// Runs vintrel-host in the program's folder, where the samples are in "samples".
HostRun RunHost(const std::wstring& arguments);

}  // namespace vintrel::testing
