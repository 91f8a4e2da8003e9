#pragma once

#include <string>

namespace qt3 {

/// Where the toolkit finds no display it writes its own text and aborts. While an object of this class exists, the
/// program instead writes one sentence to standard error and ends with status 1: English, or Bulgarian where the
/// environment asks for it. What else the toolkit writes meanwhile is kept, and written when the object goes. One
/// object at a time.
///
///     auto noDisplay = std::make_unique<qt3::NoDisplay>(argc, argv);
///     QApplication application(argc, argv);
///     noDisplay->checkScreen();
///     noDisplay.reset();
class NoDisplay
{
public:
    /// @param argv  the program's name comes before the sentence; a platform asked for by -platform is named in it
    NoDisplay(int argc, const char* const* argv);
    ~NoDisplay();
    NoDisplay(const NoDisplay&) = delete;
    NoDisplay& operator=(const NoDisplay&) = delete;

    /// Ends the program alike where the application has started without any screen.
    static void checkScreen();

    /// The sentence for this command line and environment, without line feed, in UTF-8.
    static std::string sentence(int argc, const char* const* argv);
};

} // namespace qt3
