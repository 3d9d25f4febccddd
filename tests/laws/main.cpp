// laws WHAT COUNT [SEED]: makes so many records, frames or transferred calls, and tells the first law that is broken.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tests/laws/frame_laws.h"
#include "tests/laws/record_laws.h"
#include "tests/laws/transfer_laws.h"

int main(int argc, char** argv) {
    using namespace vintrel;  // NOLINT(google-build-using-namespace): one function
    const struct {
        const char* what;
        std::string (*broken)(std::uint64_t count, std::uint64_t seed);
    } laws[] = {
        {"records", laws::BrokenRecordLaw}, {"frames", laws::BrokenFrameLaw}, {"transfers", laws::BrokenTransferLaw}};
    for (const auto& law : laws) {
        if (argc < 3 || std::strcmp(argv[1], law.what) != 0) continue;
        const std::uint64_t seed = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 1;
        const std::string broken = law.broken(std::strtoull(argv[2], nullptr, 10), seed);
        std::printf("%s %s, seed %llu: %s\n", argv[2], law.what, static_cast<unsigned long long>(seed),
                    broken.empty() ? "every law holds" : broken.c_str());
        return broken.empty() ? 0 : 1;
    }
    std::puts("laws records|frames|transfers COUNT [SEED]");
    return 2;
}
