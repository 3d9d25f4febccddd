// Apart from the rest, for the server itself digests no file.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/operation_error.h"
#include "win32/handle.h"
#include "win32/md5.h"
#include "win32/wide.h"

namespace vintrel::win32 {

std::u16string MD5Hash::HashFile(std::u16string_view path) {
    constexpr std::uint32_t kNoFile = 0x8004C342;
    constexpr std::size_t kBlock = 16384;
    const std::wstring wide_path = WideCopy(path);
    if (GetFileAttributesW(wide_path.c_str()) == INVALID_FILE_ATTRIBUTES)
        throw platform::OperationError(kNoFile, u"File doesn't exist", u"MD5Hash.HashFile");

    const Handle file(CreateFileW(wide_path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size{};
    bool readable = file.IsOpen() && GetFileSizeEx(file.Get(), &size) != FALSE;
    std::vector<std::byte> block(kBlock);
    StartHash();
    for (auto rest = static_cast<std::uint64_t>(size.QuadPart); readable && rest > 0;) {
        const auto count = static_cast<DWORD>(std::min<std::uint64_t>(rest, kBlock));
        DWORD got = 0;
        readable = ReadFile(file.Get(), block.data(), count, &got, nullptr) != FALSE && got == count;
        if (readable) HashBlock(std::span(block).first(count));
        rest -= count;
    }
    if (!readable)
        throw platform::OperationError(platform::kPathOrFileAccess, u"The file cannot be read", u"MD5Hash.HashFile");
    return Finish();
}

}  // namespace vintrel::win32
