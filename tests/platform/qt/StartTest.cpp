#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>

namespace {

// What the probe prints, errors included, when it is started with `environment` ("NAME=value ...") alone.
std::string Probe(const std::string& environment)
{
    const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + environment +
                                " timeout 60 " ZEK_QT_PROBE " 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string said;
    std::array<char, 256> part;
    while (pipe && std::fgets(part.data(), static_cast<int>(part.size()), pipe.get()))
        said += part.data();
    return said;
}

struct Row {
    const char* label;
    const char* environment;
    const char* said;
};
// A display that nobody serves is not to end the process, by whatever name it is asked for.
constexpr std::array<Row, 7> kRows = {{
    {"by name", "QT_QPA_PLATFORM=offscreen", "window extent kept\n"},
    {"by name with options", "QT_QPA_PLATFORM=offscreen:size=100x100 LC_ALL=C.UTF-8", "window extent kept\n"},
    {"nothing to show on", "", "none extent kept\n"},
    {"a display that is not there", "DISPLAY=:97", "none extent kept\n"},
    {"the same by name", "QT_QPA_PLATFORM=xcb DISPLAY=:97", "none extent kept\n"},
    {"a compositor that is not there", "WAYLAND_DISPLAY=wayland-97", "none extent kept\n"},
    {"the same by name", "QT_QPA_PLATFORM=wayland", "none extent kept\n"},
}};

TEST(StartTest, NeverEndsTheProcess)
{
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Probe(row.environment), row.said);
    }
}

} // namespace
