#include "search_text.h"

#include "cp1251.h"
#include "errors.h"
#include "look_alikes.h"
#include "messages.h"
#include "substitutes.h"
#include "text_encoder.h"

#include <unicode/unistr.h>

namespace Kedrin::ModTool {

std::string searchText(std::string_view utf8)
{
    const icu::UnicodeString text = composed(utf8);
    std::string bytes;
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const auto codePoint = static_cast<char32_t>(text.char32At(i));
        if (const auto byte = ut::to_cp1251(codePoint)) {
            bytes += *byte;
            continue;
        }
        const icu::UnicodeString letter = cyrillicFor(text, i);
        const std::string substitute = letter.isEmpty() ? substituteFor(codePoint) : substituteFor(letter);
        if (substitute == "?")
            throw CNotFound(message("no module can contain \"%s\" (%s)", utf8, describeCharacter(codePoint)));
        bytes += substitute;
    }
    return bytes;
}

} // namespace Kedrin::ModTool
