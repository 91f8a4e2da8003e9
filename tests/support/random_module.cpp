#include "random_module.h"

#include <algorithm>
#include <iterator>

namespace test_support {

namespace {

const std::vector<std::string> words = {
    "Бог",   "в",    "началото", "Бог рече", "земя",  "светлина", "ден", "Ден", "7",   "12",
    "и",     "я",    "Ё-ё",      "бог",      "щъъщ",  "words",    "I",   "-",   "дух", "милост",
    "псалм", "село", "сто",      "ЦАР",      "царят", "цар",      "?!",  "го",  "Го",  "над"};

const std::vector<std::string> markup = {"<i>дух</i>",
                                         "<sup>1</sup>",
                                         "<a name=\"x\" href=\"y\">бележка</a>",
                                         "<a name=\"gotoChapter\" href=\"1\">",
                                         "<a name=\"gotoChapter\" href=\"4294967295\">x</a>",
                                         "</p><p>",
                                         "<font color=\"red\">",
                                         "</font></a>",
                                         "<img src=\"file:///etc/passwd\">",
                                         "<table><tr><td>",
                                         "</table></td>",
                                         "<ul><li><ul>",
                                         "<pre>\n\t\r\n</pre>",
                                         "<style>p{font-size:900pt}</style>",
                                         "<span style=\"font-size:0pt\">",
                                         "<h1 align=center>",
                                         "<!-- ",
                                         "-->",
                                         "&#0;&#x110000;&amp;&nbsp;&unknown;",
                                         "<",
                                         "<br/><hr width=9999999>",
                                         "<p style=\"margin:-9999px\">",
                                         "<body><html></body>"};

const std::vector<std::string> extremeNumbers = {"0",          "-1",         "-2147483649",
                                                 "2147483647", "2147483648", "4294967295",
                                                 "4294967296", "65535",      "99999999999999999999999",
                                                 "x",          "+",          "1.5",
                                                 "0x10",       "",           "\n\n"};

std::string randomVerse(bool marked, Random& random)
{
    std::string verse;
    if (random.percent(4))
        return verse;
    for (unsigned int left = 1 + random.below(8); left > 0; --left)
        verse += (verse.empty() ? "" : " ") +
                 (marked && random.percent(30) ? random.oneOf(markup) : random.oneOf(words));
    return verse;
}

Book randomBook(unsigned int globalID, bool marked, Random& random)
{
    Book book{globalID, random.oneOf(words) + " " + std::to_string(globalID), {}};
    const unsigned int chapterCount = 1 + random.below(4);
    for (unsigned int chapter = 0; chapter < chapterCount; ++chapter) {
        std::vector<std::string> verses;
        const unsigned int verseCount = random.percent(3) && chapter > 0 ? 0 : 1 + random.below(9);
        for (unsigned int verse = 0; verse < verseCount; ++verse)
            verses.push_back(randomVerse(marked, random));
        book.chapters.push_back(verses);
    }
    return book;
}

std::string randomBytes(Random& random, std::size_t count)
{
    std::string bytes;
    while (bytes.size() < count)
        bytes.push_back(static_cast<char>(random.below(256)));
    return bytes;
}

void changeBytes(std::string& bytes, Random& random)
{
    for (unsigned int left = 1 + random.below(8); left > 0 && !bytes.empty(); --left) {
        char& byte = bytes[random.below(bytes.size())];
        byte = random.percent(50)
                   ? static_cast<char>(random.below(256))
                   : static_cast<char>(static_cast<unsigned char>(byte) ^ (1u << random.below(8)));
    }
}

void extend(std::string& bytes, Random& random)
{
    switch (random.below(3)) {
    case 0:
        bytes += randomBytes(random, 1 + random.below(40));
        break;
    case 1:
        bytes += bytes;
        break;
    default:
        bytes.insert(random.below(bytes.size() + 1), randomBytes(random, 1 + random.below(8)));
    }
}

void replaceRecord(std::string& bytes, Random& random)
{
    const std::size_t width = random.percent(50) ? 2 : 4;
    if (bytes.size() < width)
        return;
    static const std::vector<std::string> records = {
        std::string(4, '\xFF'), std::string(4, '\0'), std::string("\xFF\xFF\xFF\x7F", 4),
        std::string("\0\0\0\x80", 4), std::string("\xFE\xFF\xFF\xFF", 4)};
    const std::size_t place = random.below(bytes.size() / width) * width;
    bytes.replace(place, width, random.oneOf(records).substr(4 - width));
}

void replaceNumber(std::string& text, Random& random)
{
    const std::string digits = "0123456789";
    const std::size_t start = text.find_first_of(digits, random.below(text.size() + 1));
    if (start == std::string::npos)
        return;
    const std::size_t end = std::min(text.find_first_not_of(digits, start), text.size());
    text.replace(start, end - start, random.oneOf(extremeNumbers));
}

/// Overwrites bytes, so that the lengths of the verses stay.
void writeMarkup(std::string& text, Random& random)
{
    for (unsigned int left = 1 + random.below(4); left > 0; --left) {
        const std::string piece = cp1251(random.oneOf(markup));
        if (piece.size() < text.size())
            text.replace(random.below(text.size() - piece.size()), piece.size(), piece);
    }
}

/// Removes a line, repeats it, or replaces it with a zero.
void replaceLine(std::string& text, Random& random)
{
    if (text.empty())
        return;
    const std::size_t start = text.find('\n', random.below(text.size()));
    const std::size_t end = start == std::string::npos ? start : text.find('\n', start + 1);
    if (end == std::string::npos)
        return;
    const std::string line = text.substr(start, end - start);
    const std::vector<std::string> replacements = {std::string(), line + line, "\n0\r"};
    text.replace(start, line.size(), random.oneOf(replacements));
}

void damageFile(std::string& bytes, const std::string& name, Random& random)
{
    const bool binary = name.ends_with(".bin");
    switch (random.below(6)) {
    case 0:
        return changeBytes(bytes, random);
    case 1:
        return bytes.resize(bytes.size() - random.below(bytes.size() + 1));
    case 2:
        return extend(bytes, random);
    case 3:
        return bytes.clear();
    case 4:
        return binary ? replaceRecord(bytes, random) : replaceNumber(bytes, random);
    default:
        return binary ? writeMarkup(bytes, random) : replaceLine(bytes, random);
    }
}

} // namespace

ModuleFiles randomModule(const std::string& title, Random& random)
{
    const bool marked = random.percent(50);
    const bool globalIsLocal = random.percent(50);
    const unsigned int bookCount = 1 + random.below(4);
    unsigned int globalID = globalIsLocal ? 0 : random.below(20);
    std::vector<Book> books;
    for (unsigned int i = 0; i < bookCount; ++i) {
        books.push_back(randomBook(globalID, marked, random));
        globalID += globalIsLocal ? 1 : 1 + random.below(15);
    }
    books.front().chapters.front().front() = "В началото Бог";
    if (!globalIsLocal && random.percent(50))
        std::reverse(books.begin(), books.end());
    std::string diff;
    for (unsigned int left = random.percent(40) ? 1 + random.below(3) : 0; left > 0; --left)
        diff += std::to_string(1 + random.below(4)) + " 2 " + std::to_string(1 + random.below(5)) + " 0 " +
                std::to_string(static_cast<int>(random.below(5)) - 2) + "\r\n";
    return makeModule(title, books, diff);
}

void damage(ModuleFiles& files, const ModuleFiles& other, Random& random)
{
    for (unsigned int left = 1 + random.below(random.percent(50) ? 1 : 4); left > 0; --left) {
        if (files.bytes.empty())
            return;
        const auto at = [&] { return std::next(files.bytes.begin(), random.below(files.bytes.size())); };
        const auto file = at();
        switch (random.below(12)) {
        case 0:
            files.bytes.erase(file);
            break;
        case 1:
            file->second = other.bytes.at(file->first);
            break;
        case 2:
            std::swap(file->second, at()->second);
            break;
        case 3:
            writeMarkup(files.bytes["CompactText.bin"], random);
            break;
        default:
            damageFile(file->second, file->first, random);
        }
    }
}

} // namespace test_support
