#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A kind of character that does not stand in the module as it stood in the source.
struct ForeignCharacter
{
    char32_t codePoint;
    bool isCyrillic; ///< a grave accent, or a Latin letter with an accent, in a Cyrillic word

    auto operator<=>(const ForeignCharacter&) const = default; // NOLINT(modernize-use-nullptr)
};

/// What became of it.
struct ReplacedCharacter
{
    std::string to;                  ///< Windows-1251; "": removed
    bool isAlways = false;           ///< without being asked for
    std::uint64_t count = 0;         ///< how often
    std::uint32_t firstPosition = 0; ///< the `place` of the first
};

/// Turns UTF-8 text into the Windows-1251 text of a module: canonical composition (NFC), each run of white space one
/// blank, none at the ends. What Windows-1251 lacks, and control characters, are replaced by substituteFor(), Latin
/// letters with accents in Cyrillic words by cyrillicFor(); whether that is allowed is the caller's to decide, from
/// foreign(). Soft hyphens are removed: they would hide words from the
/// search.
class CTextEncoder
{
public:
    /// By the character of the source, after composition.
    using Kinds = std::map<ForeignCharacter, ReplacedCharacter>;

    CTextEncoder();

    /// Appends the encoded text to `out`.
    /// @param utf8   valid UTF-8
    /// @param place  any number by which the caller knows the text
    void encode(std::string_view utf8, std::uint32_t place, std::string& out);

    const Kinds& foreign() const { return m_foreign; }          ///< characters that Windows-1251 lacks
    const Kinds& softHyphens() const { return m_softHyphens; }  ///< at most one entry
    std::uint64_t lostLetters() const { return m_lostLetters; } ///< letters for which only "?" was left

    /// How many letters and digits more, or fewer, the encoded texts have than their sources: "ae" for "æ", nothing for
    /// what was removed, one letter for two that were composed.
    std::int64_t letterChange() const { return m_letterChange; }

private:
    bool encodeSimple(std::string_view utf8, std::string& out) const;
    void encodeAny(std::string_view utf8, std::uint32_t place, std::string& out);
    const std::string& replace(const icu::UnicodeString& text, std::int32_t index, std::uint32_t place);

    std::shared_ptr<const class CByteTable> m_bytes;
    Kinds m_foreign;
    Kinds m_softHyphens;
    std::uint64_t m_lostLetters = 0;
    std::int64_t m_letterChange = 0;
};

/// The text in canonical composition (NFC).
/// @throws CBuildError  "the Unicode library failed: %s"
icu::UnicodeString composed(std::string_view utf8);

/// Metadata in Windows-1251, with substitutes wherever needed: "?" for bytes that are no UTF-8.
std::string encodedTitle(std::string_view utf8);

/// Windows-1251 as UTF-8, for reports.
std::string toUtf8(std::string_view cp1251);

} // namespace Kedrin::ModTool
