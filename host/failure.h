// How the program ends, and the one exception that carries a message to its end.
#pragma once

#include <stdexcept>
#include <string>

namespace vintrel::host {

enum class ExitCode : int {
    Ok = 0,
    Failed = 1,         ///< the data, the link or the exchange: a missing file, "<ERROR>", a refused connection
    Usage = 2,          ///< the command line
    NotRegistered = 3,  ///< the server is not there or cannot be created
};

/// Ends the command with a message on the error output.
class Failure : public std::runtime_error {
 public:
    Failure(ExitCode code, const std::string& message) : std::runtime_error(message), code_(code) {}
    ExitCode Code() const { return code_; }

 private:
    ExitCode code_;
};

}  // namespace vintrel::host
