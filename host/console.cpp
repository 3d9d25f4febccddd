#include "host/console.h"

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

/// False when the reader of a pipe has gone or the disk is full.
bool WriteAll(DWORD stream, std::string_view bytes) {
    HANDLE handle = GetStdHandle(stream);
    while (!bytes.empty()) {
        DWORD written = 0;
        if (WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0 || written == 0)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

}  // namespace

std::wstring ToWide(std::string_view utf8) {
    const std::u16string text = FromUtf8(utf8);
    return {text.begin(), text.end()};
}

std::string FromWide(std::wstring_view text) { return ToUtf8(std::u16string(text.begin(), text.end())); }

void WriteOut(std::string_view utf8) {
    if (!WriteAll(STD_OUTPUT_HANDLE, utf8)) throw Failure(ExitCode::Failed, "the output cannot be written");
}

void WriteErrorText(std::string_view utf8) { WriteAll(STD_ERROR_HANDLE, utf8); }

void WriteError(std::string_view line) { WriteAll(STD_ERROR_HANDLE, std::string(line) + "\n"); }

bool ErrorOutputIsTerminal() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

Output StandardOutput() { return Output(WriteOut); }

std::string SystemMessage(DWORD error) {
    wchar_t text[512] = L"";
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, text,
                                  static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && text[length - 1] <= L' ') --length;
    const std::string message = FromWide({text, length});
    return message.empty() ? "error " + std::to_string(error) : message;
}

bool IsFolder(const std::string& name) {
    const DWORD attributes = GetFileAttributesW(ToWide(name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

Handle& Handle::operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

void Handle::Close() {
    if (Valid()) CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
}

}  // namespace vintrel::host
