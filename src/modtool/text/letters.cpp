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

/// Calls `use` for each character, with the position of its first byte, that after its last, and whether it is counted.
/// No branch depends on the latter: words are too short for their ends to be predicted.
/// @returns how many are counted
template <typename Use>
std::uint64_t forEachCharacter(std::string_view utf8, Use&& use)
{
    const CShortTable& table = shortTable();
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(utf8.data());
    std::uint64_t count = 0;
    for (std::size_t i = 0; i < utf8.size();) {
        const std::size_t begin = i;
        char32_t codePoint = 0;
        U8_NEXT_UNSAFE(bytes, i, codePoint);
        const bool counts = codePoint < CShortTable::size ? table[codePoint] : isCounted(codePoint);
        count += counts;
        use(begin, i, counts);
    }
    return count;
}

} // namespace

std::uint64_t countLetters(std::string_view utf8)
{
    return forEachCharacter(utf8, [](std::size_t, std::size_t, bool) {});
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
    const std::size_t known = out.size();
    out.resize(known + utf8.size());
    char* end = out.data() + known;
    const std::uint64_t count = forEachCharacter(utf8, [&](std::size_t from, std::size_t to, bool counts) {
        *end = utf8[from];
        end += counts;
        for (std::size_t i = from + 1; i < to; ++i) {
            *end = utf8[i];
            end += counts;
        }
    });
    out.resize(static_cast<std::size_t>(end - out.data()));
    return count;
}

bool isLetterOrDigit(char32_t codePoint) { return isCounted(codePoint); }

} // namespace Kedrin::ModTool
