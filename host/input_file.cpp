#include "host/input_file.h"

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {

InputFile::InputFile(const std::string& name, Form form) : name_(name), standard_input_(name == "-") {
    if (!standard_input_) Open();
    if (form == Form::Readable) ReadShown();
}

void InputFile::Open() {
    file_ = Handle(CreateFileW(ToWide(name_).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                               OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file_.Valid()) throw Failure(ExitCode::Failed, name_ + " cannot be opened: " + SystemMessage(GetLastError()));
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file_.Get(), &size) != 0) size_ = static_cast<std::uint64_t>(size.QuadPart);
}

void InputFile::ReadShown() {
    constexpr std::size_t kLongest = 16 * kPiece;
    std::string text;
    for (std::string_view bytes = Read(); !bytes.empty(); bytes = Read()) {
        text.append(bytes);
        if (text.size() > kLongest) throw Failure(ExitCode::Failed, name_ + " is too long for a readable capture");
    }
    std::erase_if(text, [](char character) { return character == '\r' || character == '\n'; });
    shown_ = FromReadable(text);
}

std::size_t InputFile::ReadTo(char* buffer, std::size_t count) {
    if (shown_) {
        const std::size_t copied = shown_->copy(buffer, count, taken_);
        taken_ += copied;
        return copied;
    }
    DWORD length = 0;
    HANDLE handle = standard_input_ ? GetStdHandle(STD_INPUT_HANDLE) : file_.Get();
    if (ReadFile(handle, buffer, static_cast<DWORD>(count), &length, nullptr) == 0) {
        const DWORD error = GetLastError();
        if (error != ERROR_BROKEN_PIPE && error != ERROR_HANDLE_EOF)
            throw Failure(ExitCode::Failed, name_ + " cannot be read: " + SystemMessage(error));
    }
    return length;
}

std::string_view InputFile::Read() {
    buffer_.resize(kPiece);
    return std::string_view(buffer_).substr(0, ReadTo(buffer_.data(), kPiece));
}

std::string ReadWholeFile(const std::string& name) {
    InputFile file(name);
    std::string text;
    for (std::string_view bytes = file.Read(); !bytes.empty(); bytes = file.Read()) text.append(bytes);
    return text;
}

}  // namespace vintrel::host
