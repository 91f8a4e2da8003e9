#include "text_encoder.h"

#include "cp1251.h"
#include "errors.h"
#include "letters.h"
#include "look_alikes.h"
#include "messages.h"
#include "substitutes.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <array>

namespace Kedrin::ModTool {

namespace {

constexpr char32_t softHyphen = 0x00AD;
constexpr char blankMark = ' ';

} // namespace

/// The byte of each code point; 0: none, ' ': white space.
class CByteTable
{
public:
    static constexpr char32_t limit = 0x2123; ///< one past the last code point of Windows-1251

    CByteTable()
    {
        for (char32_t codePoint = 0x21; codePoint < 0x7F; ++codePoint)
            m_bytes[codePoint] = static_cast<char>(codePoint);
        for (std::size_t i = 0; i < ut::cp1251HighHalf.size(); ++i)
            if (ut::cp1251HighHalf[i] < limit)
                m_bytes[ut::cp1251HighHalf[i]] = static_cast<char>(0x80 + i);
        for (const char32_t space :
             {0x09u, 0x0Au, 0x0Bu, 0x0Cu, 0x0Du, 0x20u, 0x85u, 0xA0u, 0x2028u, 0x2029u})
            if (space < limit)
                m_bytes[space] = blankMark;
        m_bytes[softHyphen] = 0;
    }

    char byteOf(char32_t codePoint) const { return codePoint < limit ? m_bytes[codePoint] : '\0'; }

private:
    std::array<char, limit> m_bytes{};
};

CTextEncoder::CTextEncoder() : m_bytes(std::make_shared<const CByteTable>()) {}

namespace {

/// Appends bytes, collapsing white space between them to single spaces.
class CWhitespaceCollapser
{
public:
    explicit CWhitespaceCollapser(std::string& out) : m_out(out), m_begin(out.size()) {}

    void append(char byte)
    {
        if (byte == blankMark) {
            m_blank = m_out.size() != m_begin;
            return;
        }
        if (m_blank)
            m_out += blankMark;
        m_blank = false;
        m_out += byte;
    }

private:
    std::string& m_out;
    std::size_t m_begin;
    bool m_blank = false;
};

} // namespace

void CTextEncoder::encode(std::string_view utf8, std::uint32_t tag, std::string& out)
{
    const std::size_t begin = out.size();
    if (encodeSimple(utf8, out))
        return;
    out.resize(begin);
    encodeAny(utf8, tag, out);
}

/// Fast path: text in Windows-1251 is already composed, since none of its characters combine.
bool CTextEncoder::encodeSimple(std::string_view utf8, std::string& out) const
{
    const CByteTable& table = *m_bytes;
    const std::size_t begin = out.size();
    out.resize(begin + utf8.size()); // no character has more bytes than in UTF-8
    char* const first = out.data() + begin;
    char* end = first;
    char previous = blankMark;
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(utf8.data());
    for (std::size_t i = 0; i < utf8.size();) {
        char32_t codePoint = 0;
        U8_NEXT_UNSAFE(bytes, i, codePoint);
        const char byte = table.byteOf(codePoint);
        if (byte == '\0')
            return false;
        *end = byte;
        end += byte != blankMark || previous != blankMark; // a blank after another one is overwritten
        previous = byte;
    }
    if (end != first && previous == blankMark)
        --end;
    out.resize(begin + static_cast<std::size_t>(end - first));
    return true;
}

void CTextEncoder::encodeAny(std::string_view utf8, std::uint32_t tag, std::string& out)
{
    const icu::UnicodeString text = composed(utf8);
    CWhitespaceCollapser folder(out);
    m_letterChange -= static_cast<std::int64_t>(countLetters(utf8));
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const auto codePoint = static_cast<char32_t>(text.char32At(i));
        m_letterChange += isLetterOrDigit(codePoint);
        if (const char byte = m_bytes->byteOf(codePoint))
            folder.append(byte);
        else
            for (const char substitute : replace(text, i, tag))
                folder.append(substitute);
    }
}

const std::string& CTextEncoder::replace(const icu::UnicodeString& text, std::int32_t index,
                                         std::uint32_t tag)
{
    const auto codePoint = static_cast<char32_t>(text.char32At(index));
    const icu::UnicodeString letter = cyrillicFor(text, index);
    const bool isStress = isCyrillicStress(text, index);
    Kinds& kinds = codePoint == softHyphen ? m_softHyphens : m_foreign;
    const auto [entry, isNew] = kinds.try_emplace({codePoint, isStress || !letter.isEmpty()});
    ReplacedCharacter& kind = entry->second;
    if (isNew) {
        kind.to = letter.isEmpty() ? substituteFor(codePoint) : substituteFor(letter);
        kind.isAlways =
            isStress || isReplacedAlways(codePoint) || (!letter.isEmpty() && isReplacedAlways(letter));
        kind.firstPosition = tag;
    }
    ++kind.count;
    m_letterChange += static_cast<std::int64_t>(countLettersOf1251(kind.to)) - isLetterOrDigit(codePoint);
    if (kind.to == "?" && isLetter(codePoint))
        ++m_lostLetters;
    return kind.to;
}

namespace {

/// The text in pieces that end where a letter has this many marks: to order the marks of one letter takes the square of
/// their number.
icu::UnicodeString composedInPieces(const icu::UnicodeString& text, const icu::Normalizer2& nfc,
                                    UErrorCode& status)
{
    constexpr int longestRun = 200;
    icu::UnicodeString result;
    int marks = 0;
    std::int32_t begin = 0;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        marks = nfc.getCombiningClass(text.char32At(i)) == 0 ? 0 : marks + 1;
        if (marks < longestRun)
            continue;
        result += nfc.normalize(text.tempSubStringBetween(begin, i), status);
        begin = i;
        marks = 0;
    }
    return result += nfc.normalize(text.tempSubString(begin), status);
}

} // namespace

icu::UnicodeString composed(std::string_view utf8)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
    const icu::UnicodeString text =
        icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
    icu::UnicodeString result = U_SUCCESS(status) ? composedInPieces(text, *nfc, status) : text;
    if (U_FAILURE(status))
        throw CBuildError(message("the Unicode library failed: %s", u_errorName(status)));
    return result;
}

std::string encodedTitle(std::string_view utf8)
{
    std::string valid, title;
    icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())))
        .toUTF8String(valid);
    CTextEncoder().encode(valid, 0, title);
    return title;
}

std::string toUtf8(std::string_view cp1251)
{
    const std::u16string text = ut::from_cp1251(cp1251);
    std::string utf8;
    icu::UnicodeString(false, text.data(), static_cast<int32_t>(text.size())).toUTF8String(utf8);
    return utf8;
}

} // namespace Kedrin::ModTool
