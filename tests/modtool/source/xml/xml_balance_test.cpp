// XML with nested books, chapters and verses and random elements: every letter is in the module or counted by
// the report.

#include "balance_fixture.h"

#include <vector>

namespace {

using balance_test::CMaker;
using balance_test::LetterBalance;

/// The tags of a format for random documents, without angle brackets, "%" for a number. A book that ends with
/// '/' is an empty element, followed by its chapters.
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
            for (const std::string book : m_elements.books)
                if (book.ends_with('/')) {
                    mark('<' + book + '>');
                    chapters();
                } else {
                    element(book, [&] { chapters(); });
                }
        });
    }

private:
    void chapters()
    {
        for (unsigned int chapter = 0; chapter < 3; ++chapter)
            element(numbered(m_elements.chapter), [&] {
                for (unsigned int i = 0; i < 20; ++i)
                    part(0);
            });
    }

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

TEST_F(XmlBalance, OfRandomCes)
{
    expectBalanceOf(
        {"cesDoc",
         {"div type='book' id='b.GEN'", "div type='book' id='b.PSA'", "div type='book' id='b.MAN'"},
         "div type='chapter' id='b.GEN.%'",
         "seg type='verse' id='b.GEN.1.%'",
         {"note", "head", "lb", "p", "l", "seg", "div", "cesHeader", "any"}});
}

TEST_F(XmlBalance, OfRandomUsx)
{
    expectBalanceOf({"usx",
                     {"book code='GEN'/", "book code='PSA'/", "book code='MAN'/"},
                     "chapter number='%'",
                     "verse number='%'",
                     {"para style='p'",
                      "para style='q1'",
                      "para style='s1'",
                      "para style='d'",
                      "para style='mt1'",
                      "para style='ip'",
                      "para style='rem'",
                      "para style='toc1'",
                      "para style='zzz'",
                      "para",
                      "char style='w'",
                      "char style='nd'",
                      "char style='va'",
                      "char style='zz'",
                      "char style='fig'",
                      "note",
                      "figure",
                      "sidebar",
                      "periph",
                      "table",
                      "row",
                      "cell style='tc1'",
                      "optbreak",
                      "ms",
                      "ref",
                      "verse eid='a'",
                      "chapter eid='a'",
                      "any"}});
}

TEST_F(XmlBalance, OfRandomUsfx)
{
    expectBalanceOf({"usfx",
                     {"book id='GEN'", "book id='PSA'", "book id='MAN'"},
                     "c id='%'",
                     "v id='%'",
                     {"p",
                      "q level='1'",
                      "s",
                      "d",
                      "mt",
                      "p sfm='ip'",
                      "rem",
                      "h",
                      "toc level='1'",
                      "id",
                      "zzz",
                      "cs sfm='zz'",
                      "w",
                      "nd",
                      "va",
                      "fig",
                      "f",
                      "x",
                      "periph",
                      "table",
                      "tr",
                      "tc",
                      "optionalLineBreak",
                      "milestone",
                      "ref",
                      "ve",
                      "c",
                      "languageCode"}});
}

} // namespace
