#include "no_display.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QStringList>

#include <cstdlib>
#include <iostream>
#include <string_view>
#include <utility>

namespace qt3 {

namespace {

constexpr int statusWithoutDisplay = 1;

std::string theSentence;
QStringList keptMessages;

[[noreturn]] void endWithTheSentence()
{
    std::cerr << theSentence << std::endl;
    std::_Exit(statusWithoutDisplay); // a partly constructed application cannot be destroyed
}

void keepMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtFatalMsg)
        endWithTheSentence();
    keptMessages.append(qFormatLogMessage(type, context, text));
}

std::string environment(const char* name) { return qgetenv(name).toStdString(); }

/// Like gettext: LANGUAGE is used only if a locale is set, and only its first language.
bool speaksBulgarian()
{
    std::string locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (locale.empty())
            locale = environment(name);
    const bool isSet = !locale.empty() && locale != "POSIX" && locale != "C" && !locale.starts_with("C.");
    const std::string language = environment("LANGUAGE");
    return isSet && (language.empty() ? locale : language).starts_with("bg");
}

/// The platform requested by -platform, or else by QT_QPA_PLATFORM; empty if none is requested.
std::string askedPlatform(int argc, const char* const* argv)
{
    std::string asked = environment("QT_QPA_PLATFORM");
    for (int i = 1; i + 1 < argc; ++i)
        if (const std::string_view option = argv[i]; option == "-platform" || option == "--platform")
            asked = argv[i + 1];
    return asked;
}

/// The set variables that select a display, for example "DISPLAY=:0".
std::string namedDisplays()
{
    std::string named;
    for (const char* name : {"WAYLAND_DISPLAY", "DISPLAY"})
        if (const std::string value = environment(name); !value.empty())
            named += (named.empty() ? "" : ", ") + std::string(name) + "=" + value;
    return named;
}

} // namespace

std::string NoDisplay::sentence(int argc, const char* const* argv)
{
    const bool bulgarian = speaksBulgarian();
    const auto choose = [&](const char* english, const char* inBulgarian) {
        return std::string(bulgarian ? inBulgarian : english);
    };
    const std::string name = argc > 0 ? std::string(argv[0]).substr(std::string(argv[0]).rfind('/') + 1) : "";
    const std::string start =
        name + ": " + choose("no window can be opened: ", "не може да се отвори прозорец: ");
    if (const std::string platform = askedPlatform(argc, argv); !platform.empty())
        return start + choose("the platform \"", "платформата „") + platform +
               choose("\" that was asked for does not work here.", "“, която е поискана, не работи тук.");
    if (const std::string displays = namedDisplays(); !displays.empty())
        return start + choose("the display cannot be reached (", "няма връзка с екрана (") + displays + ").";
    return start + choose("there is no graphical display here; start the program from a desktop session.",
                          "тук няма графичен екран; стартирайте програмата от графична среда.");
}

NoDisplay::NoDisplay(int argc, const char* const* argv)
{
    theSentence = sentence(argc, argv);
    qInstallMessageHandler(keepMessage);
}

NoDisplay::~NoDisplay()
{
    qInstallMessageHandler(nullptr);
    for (const QString& message : std::exchange(keptMessages, {}))
        std::cerr << message.toStdString() << std::endl;
}

void NoDisplay::checkScreen()
{
    if (QGuiApplication::primaryScreen() == nullptr)
        endWithTheSentence();
}

} // namespace qt3
