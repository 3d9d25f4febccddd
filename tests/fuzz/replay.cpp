// Runs a fuzz target over the files of a folder, for builds without libFuzzer. A file that the target has no use for
// fails.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    int inputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argc > 1 ? argv[1] : ".")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
        if (LLVMFuzzerTestOneInput(input.data(), input.size()) != 0) {
            std::printf("%s is no input\n", entry.path().string().c_str());
            return 1;
        }
        ++inputs;
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}
