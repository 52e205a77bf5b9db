// Runs a fuzz target once over each file of the folders named, for builds without a fuzzer.
#include "Fuzz.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

void Run(const std::filesystem::path& file)
{
    std::cout << file.filename().string() << std::endl; // the last one named is the one that fails
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

int main(int argc, char** argv)
{
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            Run(entry.path());
            ++files;
        }
    }
    std::cout << files << " inputs\n";
    return files == 0;
}
