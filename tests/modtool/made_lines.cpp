#include "made_lines.h"

#include <versekey.h>

#include <algorithm>
#include <sstream>
#include <string_view>

namespace build_test {

namespace {

constexpr const char* smallLetters[] = {"а", "б", "ц", "д", "е", "ф", "г", "х", "и", "й", "к", "л", "м",
                                        "н", "о", "п", "я", "р", "с", "т", "у", "в", "ш", "ж", "ъ", "з"};
constexpr const char* capitals[] = {"А", "Б", "Ц", "Д", "Е", "Ф", "Г", "Х", "И", "Й", "К", "Л", "М",
                                    "Н", "О", "П", "Я", "Р", "С", "Т", "У", "В", "Ш", "Ж", "Ъ", "З"};

std::string inCyrillic(std::string_view text)
{
    std::string cyrillic;
    for (const char c : text) {
        if (c >= 'a' && c <= 'z')
            cyrillic += smallLetters[c - 'a'];
        else if (c >= 'A' && c <= 'Z')
            cyrillic += capitals[c - 'A'];
        else if ((c == ' ' || c == '\n') && !cyrillic.empty() && !cyrillic.ends_with(' '))
            cyrillic += ' ';
        else if (std::string_view(".,;:?!-").find(c) != std::string_view::npos)
            cyrillic += c;
    }
    return cyrillic.substr(0, cyrillic.find_last_not_of(' ') + 1);
}

std::string line(const std::string& book, unsigned int chapter, unsigned int verse, const std::string& text)
{
    return book + '\t' + std::to_string(chapter) + '\t' + std::to_string(verse) + '\t' + text + '\n';
}

} // namespace

std::string cyrillicLines(const std::string& installed, const std::vector<std::string>& books)
{
    std::string lines;
    for (const MarkedBook& book : installedBible(installed)) {
        if (!books.empty() && std::find(books.begin(), books.end(), book.osis) == books.end())
            continue;
        for (const MarkedVerse& verse : book.verses) {
            std::string text;
            for (const Piece& piece : verse.pieces)
                if (piece.kind == Piece::Kind::text)
                    text += piece.text;
            lines += line(book.osis, verse.chapter, verse.verse, inCyrillic(text));
        }
    }
    return lines;
}

std::string synodalLines()
{
    sword::VerseKey key;
    key.setVersificationSystem("Synodal");
    key.setIntros(false);
    std::string lines;
    for (key.setPosition(sword::TOP); !key.popError(); key.increment(1)) {
        const std::string book = key.getOSISBookName();
        const auto chapter = static_cast<unsigned int>(key.getChapter());
        const auto verse = static_cast<unsigned int>(key.getVerse());
        lines += line(book, chapter, verse,
                      inCyrillic(book) + ", " + std::to_string(chapter) + ", " + std::to_string(verse));
    }
    return lines;
}

std::string notesFor(const std::string& lines)
{
    std::istringstream all(lines);
    std::string notes, verseLine;
    for (unsigned int number = 0; std::getline(all, verseLine); ++number)
        if (number % 50 == 0)
            notes += verseLine.substr(0, verseLine.rfind('\t') + 1) + "или друго\n";
    return notes;
}

} // namespace build_test
