#include "Application.h"

#include "Display.h"

#include <QtCore/QByteArrayList>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <array>
#include <cerrno>
#include <clocale>
#include <iterator>
#include <string>

namespace {

constexpr auto kHidden = "offscreen"; // the toolkit's platform that needs no display

// Told on every machine without a desktop session, and no concern of the program's user.
constexpr std::array kNoise = {"XDG_RUNTIME_DIR",
                               "propagateSizeHints",
                               "could not connect to display",
                               "Failed to create wl_display",
                               "Could not load the Qt platform plugin",
                               "Could not find the Qt platform plugin",
                               "Detected locale",
                               "Timers cannot be stopped from another thread",
                               "This plugin does not support"};

QtMessageHandler g_nextHandler = nullptr;

void TellUnlessNoise(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type != QtFatalMsg)
        for (const char* noise : kNoise)
            if (text.contains(QLatin1String(noise)))
                return;
    if (g_nextHandler)
        g_nextHandler(type, context, text);
}

// Whether trying it cannot end the process or hang. The toolkit finds out itself for the others.
bool IsWorthTrying(const QByteArray& platform, XServer& server)
{
    return platform.split(':')[0].trimmed().toLower() != "xcb" || server.Answers();
}

// Where a platform cannot be had the toolkit tries the next of the list; with the last one it never fails.
QByteArray PlatformsFor(const QByteArray& named, XServer& server)
{
    QByteArrayList wanted = named.split(';');
    if (named.isEmpty()) {
        wanted.clear();
        if (qEnvironmentVariableIsSet("DISPLAY"))
            wanted += "xcb";
        if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
            wanted += "wayland";
    }
    QByteArrayList platforms;
    std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(platforms),
                 [&server](const QByteArray& platform) { return IsWorthTrying(platform, server); });
    return (platforms << kHidden).join(';');
}

void MakeApplication(const QByteArray& platforms)
{
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    // The object keeps both for as long as it lives, which is until the process ends.
    static QByteArray name(program_invocation_name);
    static QByteArray list(platforms);
    static char option[] = "-platform";
    static char* argv[] = {name.data(), option, list.data(), nullptr};
    static int argc = 3;
    g_nextHandler = qInstallMessageHandler(TellUnlessNoise);
    new QApplication(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    std::setlocale(LC_ALL, locale.c_str());
}

} // namespace

bool StartApplication()
{
    if (QCoreApplication::instance()) // a host's object without widgets cannot be replaced
        return qobject_cast<QApplication*>(QCoreApplication::instance());
    const QByteArray named = qgetenv("QT_QPA_PLATFORM");
    XServer server;
    MakeApplication(PlatformsFor(named, server));
    return QGuiApplication::platformName() != QLatin1String(kHidden) || named.contains(kHidden);
}
