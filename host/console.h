// The standard streams of the program, and handles of the system.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "host/link/patient_output.h"
#include "host/output.h"

namespace vintrel::host {

std::wstring ToWide(std::string_view utf8);
std::string FromWide(std::wstring_view text);

/// Sets the console to UTF-8 for as long as it lives.
class Utf8Console {
 public:
    Utf8Console() : former_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
    ~Utf8Console() { SetConsoleOutputCP(former_); }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

 private:
    UINT former_;
};
/// @throws Failure when the reader has gone.
void WriteOut(std::string_view utf8);
/// A line on the error output.
void WriteError(std::string_view line);
/// The same without the end of the line.
void WriteErrorText(std::string_view utf8);
/// As much as the standard output takes now.
PatientOutput::Written TryWriteOut(std::string_view utf8);
/// An Output to the standard output.
Output StandardOutput();
enum class Stream { Output, Error };
/// Characters on a line of the console that shows the stream; 0 when it goes elsewhere.
std::size_t ConsoleWidth(Stream stream);

/// What Windows says about an error number.
std::string SystemMessage(DWORD error);

bool IsFolder(const std::string& name);

/// Owns a handle of the system.
class Handle {
 public:
    explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
    ~Handle() { Close(); }
    Handle(Handle&& other) noexcept : handle_(other.handle_) { other.handle_ = INVALID_HANDLE_VALUE; }
    Handle& operator=(Handle&& other) noexcept;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    HANDLE Get() const { return handle_; }
    bool Valid() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
    void Close();

 private:
    HANDLE handle_;
};

}  // namespace vintrel::host
