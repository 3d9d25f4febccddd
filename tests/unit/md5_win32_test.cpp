#include "win32/md5.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/operation_error.h"
#include "printing.h"

namespace vintrel::win32 {
namespace {

using testing::Shown;

std::string Digest(std::string_view text) { return Shown(MD5Hash().HashBytes(std::as_bytes(std::span(text)))); }

TEST(Md5, DigestsOfBytes) {
    EXPECT_EQ(Digest("abc"), "900150983CD24FB0D6963F7D28E17F72");
    EXPECT_EQ(Digest(""), "D41D8CD98F00B204E9800998ECF8427E");
    MD5Hash hash;
    hash.HashBytes({});
    const std::string_view text = "abc";
    EXPECT_EQ(Shown(hash.HashBytes(std::as_bytes(std::span(text)))), Digest("abc")) << "an object hashes again";
}

TEST(Md5, FilesOfWholeAndPartBlocks) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{16384}, std::size_t{40000}}) {
        std::ofstream("md5_test.tmp", std::ios::binary) << std::string(size, 'x');
        EXPECT_EQ(Shown(MD5Hash().HashFile(u"md5_test.tmp")), Digest(std::string(size, 'x'))) << size;
    }
    DeleteFileA("md5_test.tmp");
}

/// "number source: description" of what the body throws.
template <typename Body>
std::string Failure(Body body) {
    try {
        body();
    } catch (const platform::OperationError& error) {
        std::ostringstream shown;
        shown << std::hex << std::uppercase << error.Result() << " " << Shown(error.Source()) << ": "
              << Shown(error.Description());
        return shown.str();
    }
    return "no failure";
}

template <DWORD kError, typename... Arguments>
BOOL WINAPI Fail(Arguments...) {
    SetLastError(kError);
    return FALSE;
}
BOOL WINAPI NoDigest(HCRYPTHASH hash, DWORD parameter, BYTE* data, DWORD* size, DWORD flags) {
    return parameter == HP_HASHVAL ? Fail<234>() : CryptGetHashParam(hash, parameter, data, size, flags);
}

TEST(Md5, EveryFailureHasItsNumberSourceAndSystemError) {
    const auto hash_with = [](const CryptoApi& api) { return Failure([&] { MD5Hash(api).HashBytes({}); }); };
    EXPECT_EQ(hash_with({.acquire_context = Fail<5>}),
              "8004C352 MD5Hash.Class_Initialize: Failed to obtain access to CryptoAPI, system error 5");
    EXPECT_EQ(hash_with({.create_hash = Fail<0x80090008>}),
              "8004C332 MD5Hash: Failed to create CryptoAPI Hash object, system error -2146893816");
    EXPECT_EQ(hash_with({.hash_data = Fail<8>}), "8004C312 MD5Hash: Failed to hash data block, system error 8");
    EXPECT_EQ(hash_with({.get_hash_param = Fail<87>}),
              "8004C322 MD5Hash: Failed to obtain hash value length, system error 87");
    EXPECT_EQ(hash_with({.get_hash_param = NoDigest}),
              "8004C324 MD5Hash: Failed to obtain hash value, system error 234");
    EXPECT_EQ(Failure([] { MD5Hash().HashFile(u"no such file"); }), "8004C342 MD5Hash.HashFile: File doesn't exist");
    EXPECT_EQ(Failure([] { MD5Hash().HashFile(u"."); }), "800A004B MD5Hash.HashFile: The file cannot be read");
}

}  // namespace
}  // namespace vintrel::win32
