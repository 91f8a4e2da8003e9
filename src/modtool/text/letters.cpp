#include "letters.h"

#include "cp1251.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <array>

namespace Kedrin::ModTool {

namespace {

bool isCounted(char32_t codePoint)
{
    return (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & (U_GC_L_MASK | U_GC_N_MASK)) != 0;
}

/// Whether each character of one or two bytes in UTF-8 is counted; these cover Latin, Greek and Cyrillic.
class CShortTable
{
public:
    static constexpr std::size_t size = 0x800;

    CShortTable()
    {
        for (std::size_t codePoint = 0; codePoint < size; ++codePoint)
            m_isCounted[codePoint] = isCounted(static_cast<char32_t>(codePoint));
    }

    bool operator[](std::size_t codePoint) const { return m_isCounted[codePoint]; }

private:
    std::array<bool, size> m_isCounted{};
};

const CShortTable& shortTable()
{
    static const CShortTable table;
    return table;
}

/// Calls `use` with the bytes of each letter or digit.
/// @returns how many
template <typename Use>
std::uint64_t forEachLetter(std::string_view utf8, Use&& use)
{
    const CShortTable& table = shortTable();
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(utf8.data());
    std::uint64_t count = 0;
    for (std::size_t i = 0; i < utf8.size();) {
        const std::size_t begin = i;
        char32_t codePoint = 0;
        U8_NEXT_UNSAFE(bytes, i, codePoint);
        if (codePoint < CShortTable::size ? table[codePoint] : isCounted(codePoint)) {
            ++count;
            use(utf8.substr(begin, i - begin));
        }
    }
    return count;
}

} // namespace

std::uint64_t countLetters(std::string_view utf8)
{
    return forEachLetter(utf8, [](std::string_view) {});
}

std::uint64_t countLettersOf1251(std::string_view cp1251)
{
    static const std::array<bool, 256> isLetterByte = [] {
        std::array<bool, 256> table{};
        for (std::size_t byte = 0; byte < table.size(); ++byte)
            table[byte] =
                isCounted(byte < 0x80 ? static_cast<char32_t>(byte) : ut::cp1251HighHalf[byte - 0x80]);
        return table;
    }();
    std::uint64_t count = 0;
    for (const char c : cp1251)
        count += isLetterByte[static_cast<unsigned char>(c)];
    return count;
}

std::uint64_t appendLetters(std::string_view utf8, std::string& out)
{
    return forEachLetter(utf8, [&](std::string_view letter) { out += letter; });
}

bool isLetterOrDigit(char32_t codePoint) { return isCounted(codePoint); }

} // namespace Kedrin::ModTool
