#include "host/input_file.h"

#include "host/capture/encoding.h"
#include "host/failure.h"

namespace vintrel::host {

InputFile::InputFile(const std::string& name) : name_(name), standard_input_(name == "-") {
    if (standard_input_) return;
    file_ = Handle(CreateFileW(ToWide(name).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                               OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file_.Valid()) throw Failure(ExitCode::Failed, name + " cannot be opened: " + SystemMessage(GetLastError()));
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file_.Get(), &size) != 0) size_ = static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t InputFile::ReadTo(char* buffer, std::size_t count) {
    DWORD length = 0;
    HANDLE handle = standard_input_ ? GetStdHandle(STD_INPUT_HANDLE) : file_.Get();
    if (ReadFile(handle, buffer, static_cast<DWORD>(count), &length, nullptr) == 0) {
        const DWORD error = GetLastError();
        if (error != ERROR_BROKEN_PIPE && error != ERROR_HANDLE_EOF)
            throw Failure(ExitCode::Failed, name_ + " cannot be read: " + SystemMessage(error));
    }
    return length;
}

std::string ReadTextFile(const std::string& name) {
    constexpr std::size_t kPiece = 64 * 1024;
    constexpr std::size_t kLongest = 16 * 1024 * 1024;
    InputFile file(name);
    std::string bytes;
    for (std::size_t count = 1; count > 0;) {
        const std::size_t before = bytes.size();
        if (before > kLongest) throw Failure(ExitCode::Failed, name + " is too long for a text that people write");
        bytes.resize(before + kPiece);
        count = file.ReadTo(bytes.data() + before, kPiece);
        bytes.resize(before + count);
    }
    return DecodedText(bytes);
}

}  // namespace vintrel::host
