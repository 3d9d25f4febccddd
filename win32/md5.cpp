#include "win32/md5.h"

#include <algorithm>
#include <vector>

#include "platform/operation_error.h"
#include "text/numbers.h"
#include "text/text.h"
#include "win32/wide.h"

namespace vintrel::win32 {
namespace {

constexpr std::uint32_t kNoProvider = 0x8004C352;
constexpr std::uint32_t kNoHash = 0x8004C332;
constexpr std::uint32_t kDataNotHashed = 0x8004C312;
constexpr std::uint32_t kNoLength = 0x8004C322;
constexpr std::uint32_t kNoDigest = 0x8004C324;

/// Called directly after the failed call: it asks for the system's last error.
[[noreturn]] void FailWithSystemError(std::uint32_t number, std::u16string_view what,
                                      const char16_t* source = u"MD5Hash") {
    const auto code = static_cast<std::int32_t>(GetLastError());
    throw platform::OperationError(number, std::u16string(what) + u", system error " + text::DecimalText(code), source);
}

}  // namespace

MD5Hash::MD5Hash(const CryptoApi& api) : api_(api) {
    if (api_.acquire_context(&provider_, nullptr, MS_DEF_PROV_W, PROV_RSA_FULL, CRYPT_VERIFYCONTEXT) == FALSE)
        FailWithSystemError(kNoProvider, u"Failed to obtain access to CryptoAPI", u"MD5Hash.Class_Initialize");
}

MD5Hash::~MD5Hash() {
    EndHash();
    CryptReleaseContext(provider_, 0);
}

std::u16string MD5Hash::HashBytes(std::span<const std::byte> bytes) {
    StartHash();
    HashBlock(bytes);
    return Finish();
}

void MD5Hash::StartHash() {
    EndHash();
    if (api_.create_hash(provider_, CALG_MD5, 0, 0, &hash_) == FALSE)
        FailWithSystemError(kNoHash, u"Failed to create CryptoAPI Hash object");
}

void MD5Hash::HashBlock(std::span<const std::byte> block) const {
    constexpr std::byte kNothing{};
    const std::byte* const first = block.empty() ? &kNothing : block.data();
    if (api_.hash_data(hash_, reinterpret_cast<const BYTE*>(first), static_cast<DWORD>(block.size()), 0) == FALSE)
        FailWithSystemError(kDataNotHashed, u"Failed to hash data block");
}

std::u16string MD5Hash::Finish() const {
    DWORD length = 0;
    DWORD length_size = sizeof length;
    if (api_.get_hash_param(hash_, HP_HASHSIZE, reinterpret_cast<BYTE*>(&length), &length_size, 0) == FALSE)
        FailWithSystemError(kNoLength, u"Failed to obtain hash value length");
    std::vector<BYTE> digest(length);
    if (api_.get_hash_param(hash_, HP_HASHVAL, digest.data(), &length, 0) == FALSE)
        FailWithSystemError(kNoDigest, u"Failed to obtain hash value");

    constexpr std::u16string_view kHex = u"0123456789ABCDEF";
    std::u16string text;
    for (const BYTE byte : digest) {
        text += kHex[byte >> 4U];
        text += kHex[byte & 15U];
    }
    return text;
}

void MD5Hash::EndHash() {
    if (hash_ != 0) CryptDestroyHash(hash_);
    hash_ = 0;
}

}  // namespace vintrel::win32
