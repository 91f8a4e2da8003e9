#include "bench_module.h"

#include "module_files.h"
#include "temp_folder.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <random>
#include <set>

namespace {

/// Words by rank, the most frequent first and the shortest.
std::vector<std::string> makeVocabulary(std::mt19937& random)
{
    static const std::string vowels = "aeiou";
    // so that they differ from the two words that are counted
    static const std::string consonants = "bcdfghjklmnprstvw";
    std::set<std::string> known;
    std::vector<std::string> words;
    while (words.size() + 2 < CBenchModule::wordCount) {
        std::string word;
        const std::size_t syllables = 1 + std::min<std::size_t>(words.size(), 1000) / 300 + random() % 2;
        for (std::size_t i = 0; i < syllables; ++i) {
            word += consonants[random() % consonants.size()];
            word += vowels[random() % vowels.size()];
        }
        if (random() % 2 == 0)
            word += consonants[random() % consonants.size()];
        if (known.insert(word).second)
            words.push_back(word);
    }
    return words;
}

/// Generates verse texts.
class VerseMaker
{
public:
    VerseMaker() : m_vocabulary(makeVocabulary(m_random)) {}

    std::string next()
    {
        const std::size_t wordCount = 10 + m_random() % 30;
        std::string verse = nextWord();
        verse[0] = static_cast<char>(verse[0] - 'a' + 'A');
        for (std::size_t i = 1; i < wordCount; ++i)
            verse += (m_random() % 9 == 0 ? ", " : " ") + nextWord();
        // every verse number once, in a shuffled order
        const std::size_t rank = m_verse++ * 7919 % CBenchModule::verseCount;
        if (rank < CBenchModule::commonHits)
            verse += std::string(" ") + CBenchModule::commonWord;
        if (rank < CBenchModule::rareHits)
            verse += std::string("; ") + CBenchModule::rareWord;
        return verse + ".";
    }

private:
    /// Every word at least once; between them words by rank, the first ones most often.
    std::string nextWord()
    {
        if (m_random() % 8 == 0 && m_inTurn < m_vocabulary.size())
            return m_vocabulary[m_inTurn++];
        const double chance = std::uniform_real_distribution<double>(0, 1)(m_random);
        const double rank = std::pow(static_cast<double>(m_vocabulary.size()), chance) - 1;
        return m_vocabulary[static_cast<std::size_t>(rank)];
    }

    std::mt19937 m_random{20240217};
    std::vector<std::string> m_vocabulary;
    std::size_t m_inTurn = 0;
    std::size_t m_verse = 0;
};

std::vector<test_support::Book> makeBooks()
{
    constexpr unsigned int bookCount = 66;
    constexpr unsigned int chaptersOfABook = 18;
    constexpr unsigned int versesOfAChapter = 26;
    VerseMaker maker;
    std::vector<test_support::Book> books;
    unsigned int versesLeft = CBenchModule::verseCount;
    for (unsigned int book = 0; book < bookCount; ++book) {
        books.push_back({book, "Book " + std::to_string(book + 1), {}});
        for (unsigned int chapter = 0; chapter < chaptersOfABook; ++chapter) {
            const bool isLong = book == CBenchModule::longChapterBook && chapter == 0;
            const bool isLast = book + 1 == bookCount && chapter + 1 == chaptersOfABook;
            const unsigned int verses = isLast   ? versesLeft
                                        : isLong ? CBenchModule::longChapterVerses
                                                 : versesOfAChapter;
            books.back().chapters.emplace_back();
            for (unsigned int verse = 0; verse < verses; ++verse)
                books.back().chapters.back().push_back(maker.next());
            versesLeft -= verses;
        }
    }
    return books;
}

} // namespace

const CBenchModule& CBenchModule::get()
{
    static const test_support::TempFolder folder;
    static const CBenchModule module(folder.path().string());
    return module;
}

CBenchModule::CBenchModule(const std::string& folder) : m_folder(folder)
{
    const std::vector<test_support::Book> books = makeBooks();
    test_support::makeModule("Bench", books).write(folder);
    std::ofstream out(lines(), std::ios::binary);
    for (const test_support::Book& book : books)
        for (const std::vector<std::string>& chapter : book.chapters)
            for (const std::string& verse : chapter)
                out << verse << '\n';
}
