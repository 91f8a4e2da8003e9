#pragma once

#include <string>

namespace Kedrin::ModTool {

/// The name of the catalogue of messages.
inline constexpr const char* messageDomain = "kedrin-module";

/// Selects the user's language for all messages, by the rules of gettext: LANGUAGE, LC_ALL, LC_MESSAGES,
/// LANG. A locale named there need not be installed: LANG=bg_BG.UTF-8 is enough for Bulgarian. The catalogue
/// is searched for beside the program ("locale") and where it is installed ("../share/locale",
/// "../../share/locale"). Nothing else of the locale is used; output is always UTF-8.
void chooseLanguage();

/// Switches all further messages to English: for output that other programs read.
void forceEnglish();

} // namespace Kedrin::ModTool
