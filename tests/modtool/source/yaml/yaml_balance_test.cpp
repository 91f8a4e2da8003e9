// Random YAML documents: every letter of their values is in the module or in something that the report counts.

#include "balance_fixture.h"

namespace {

using balance_test::CMaker;

class YamlBalance : public balance_test::LetterBalance
{
};

/// A value: some words in a style that allows them.
void makeValue(CMaker& maker, const std::string& indent)
{
    static constexpr const char* words[] = {"Бог", "рече", "Lord", "3", "сè", "æ", "Ⅷ", "true", "null words"};
    const unsigned int style = maker.number(5);
    static constexpr const char* begins[] = {"", "'", "\"", "|\n", ">-\n"};
    static constexpr const char* ends[] = {" # no text", "'", "\" # no text", "", "\n"};
    maker.mark(begins[style] + (style > 2 ? indent : ""));
    for (unsigned int i = maker.number(5) + 1; i > 0; --i) {
        maker.text(maker.oneOf(words));
        maker.mark(style == 2 && maker.number(3) == 0 ? "\\t" : maker.number(3) == 0 ? "\n" + indent : ", ");
        maker.text("x");
    }
    maker.mark(std::string(ends[style]) + '\n');
}

TEST_F(YamlBalance, OfRandomDocuments)
{
    for (unsigned int seed = 0; seed < 40; ++seed) {
        CMaker maker(seed);
        maker.mark("# no text\nbooks:\n- name: ");
        maker.text("Genesis");
        maker.mark("\n  chapters:\n  - verses:\n");
        for (unsigned int verse = 0; verse < 30; ++verse) {
            maker.mark("    - text: ");
            makeValue(maker, "       ");
            if (maker.number(4) == 0) {
                maker.mark("      note: ");
                makeValue(maker, "       ");
            }
        }
        expectBalance("a.yaml", maker);
    }
}

} // namespace
