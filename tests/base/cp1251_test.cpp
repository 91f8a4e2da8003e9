#include "cp1251.h"

#include <gtest/gtest.h>

#include <iconv.h>

#include <cstdint>
#include <optional>

namespace {

using namespace std::string_literals;

/// The C library's table, as an independent reference.
class SystemTable
{
public:
    SystemTable() : m_descriptor(::iconv_open("UTF-16LE", "CP1251")) {}
    ~SystemTable()
    {
        if (isUsable())
            ::iconv_close(m_descriptor);
    }
    SystemTable(const SystemTable&) = delete;
    SystemTable& operator=(const SystemTable&) = delete;

    bool isUsable() const { return reinterpret_cast<std::intptr_t>(m_descriptor) != -1; }

    std::optional<char16_t> codePointOf(char byte) const
    {
        unsigned char units[2] = {};
        char* in = &byte;
        char* out = reinterpret_cast<char*>(units);
        std::size_t inLeft = 1;
        std::size_t outLeft = sizeof units;
        ::iconv(m_descriptor, nullptr, nullptr, nullptr, nullptr);
        if (::iconv(m_descriptor, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1))
            return std::nullopt;
        return static_cast<char16_t>(units[0] + 256 * units[1]);
    }

private:
    iconv_t m_descriptor;
};

TEST(Cp1251, AgreesWithTheSystemOnEveryByte)
{
    const SystemTable system;
    ASSERT_TRUE(system.isUsable());
    for (int byte = 0; byte < 256; ++byte) {
        const char asChar = static_cast<char>(byte);
        EXPECT_EQ(ut::from_cp1251(asChar), system.codePointOf(asChar).value_or(u'\xFFFD')) << byte;
    }
    EXPECT_FALSE(system.codePointOf('\x98'));
}

TEST(Cp1251, EveryByteButTheUnassignedOneComesBack)
{
    for (int byte = 0; byte < 256; ++byte) {
        const char asChar = static_cast<char>(byte);
        if (byte == 0x98)
            continue;
        EXPECT_EQ(ut::to_cp1251(char32_t(ut::from_cp1251(asChar))), asChar) << byte;
    }
}

TEST(Cp1251, HasExactly255OfAllCodePoints)
{
    int encodable = 0;
    for (char32_t point = 0; point <= 0x10FFFF; ++point)
        encodable += ut::to_cp1251(point).has_value() ? 1 : 0;
    EXPECT_EQ(encodable, 255);
}

TEST(Cp1251, HasNoByteForTheReplacementOrTheUnassigned)
{
    EXPECT_EQ(ut::from_cp1251('\x98'), u'\xFFFD');
    EXPECT_FALSE(ut::to_cp1251(U'\xFFFD'));
    EXPECT_FALSE(ut::to_cp1251(U'\x98'));
    EXPECT_FALSE(ut::to_cp1251(U'\x45D')); // the Bulgarian i with a grave accent
}

TEST(Cp1251, ConvertsWholeTexts)
{
    EXPECT_EQ(ut::to_cp1251(u"\u0411\u043E\u0433 God"), "\xC1\xEE\xE3 God");
    EXPECT_EQ(ut::from_cp1251("\xC1\xEE\xE3 God"), u"\u0411\u043E\u0433 God");
    EXPECT_EQ(ut::to_cp1251(u""), "");
    EXPECT_EQ(ut::from_cp1251(""), u"");
}

TEST(Cp1251, KeepsZeroBytesInTexts)
{
    EXPECT_EQ(ut::from_cp1251("a\0b"s), u"a\0b"s);
    EXPECT_EQ(ut::to_cp1251(u"a\0b"s), "a\0b"s);
}

TEST(Cp1251, PutsAQuestionMarkForEachUnitItLacks)
{
    EXPECT_EQ(ut::to_cp1251(u"\u0391-\U0001F600"), "?-??"); // the last is two UTF-16 units
}

} // namespace
