// MD5 digests by the system's CryptoAPI.
#pragma once

#include <windows.h>

#include <wincrypt.h>

#include "platform/md5.h"

namespace vintrel::win32 {

/// The calls of the CryptoAPI that a digest takes.
struct CryptoApi {
    decltype(&CryptAcquireContextW) acquire_context = CryptAcquireContextW;
    decltype(&CryptCreateHash) create_hash = CryptCreateHash;
    decltype(&CryptHashData) hash_data = CryptHashData;
    decltype(&CryptGetHashParam) get_hash_param = CryptGetHashParam;
};

/// Digests are 32 upper-case hexadecimal digits. Failures are OperationErrors with a number, a source and a
/// description that ends with the system's error code.
class MD5Hash {
 public:
    explicit MD5Hash(const CryptoApi& api = {});
    ~MD5Hash();
    MD5Hash(const MD5Hash&) = delete;
    MD5Hash& operator=(const MD5Hash&) = delete;

    std::u16string HashBytes(std::span<const std::byte> bytes);
    /// The digest of the file's bytes.
    std::u16string HashFile(std::u16string_view path);

 private:
    void StartHash();
    void HashBlock(std::span<const std::byte> block) const;
    std::u16string Finish() const;
    void EndHash();

    CryptoApi api_;
    HCRYPTPROV provider_ = 0;
    HCRYPTHASH hash_ = 0;
};

/// A provider is acquired for each digest: initialisation alone needs one.
class Md5 : public platform::Md5 {
 public:
    std::u16string HashBytes(std::span<const std::byte> bytes) override { return MD5Hash().HashBytes(bytes); }
};

}  // namespace vintrel::win32
