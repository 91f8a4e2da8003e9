#pragma once

#include <string>

namespace Kedrin::ModTool {

/// The name of the catalogue of messages.
inline constexpr const char* messageDomain = "kedrin-module";

/// Makes the user's language that of all messages, as gettext has it: LANGUAGE, LC_ALL, LC_MESSAGES, LANG. A locale that
/// is named there and not installed counts too, so that Bulgarian needs no more than LANG=bg_BG.UTF-8. The catalogue is
/// looked for beside the program ("locale") and where it is installed ("../share/locale", "../../share/locale"). Nothing
/// else of the locale is used: numbers and case stay as they are, output is UTF-8.
void chooseLanguage();

/// Makes English the language of all messages from here on: for output that programs read.
void speakEnglish();

} // namespace Kedrin::ModTool
