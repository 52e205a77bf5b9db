// What it costs to ask for a service by name.
//
//   services [LARGEST]      default: 100000
//
// Among 10, 1,000 and 100,000 services, nine of ten requests for one that is there: the time of a request,
// its growth, and its ratio to what hash tables that grow would take for the same look-up and call.
#include "Timing.h"

#include <ZEK_lib.h>

#include <QtCore/QHash>
#include <absl/container/flat_hash_map.h>
#include <absl/strings/string_view.h>
#include <boost/unordered_map.hpp>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string_view>
#include <unordered_map>

namespace {

constexpr std::size_t kProbes = 4096;

class Agency : public CServiceAgency
{
public:
    int DoService(int nCode, void*) override { return nCode; }
};

class Office : public CServiceHeadOffice
{
};

std::vector<std::string> MakeNames(std::size_t count)
{
    Numbers numbers(12);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < count; ++i) {
        const char* const kinds[] = {"Mesh", "Load", "Result", "View"};
        char name[64];
        std::snprintf(name, sizeof name, "Service.%s.%08x.%zu", kinds[numbers.Below(4)], numbers.Next(), i);
        names.emplace_back(name);
    }
    return names;
}

std::vector<std::string> MakeProbes(const std::vector<std::string>& names)
{
    Numbers numbers(13);
    std::vector<std::string> probes;
    for (std::size_t i = 0; i < kProbes; ++i)
        probes.push_back(numbers.Below(10) ? names[numbers.Below(static_cast<std::uint32_t>(names.size()))]
                                           : "Missing." + std::to_string(numbers.Below(1000)));
    return probes;
}

// `find` answers the agency of a name, or null. Every contender must answer as many requests.
template <class Find>
std::function<void()> Asking(const std::vector<std::string>& probes, int& expected, Find find)
{
    return [&probes, &expected, find] {
        int answered = 0;
        for (const std::string& probe : probes) {
            CServiceAgency* agency = find(probe.c_str());
            answered += agency ? agency->DoService(1, nullptr) : 0;
        }
        if (answered != expected)
            std::abort();
    };
}

double Measure(std::size_t count, double before)
{
    const std::vector<std::string> names = MakeNames(count);
    const std::vector<std::string> probes = MakeProbes(names);
    Office office;
    Agency agency;
    std::map<std::string, CServiceAgency*, std::less<>> map;
    std::unordered_map<std::string, CServiceAgency*> unordered;
    boost::unordered_map<std::string, CServiceAgency*> boosted;
    absl::flat_hash_map<std::string, CServiceAgency*> flat;
    QHash<QByteArray, CServiceAgency*> qhash;
    for (const std::string& name : names) {
        office.RegAgency(name.c_str(), new Agency);
        map[name] = unordered[name] = boosted[name] = flat[name] = qhash[QByteArray(name.c_str())] = &agency;
    }
    int expected = 0;
    for (const std::string& probe : probes)
        expected += static_cast<int>(unordered.count(probe));

    const auto in = [](auto& table, auto key) -> CServiceAgency* {
        const auto found = table.find(key);
        return found == table.end() ? nullptr : found->second;
    };
    const auto results = RunAndPrint(
        "services " + std::to_string(count),
        {Timed("library",
               [&] {
                   int answered = 0;
                   for (const std::string& probe : probes)
                       answered += office.ReqService(probe.c_str(), 1, nullptr) == 1;
                   if (answered != expected)
                       std::abort();
               }),
         Timed("std::map",
               Asking(probes, expected, [&](const char* name) { return in(map, std::string_view(name)); })),
         Timed("std::unordered_map",
               Asking(probes, expected, [&](const char* name) { return in(unordered, std::string(name)); })),
         Timed("boost::unordered_map",
               Asking(probes, expected, [&](const char* name) { return in(boosted, std::string(name)); })),
         Timed("absl::flat_hash_map",
               Asking(probes, expected, [&](const char* name) { return in(flat, absl::string_view(name)); })),
         Timed("QHash", Asking(probes, expected,
                               [&](const char* name) {
                                   const auto length = static_cast<qsizetype>(std::strlen(name));
                                   return qhash.value(QByteArray::fromRawData(name, length), nullptr);
                               }))},
        probes.size());
    const double each = results.front().Median();
    if (before > 0)
        std::printf("services %zu: %.1f times the time of the size before\n", count, each / before);
    return each;
}

} // namespace

int main(int argc, char** argv)
{
    const auto largest = static_cast<std::size_t>(argc > 1 ? std::atof(argv[1]) : 1e5);
    double before = -1;
    for (std::size_t count = 10; count <= largest; count *= 100)
        before = Measure(count, before);
}
