#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A kind of character that the module stores differently from the source.
struct ForeignCharacter
{
    char32_t codePoint;
    bool isCyrillic; ///< a grave accent, or a Latin letter with an accent, in a Cyrillic word

    auto operator<=>(const ForeignCharacter&) const = default; // NOLINT(modernize-use-nullptr)
};

/// How it was replaced.
struct ReplacedCharacter
{
    std::string to;                  ///< Windows-1251; "": removed
    bool isAlways = false;           ///< even without --substitute
    std::uint64_t count = 0;         ///< how often
    std::uint32_t firstPosition = 0; ///< the tag of the text with the first one
};

/// Turns UTF-8 text into the Windows-1251 text of a module: canonical composition (NFC), white space
/// collapsed to single spaces, none at the ends. Control characters and what Windows-1251 lacks are replaced
/// by substituteFor(), accented Latin letters in Cyrillic words by cyrillicFor(); the caller decides from
/// foreign() whether that is allowed. Soft hyphens are removed, since they would hide words from the search.
class CTextEncoder
{
public:
    /// By the character of the source, after composition.
    using Kinds = std::map<ForeignCharacter, ReplacedCharacter>;

    CTextEncoder();

    /// Appends the encoded text to `out`.
    /// @param utf8   valid UTF-8
    /// @param tag  opaque tag, returned as firstPosition
    /// @throws CBuildError  "the Unicode library failed: %s"
    void encode(std::string_view utf8, std::uint32_t tag, std::string& out);

    const Kinds& foreign() const { return m_foreign; }          ///< characters that Windows-1251 lacks
    const Kinds& softHyphens() const { return m_softHyphens; }  ///< at most one entry
    std::uint64_t lostLetters() const { return m_lostLetters; } ///< letters replaced by "?"

    /// How many more letters and digits the encoded texts have than their sources; may be negative. "ae" for
    /// "æ" adds one, removal or composition subtracts.
    std::int64_t letterChange() const { return m_letterChange; }

private:
    bool encodeSimple(std::string_view utf8, std::string& out) const;
    void encodeAny(std::string_view utf8, std::uint32_t tag, std::string& out);
    const std::string& replace(const icu::UnicodeString& text, std::int32_t index, std::uint32_t tag);

    std::shared_ptr<const class CByteTable> m_bytes;
    Kinds m_foreign;
    Kinds m_softHyphens;
    std::uint64_t m_lostLetters = 0;
    std::int64_t m_letterChange = 0;
};

/// The text in canonical composition (NFC).
/// @throws CBuildError  "the Unicode library failed: %s"
icu::UnicodeString composed(std::string_view utf8);

/// Metadata in Windows-1251, with replacements where needed: "?" for bytes that are not UTF-8.
std::string encodedTitle(std::string_view utf8);

/// Windows-1251 as UTF-8, for reports.
std::string toUtf8(std::string_view cp1251);

} // namespace Kedrin::ModTool
