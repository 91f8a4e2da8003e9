#pragma once

#include <string>

namespace qt3 {

/// Without a display the toolkit writes its own text and aborts. While an object of this class exists, the
/// program instead writes one sentence to standard error, in English or, if the environment selects it, in
/// Bulgarian, and exits with status 1. Other output of the toolkit is held back until the object is
/// destroyed. One object at a time.
///
///     auto noDisplay = std::make_unique<qt3::NoDisplay>(argc, argv);
///     QApplication application(argc, argv);
///     noDisplay->checkScreen();
///     noDisplay.reset();
class NoDisplay
{
public:
    /// @param argv  the sentence begins with the program's name and contains the platform requested by
    ///              -platform
    NoDisplay(int argc, const char* const* argv);
    ~NoDisplay();
    NoDisplay(const NoDisplay&) = delete;
    NoDisplay& operator=(const NoDisplay&) = delete;

    /// Ends the program in the same way if the application has started but has no screen.
    static void checkScreen();

    /// The sentence for this command line and environment, without a line feed, in UTF-8.
    static std::string sentence(int argc, const char* const* argv);
};

} // namespace qt3
