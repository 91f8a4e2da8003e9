// XML of books, chapters and verses in one another, with random elements inside: every letter of it is in the module or
// in something that the report counts.

#include "balance_fixture.h"

#include <vector>

namespace {

using balance_test::CMaker;
using balance_test::LetterBalance;

/// How a format writes what random documents are made of: tags without their angle brackets, "%" for a number.
struct Elements
{
    const char* root;
    std::vector<const char*> books;
    const char* chapter;
    const char* verse;
    std::vector<const char*> others;
};

class CBooksMaker : public CMaker
{
public:
    CBooksMaker(unsigned int seed, const Elements& elements) : CMaker(seed), m_elements(elements)
    {
        element(m_elements.root, [&] {
            for (const char* book : m_elements.books)
                element(book, [&] {
                    for (unsigned int chapter = 0; chapter < 3; ++chapter)
                        element(numbered(m_elements.chapter), [&] {
                            for (unsigned int i = 0; i < 20; ++i)
                                part(0);
                        });
                });
        });
    }

private:
    std::string numbered(std::string tag)
    {
        if (const std::size_t place = tag.find('%'); place != std::string::npos)
            tag.replace(place, 1, std::to_string(number(9)));
        return tag;
    }

    void part(unsigned int depth)
    {
        switch (number(depth < 4 ? 6 : 2)) {
        case 0:
        case 1:
            return words();
        case 2:
            mark("<!-- no text -->");
            return text(number(3) ? "" : "left \\nd Lord\\nd* \\q1 it\\Now ");
        case 3:
            return element(numbered(m_elements.verse), [&] { part(depth + 1); });
        default:
            return element(m_elements.others[number(static_cast<unsigned int>(m_elements.others.size()))],
                           [&] {
                               for (unsigned int i = number(3); i != 0; --i)
                                   part(depth + 1);
                           });
        }
    }

    template <typename Content>
    void element(const std::string& tag, Content&& content)
    {
        mark('<' + tag + '>');
        content();
        mark("</" + tag.substr(0, tag.find(' ')) + '>');
    }

    const Elements& m_elements;
};

class XmlBalance : public LetterBalance
{
protected:
    void expectBalanceOf(const Elements& elements) const
    {
        for (unsigned int seed = 0; seed < 40; ++seed)
            expectBalance("a.xml", CBooksMaker(seed, elements));
    }
};

TEST_F(XmlBalance, OfRandomBeblia)
{
    expectBalanceOf({"bible",
                     {"book number='1'", "book number='19'", "book number='67'"},
                     "chapter number='%'",
                     "verse number='%'",
                     {"note", "title", "br", "testament", "i", "any"}});
}

TEST_F(XmlBalance, OfRandomOpenSong)
{
    expectBalanceOf({"bible",
                     {"b n='Genesis'", "b n='Псалми'", "b n='PrMan'"},
                     "c n='%'",
                     "v n='%' t='%'",
                     {"note", "title", "br", "b", "c", "i", "any"}});
}

} // namespace
