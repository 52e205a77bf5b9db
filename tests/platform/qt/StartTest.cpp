#include <gmock/gmock.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

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
constexpr std::array<Row, 12> kRows = {{
    {"by name", "QT_QPA_PLATFORM=offscreen", "window extent kept\n"},
    {"by name with options", "QT_QPA_PLATFORM=offscreen:size=100x100 LC_ALL=C.UTF-8", "window extent kept\n"},
    {"one of several names", "QT_QPA_PLATFORM='xcb;offscreen' DISPLAY=:97", "window extent kept\n"},
    {"nothing to show on", "", "none extent kept\n"},
    {"a display that is not there", "DISPLAY=:97", "none extent kept\n"},
    {"the same by name", "QT_QPA_PLATFORM=xcb DISPLAY=:97", "none extent kept\n"},
    {"no display by name", "QT_QPA_PLATFORM=xcb", "none extent kept\n"},
    {"a display that is none", "QT_QPA_PLATFORM=xcb:opt DISPLAY=nonsense", "none extent kept\n"},
    {"a compositor that is not there", "WAYLAND_DISPLAY=wayland-97", "none extent kept\n"},
    {"the same by name", "QT_QPA_PLATFORM=wayland", "none extent kept\n"},
    {"neither", "WAYLAND_DISPLAY=wayland-97 DISPLAY=:97", "none extent kept\n"},
    {"no platform's name", "QT_QPA_PLATFORM=nonsense", "none extent kept\n"},
}};

TEST(StartTest, NeverEndsTheProcess)
{
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Probe(row.environment), row.said);
    }
}

// Listens where X clients look first: at a name that is no file.
class FakeServer
{
public:
    FakeServer() : m_display(":" + std::to_string(1000 + getpid()))
    {
        const std::string name = "/tmp/.X11-unix/X" + m_display.substr(1);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        name.copy(address.sun_path + 1, sizeof address.sun_path - 1);
        const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
        EXPECT_EQ(bind(m_listener, reinterpret_cast<const sockaddr*>(&address), size), 0);
        EXPECT_EQ(listen(m_listener, 5), 0);
    }
    ~FakeServer() { close(m_listener); }
    FakeServer(const FakeServer&) = delete;
    FakeServer& operator=(const FakeServer&) = delete;

    std::string Environment() const { return "DISPLAY=" + m_display; }

    // Tells the first client that it may not come in.
    void Refuse()
    {
        constexpr std::string_view kRefusal("\0\4\13\0\0\0\1\0None", 12);
        const int client = accept(m_listener, nullptr, nullptr);
        std::array<char, 12> greeting;
        EXPECT_EQ(recv(client, greeting.data(), greeting.size(), MSG_WAITALL), 12);
        EXPECT_EQ(write(client, kRefusal.data(), kRefusal.size()), 12);
        close(client);
    }

private:
    std::string m_display;
    int m_listener = socket(AF_UNIX, SOCK_STREAM, 0);
};

TEST(StartTest, ADisplayThatRefusesIsNone)
{
    for (const char* name : {"", " QT_QPA_PLATFORM=xcb"}) {
        SCOPED_TRACE(name);
        FakeServer server;
        std::thread refusing([&server] { server.Refuse(); });
        EXPECT_EQ(Probe(server.Environment() + name), "None\nnone extent kept\n");
        refusing.join();
    }
}

TEST(StartTest, ADisplayThatNeverAnswersIsNone)
{
    const FakeServer server;
    EXPECT_EQ(Probe(server.Environment()), "none extent kept\n");
}

} // namespace
