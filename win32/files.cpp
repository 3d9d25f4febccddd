#include "win32/files.h"

#include "win32/handle.h"
#include "win32/wide.h"

namespace vintrel::win32 {

bool Files::Exists(std::u16string_view path) const {
    const DWORD attributes = GetFileAttributesW(WideCopy(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::optional<std::vector<std::byte>> Files::Read(std::u16string_view path, std::uint64_t offset,
                                                  std::size_t count) const {
    const Handle file(CreateFileW(WideCopy(path).c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) return std::nullopt;
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(offset);
    if (SetFilePointerEx(file.Get(), position, nullptr, FILE_BEGIN) == FALSE) return std::nullopt;
    std::vector<std::byte> bytes(count);
    std::size_t filled = 0;
    while (filled < count) {
        DWORD got = 0;
        if (ReadFile(file.Get(), bytes.data() + filled, static_cast<DWORD>(count - filled), &got, nullptr) == FALSE)
            return std::nullopt;
        if (got == 0) break;
        filled += got;
    }
    bytes.resize(filled);
    return bytes;
}

}  // namespace vintrel::win32
