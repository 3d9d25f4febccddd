#include "host/console.h"

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

/// @return how many bytes were taken: fewer when the reader of a pipe has gone or the disk is full
std::size_t WriteMost(DWORD stream, std::string_view bytes) {
    HANDLE handle = GetStdHandle(stream);
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD written = 0;
        if (WriteFile(handle, bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &written, nullptr) == 0 ||
            written == 0)
            break;
        done += written;
    }
    return done;
}

}  // namespace

std::wstring ToWide(std::string_view utf8) {
    const std::u16string text = FromUtf8(utf8);
    return {text.begin(), text.end()};
}

std::string FromWide(std::wstring_view text) { return ToUtf8(std::u16string(text.begin(), text.end())); }

void WriteOut(std::string_view utf8) {
    if (WriteMost(STD_OUTPUT_HANDLE, utf8) < utf8.size())
        throw Failure(ExitCode::Failed, "the output cannot be written: " + SystemMessage(GetLastError()));
}

void WriteErrorText(std::string_view utf8) { WriteMost(STD_ERROR_HANDLE, utf8); }

void WriteError(std::string_view line) { WriteMost(STD_ERROR_HANDLE, std::string(line) + "\n"); }

PatientOutput::Written TryWriteOut(std::string_view utf8) {
    const std::size_t length = WriteMost(STD_OUTPUT_HANDLE, utf8);
    if (length == utf8.size()) return {length, PatientOutput::Fault::None};
    const DWORD error = GetLastError();
    const bool gone = error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA || error == ERROR_PIPE_NOT_CONNECTED ||
                      error == ERROR_INVALID_HANDLE;
    return {length, gone ? PatientOutput::Fault::Closed : PatientOutput::Fault::Full};
}

std::size_t ConsoleWidth(Stream stream) {
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    const DWORD handle = stream == Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE;
    if (GetConsoleScreenBufferInfo(GetStdHandle(handle), &screen) == 0) return 0;
    return static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left + 1);
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
