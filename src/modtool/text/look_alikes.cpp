#include "look_alikes.h"

#include "word_index.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <string_view>

namespace Kedrin::ModTool {

namespace {

constexpr char16_t grave = 0x0300;
constexpr std::u16string_view latin = u"AaEeIiKkOoUuYy";
constexpr std::u16string_view cyrillic = u"АаЕеІіКкОоИиУу"; // italic и looks like u

bool isMark(UChar32 codePoint) { return (U_GET_GC_MASK(codePoint) & U_GC_M_MASK) != 0; }

bool isOfWord(UChar32 codePoint) { return u_isalpha(codePoint) || isMark(codePoint); }

bool isOf(UScriptCode script, UChar32 codePoint)
{
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(codePoint, &status) == script;
}

/// The Cyrillic letter with the accents of a Latin one; empty for letters without accents or without a
/// Cyrillic look-alike.
icu::UnicodeString likeness(UChar32 codePoint)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString parts;
    const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status) || !nfc->getDecomposition(codePoint, parts))
        return {};
    const std::size_t letter = latin.find(parts[0]);
    if (letter == std::u16string_view::npos || !isMark(parts.char32At(1)))
        return {};
    parts.setCharAt(0, cyrillic[letter]);
    return nfc->normalize(parts, status);
}

/// No word of a word list is longer; bounds the time for a hostile text without spaces.
constexpr std::int32_t maxWordReach = maxWordLineBytes;

/// Where the word around an index begins and one past its end, both at most `maxWordReach` away.
std::pair<std::int32_t, std::int32_t> wordAround(const icu::UnicodeString& text, std::int32_t index)
{
    std::int32_t begin = index;
    while (begin > 0 && index - begin < maxWordReach && isOfWord(text.char32At(text.moveIndex32(begin, -1))))
        begin = text.moveIndex32(begin, -1);
    std::int32_t end = index;
    while (end < text.length() && end - index < maxWordReach && isOfWord(text.char32At(end)))
        end = text.moveIndex32(end, 1);
    return {begin, end};
}

/// Whether a word is Cyrillic except for Latin look-alikes.
bool isCyrillicWord(const icu::UnicodeString& word)
{
    bool hasCyrillic = false;
    for (std::int32_t i = 0; i < word.length(); i = word.moveIndex32(i, 1)) {
        const UChar32 codePoint = word.char32At(i);
        if (isOf(USCRIPT_LATIN, codePoint) && likeness(codePoint).isEmpty())
            return false;
        hasCyrillic = hasCyrillic || isOf(USCRIPT_CYRILLIC, codePoint);
    }
    return hasCyrillic;
}

} // namespace

icu::UnicodeString cyrillicFor(const icu::UnicodeString& text, std::int32_t index)
{
    const icu::UnicodeString letter = likeness(text.char32At(index));
    if (letter.isEmpty())
        return {};
    const auto [begin, end] = wordAround(text, index);
    return isCyrillicWord(text.tempSubStringBetween(begin, end)) ? letter : icu::UnicodeString();
}

bool isCyrillicStress(const icu::UnicodeString& text, std::int32_t index)
{
    if (text.char32At(index) != grave)
        return false;
    std::int32_t letter = index;
    while (letter > 0 && index - letter < maxWordReach && isMark(text.char32At(letter)))
        letter = text.moveIndex32(letter, -1);
    const UChar32 codePoint = text.char32At(letter);
    return isOf(USCRIPT_CYRILLIC, codePoint) || !cyrillicFor(text, letter).isEmpty();
}

} // namespace Kedrin::ModTool
