#include "varied_text.h"

#include <algorithm>
#include <iconv.h>

namespace varied_test {

namespace {

constexpr Book books[] = {{"Gen", "GEN", "Genesis", "Битие", 1, 10, false},
                          {"Exod", "EXO", "Exodus", "Изход", 2, 20, false},
                          {"Ruth", "RUT", "Ruth", "Рут", 8, 80, false},
                          {"Ps", "PSA", "Psalms", "Псалми", 19, 230, false},
                          {"Isa", "ISA", "Isaiah", "Исая", 23, 290, false},
                          {"Obad", "OBA", "Obadiah", "Авдий", 31, 380, true},
                          {"Mal", "MAL", "Malachi", "Малахия", 39, 460, false},
                          {"Matt", "MAT", "Matthew", "Матей", 40, 470, false},
                          {"John", "JHN", "John", "Йоан", 43, 500, false},
                          {"1Cor", "1CO", "1 Corinthians", "1 Коринтяни", 46, 530, false},
                          {"Jude", "JUD", "Jude", "Юда", 65, 720, true},
                          {"Rev", "REV", "Revelation", "Откровение", 66, 730, false}};

std::string randomWord(CRandom& random)
{
    static constexpr const char* letters[] = {"а", "б", "в", "г", "Д", "е", "ж", "з", "и", "й", "щ", "ъ",
                                              "ь", "ю", "я", "Я", "a", "b", "e", "i", "o", "s", "T", "ѝ"};
    static constexpr const char* words[] = {"Бог", "рече", "Lord", "и", "в", "not", "null", "true", "yes"};
    if (random.oneIn(3))
        return random.oneOf(words);
    std::string word;
    for (unsigned int i = 1 + random.number(8); i > 0; --i)
        word += random.oneOf(letters);
    return word;
}

/// Words, signs that some format gives a meaning to, and numbers.
std::string randomWords(CRandom& random)
{
    static constexpr const char* signs[] = {" < ", " & ", " > ", "; ",  ", ", ": ",  " - ", " — ",
                                            "' ",  "\" ", "! ",  " # ", "? ", " = ", " „",  "“ "};
    static constexpr const char* numbers[] = {"3", "144000", "1:2", "2.", "007"};
    std::string text = randomWord(random);
    for (unsigned int i = random.number(12); i > 0; --i) {
        text += random.oneIn(4) ? random.oneOf(signs) : " ";
        text += random.oneIn(12) ? random.oneOf(numbers) : randomWord(random);
    }
    return text + (random.oneIn(2) ? "." : "");
}

} // namespace

Text randomText(CRandom& random)
{
    Text text;
    for (const Book& book : books) {
        if (!random.oneIn(4) && !(text.empty() && &book + 1 == std::end(books)))
            continue;
        unsigned int chapter = 1 + (book.hasOneChapter ? 0 : random.number(3));
        for (unsigned int chapters = book.hasOneChapter ? 1 : 1 + random.number(3); chapters > 0;
             --chapters) {
            unsigned int verse = 1 + random.number(2);
            for (unsigned int verses = 1 + random.number(5); verses > 0; --verses) {
                text.push_back({&book, chapter, verse, randomWords(random)});
                verse += 1 + (random.oneIn(5) ? random.number(4) : 0);
            }
            chapter += 1 + (random.oneIn(3) ? random.number(4) : 0);
        }
    }
    return text;
}

std::string linesOf(const Text& text)
{
    std::string lines;
    for (const Verse& verse : text)
        lines += std::string(verse.book->osis) + ' ' + std::to_string(verse.chapter) + ':' +
                 std::to_string(verse.verse) + ' ' + verse.text + '\n';
    return lines;
}

std::string anyNameOf(const Book& book, CRandom& random)
{
    const char* const names[] = {book.osis, book.english, book.bulgarian};
    return random.oneOf(names);
}

std::string withBlanks(const std::string& text, std::string_view blanks, CRandom& random)
{
    std::string varied;
    for (const char c : text) {
        varied += c;
        if (c == ' ' && random.oneIn(8)) {
            varied.pop_back();
            for (unsigned int i = 1 + random.number(3); i > 0; --i)
                varied += blanks[random.number(blanks.size())];
        }
    }
    return varied;
}

std::string withLineEnds(const std::string& text, bool mayBeCr, CRandom& random)
{
    static constexpr const char* ends[] = {"\n", "\r\n", "\r"};
    const std::string_view end = ends[random.number(mayBeCr ? 3 : 2)];
    std::string varied;
    for (const char c : text)
        c == '\n' ? varied += end : varied += c;
    return varied;
}

std::string encoded(const std::string& utf8, const char* encoding)
{
    const iconv_t converter = ::iconv_open(encoding, "UTF-8");
    std::string in = utf8, out(4 * utf8.size() + 4, '\0');
    char* from = in.data();
    char* to = out.data();
    std::size_t fromLeft = in.size(), toLeft = out.size();
    const bool isComplete = ::iconv(converter, &from, &fromLeft, &to, &toLeft) == 0 && fromLeft == 0;
    ::iconv_close(converter);
    out.resize(isComplete ? out.size() - toLeft : 0);
    return out;
}

std::string withByteOrderMark(const std::string& utf8, CRandom& random)
{
    switch (random.number(6)) {
    case 0:
        return "\xEF\xBB\xBF" + utf8;
    case 1:
        return encoded("\uFEFF" + utf8, "UTF-16LE");
    case 2:
        return encoded("\uFEFF" + utf8, "UTF-16BE");
    default:
        return utf8;
    }
}

} // namespace varied_test
