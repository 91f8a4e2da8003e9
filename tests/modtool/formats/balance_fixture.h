#pragma once

#include "build_fixture.h"
#include "letters.h"

#include <random>

namespace balance_test {

/// A document, and the letters and digits of its text alone.
class CMaker
{
public:
    explicit CMaker(unsigned int seed) : m_random(seed) {}

    unsigned int number(unsigned int count) { return static_cast<unsigned int>(m_random() % count); }

    template <std::size_t N>
    const char* oneOf(const char* const (&names)[N])
    {
        return names[number(N)];
    }

    /// Some words, with signs and blanks of any kind between them.
    void words()
    {
        static constexpr const char* some[] = {"Бог", "рече", "Lord",    "3", "и", "сè",
                                               "æ",   "ѝ",    "a\u0301", "Ⅷ", "½"};
        static constexpr const char* between[] = {" ", ", ", "\n", " — ", "…", "\u00A0", " ~ "};
        for (unsigned int i = number(4); i != ~0u; --i) {
            text(oneOf(some));
            m_document += oneOf(between);
        }
    }

    void text(const std::string& utf8)
    {
        m_document += utf8;
        m_count += Kedrin::ModTool::appendLetters(utf8, m_letters);
    }

    void mark(const std::string& markup) { m_document += markup; }

    const std::string& document() const { return m_document; }
    const std::string& letters() const { return m_letters; }
    std::uint64_t count() const { return m_count; }

private:
    std::mt19937 m_random;
    std::string m_document;
    std::string m_letters;
    std::uint64_t m_count = 0;
};

class LetterBalance : public build_test::Building
{
protected:
    /// Builds the document: no letter more or less is accounted for than its maker put in.
    void expectBalance(const std::string& name, const CMaker& maker) const
    {
        const auto result = build_test::run(
            {"build", m_folder.write(name, maker.document()), made(), "--substitute", "--verbose"});
        ASSERT_EQ(result.code, 0) << result.err << maker.document();
        ASSERT_NE(result.out.find("\nletters       " + std::to_string(maker.count()) +
                                  " letters and digits in the source\n"),
                  std::string::npos)
            << result.out << maker.document();
    }
};

/// Calls `use` with the letters that are left when one is dropped, for some of them.
template <typename Use>
void forEachDropped(const std::string& letters, Use&& use)
{
    const auto isWithin = [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) == 0x80; };
    for (std::size_t begin = 0; begin < letters.size(); begin += 37) {
        std::size_t first = begin;
        while (first < letters.size() && isWithin(letters[first]))
            ++first;
        std::size_t end = first + 1;
        while (end < letters.size() && isWithin(letters[end]))
            ++end;
        if (first < letters.size())
            use(letters.substr(0, first) + letters.substr(end));
    }
}

inline constexpr const char* complaint = "this is an error in kedrin-module, please report it";

} // namespace balance_test
