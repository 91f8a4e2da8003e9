// The tool's output of a verse compared with the window's rich text.

#include "stored_markup.h"

#include <QGuiApplication>
#include <QTextDocument>

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <utility>

using namespace Kedrin::ModTool;

namespace {

/// The verse as shown in the chapter view, on one line.
std::string shown(const std::string& ascii)
{
    QTextDocument document;
    document.setHtml(QStringLiteral("<html><body>") + QString::fromLatin1(ascii.c_str()));
    QString text = document.toPlainText();
    text.replace(QChar::ObjectReplacementCharacter, QLatin1String());
    return text.simplified().toStdString();
}

std::string withoutBlanks(std::string text)
{
    std::erase(text, ' ');
    return text;
}

/// A verse with markup known to the view, each tag with its end tag.
std::string randomVerse(std::mt19937& random, int depth = 0)
{
    static constexpr const char* pieces[] = {
        "al",           "be ",   " ga",  "1",     "<br>",   "<br/>", "&eacute;",  "&#1073;",    "&#x2014;",
        "<!-- <b> -->", "<brr>", "&lt;", "&amp;", "&quot;", "& ",    "&nothing;", "&thetasym;", "&nbsp;"};
    static constexpr std::pair<const char*, const char*> tags[] = {{"<b>", "</b>"},
                                                                   {"<i x='>'>", "</i>"},
                                                                   {"<a href='x>y'>", "</a>"},
                                                                   {"<font face=\"a'>\">", "</font>"},
                                                                   {"<h2>", "</h2>"},
                                                                   {"<p>", "</p>"},
                                                                   {"<center>", "</center>"},
                                                                   {"<blockquote>", "</blockquote>"}};
    std::string verse;
    for (auto count = random() % 6; count > 0; --count) {
        const auto& [start, end] = tags[random() % std::size(tags)];
        if (depth < 3 && random() % 2 == 0)
            verse += start + randomVerse(random, depth + 1) + end;
        else
            verse += pieces[random() % std::size(pieces)];
    }
    return verse;
}

class ShownText : public testing::Test
{
protected:
    static void SetUpTestSuite() { qputenv("QT_QPA_PLATFORM", "offscreen"); }

private:
    int m_argc = 1;
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
    QGuiApplication m_application{m_argc, m_argv};
};

} // namespace

TEST_F(ShownText, IsWhatIsPrinted)
{
    for (const char* verse :
         {"al<h2>be</h2>ga", "<a href='x>y'>al</a> be", "caf&eacute;", "al<br>be", "al<p>be</p>ga",
          "al<b>be</b>ga", "<ul><li>al</li><li>be</li></ul>", "al<hr>be", "&lt;b&gt; &amp;amp;",
          "&#1073;&#x431; &thetasym;&hellip;", "& al &nothing; &;", "al<!-- be <b> -->ga", "al<!--->be-->ga",
          "<brr>al</brr>", "<table><tr><td>al</td><td>be</td></tr></table>", "<b it's>al</b>",
          "<font face=\"a'>\">al"})
        EXPECT_EQ(plainText(verse), shown(verse)) << verse;
}

/// Ignores spaces: next to blocks in other tags, or empty blocks, the view splits or joins words by its own
/// rules; the tool writes a space at every block.
TEST_F(ShownText, OfRandomVersesHasTheCharactersPrinted)
{
    std::mt19937 random(1);
    for (int i = 0; i < 5000; ++i) {
        const std::string verse = randomVerse(random);
        EXPECT_EQ(withoutBlanks(plainText(verse)), withoutBlanks(shown(verse))) << verse;
    }
}
