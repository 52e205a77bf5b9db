// What the allocation tracker costs, against plain malloc and free, two sanitizers and a heap profiler.
//
//   tracking [REPEATS]
//
// Runs the variants of Blocks.cpp in turn, in processes of their own, with 1e3, 1e5 and 1e6 live blocks;
// prints the median time of a pair for each, and its ratio to the plain one. The log's time is that of one
// record.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Variant {
    const char* name;
    std::string command;
    std::vector<double> pairs = {};
    std::vector<double> records = {};
};

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

// The last line that the command prints with two numbers in it.
bool Run(Variant& variant, const std::string& arguments)
{
    FILE* pipe = popen((variant.command + " " + arguments + " 2>/dev/null").c_str(), "r");
    if (!pipe)
        return false;
    char line[512];
    double pair = 0, record = 0;
    bool found = false;
    while (std::fgets(line, sizeof line, pipe))
        found = std::sscanf(line, "%lf %lf", &pair, &record) == 2 || found;
    pclose(pipe);
    if (!found)
        return false;
    variant.pairs.push_back(pair);
    variant.records.push_back(record);
    return true;
}

void Measure(std::vector<Variant> variants, const char* live, int repeats)
{
    for (int i = 0; i < repeats; ++i)
        for (Variant& variant : variants)
            Run(variant, std::string(live) + " 1000000");
    const double plain = Median(variants[0].pairs);
    for (const Variant& variant : variants) {
        const double pair = Median(variant.pairs);
        if (pair > 0)
            std::printf("%8s live  %-22s %8.1f ns a pair  %6.2f x plain  %+8.1f ns\n", live, variant.name,
                        pair, pair / plain, pair - plain);
        if (Median(variant.records) > 0)
            std::printf("%8s live  %-22s %8.3f us a record of its log\n", live, variant.name,
                        Median(variant.records) / 1000);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const int repeats = argc > 1 ? std::atoi(argv[1]) : 5;
    const std::string folder = fs::canonical("/proc/self/exe").parent_path().string();
    const std::string scratch = fs::temp_directory_path() / "zek-bench-tracking";
    fs::create_directories(scratch + "/off");
    fs::create_directories(scratch + "/on");
    fs::create_directories(folder + "/Temporary");
    const std::string set = folder + "/zek-reg set 'HKCU\\Software\\TOVEN\\TEST' CheckMemoryNOP ";
    if (std::system(("ZEK_HOME=" + scratch + "/on " + set + "2").c_str()) != 0)
        return 1;
    const std::string tracked = folder + "/blocks_tracked";
    std::vector<Variant> variants = {{"plain", folder + "/blocks_plain"},
                                     {"tracker, switch unset", "ZEK_HOME=" + scratch + "/off " + tracked},
                                     {"tracker, on", "ZEK_HOME=" + scratch + "/on " + tracked},
                                     {"leak sanitizer", folder + "/blocks_leak"},
                                     {"address sanitizer", folder + "/blocks_address"}};
    if (std::system("command -v heaptrack >/dev/null") == 0)
        variants.push_back({"heaptrack", "heaptrack -o " + scratch + "/trace " + folder + "/blocks_plain"});
    for (const char* live : {"1000", "100000", "1000000"})
        Measure(variants, live, repeats);
    fs::remove_all(scratch);
    fs::remove_all(folder + "/Temporary");
}
