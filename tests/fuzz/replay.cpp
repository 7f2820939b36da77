// Runs a target over a folder of inputs without a fuzzer: each input whole, and each of its beginnings, which
// takes every text through every way of ending early.

#include "tests/fuzz/fuzz.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

std::vector<char> ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    vorn::fuzz::Require(file.good(), "the inputs can be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

int main(int argc, char** argv)
{
    vorn::fuzz::Require(argc == 2, "usage: replay FOLDER");
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        const std::vector<char> input = ReadFile(entry.path());
        for (std::size_t size = 0; size <= input.size(); ++size) {
            const std::vector<std::uint8_t> exact(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(size));
            LLVMFuzzerTestOneInput(exact.data(), exact.size());
        }
        ++files;
    }
    std::printf("%d inputs\n", files);
    vorn::fuzz::Require(files > 0, "there are inputs");
    return 0;
}
