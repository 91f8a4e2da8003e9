#include "module_files.h"

#include "cp1251.h"
#include "ut_utils.h"

#include <fstream>
#include <set>

namespace test_support {

namespace {

using namespace std::string_literals;

std::string littleEndian(std::size_t value, std::size_t byteCount)
{
    std::string bytes;
    for (std::size_t i = 0; i < byteCount; ++i)
        bytes.push_back(static_cast<char>(value >> (8 * i)));
    return bytes;
}

struct IgnoringCase
{
    bool operator()(const std::string& a, const std::string& b) const
    {
        return ut::cyr_stricmp(a.c_str(), b.c_str()) < 0;
    }
};

bool isWordByte(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           byte >= 0xC0 || byte == 0xA8 || byte == 0xB8;
}

/// Collects texts verse by verse and creates the six files that depend on them.
class TextFiles
{
public:
    void addVerse(const std::string& text)
    {
        m_point += littleEndian(m_text.size(), 4);
        m_text += littleEndian(text.size(), 2) + text;
        ++m_verseCount;
        std::string word;
        for (const char c : text + " ") {
            if (isWordByte(c)) {
                word.push_back(c);
            } else if (!word.empty()) {
                m_verses[word].insert(m_verseCount);
                word.clear();
            }
        }
    }

    void storeInto(ModuleFiles& files) const
    {
        std::string words, wordPoint, conc, concPoint;
        for (const auto& [word, verses] : m_verses) {
            wordPoint += littleEndian(words.size(), 4);
            words += word + "\r\n";
            concPoint += littleEndian(conc.size() / 2, 4);
            conc += littleEndian(verses.size(), 2);
            for (const std::size_t verse : verses)
                conc += littleEndian(verse, 2);
        }
        files.bytes["CompactText.bin"] = m_text;
        files.bytes["CompactPoint.bin"] = m_point;
        files.bytes["WordList.txt"] = words;
        files.bytes["WordPoint.bin"] = wordPoint;
        files.bytes["Conc.bin"] = conc;
        files.bytes["ConcP.bin"] = concPoint;
    }

private:
    std::string m_text, m_point;
    std::size_t m_verseCount = 0;
    std::map<std::string, std::set<std::size_t>, IgnoringCase> m_verses; ///< word to verse numbers from 1
};

} // namespace

std::string cp1251(std::string_view utf8)
{
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const int more = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        char32_t point = more == 0 ? lead : lead & (0x3Fu >> more);
        for (int k = 0; k < more; ++k)
            point = point << 6 | (static_cast<unsigned char>(utf8[++i]) & 0x3Fu);
        ++i;
        bytes.push_back(ut::to_cp1251(point).value_or('?'));
    }
    return bytes;
}

void ModuleFiles::write(const std::filesystem::path& folder) const
{
    std::filesystem::create_directories(folder);
    for (const auto& [name, content] : bytes) {
        std::ofstream out(folder / name, std::ios::binary | std::ios::trunc);
        out.write(content.data(), static_cast<std::streamsize>(content.size()));
    }
}

ModuleFiles smallModule()
{
    ModuleFiles files;
    files.bytes["BibleTitles.txt"] = cp1251("2 0 1\r\n"
                                            "Първа книга Моисеева - Битие\r\nВтора книга Моисеева - Изход\r\n"
                                            "Битие\r\nИзход\r\nБит\r\nИзх\r\n");
    files.bytes["BibleStructure.csv"] = "2 2 1\r\n1 1\r\n";
    files.bytes["_Diff_.txt"] = "";
    // verse 0 "Бог рече", verse 1 "земя", verse 2 "рече Бог", verse 3 "" at offsets 0, 10, 16, 26
    files.bytes["CompactText.bin"] = "\x08\x00\xC1\xEE\xE3\x20\xF0\xE5\xF7\xE5"
                                     "\x04\x00\xE7\xE5\xEC\xFF"
                                     "\x08\x00\xF0\xE5\xF7\xE5\x20\xC1\xEE\xE3"
                                     "\x00\x00"s;
    files.bytes["CompactPoint.bin"] = "\x00\x00\x00\x00\x0A\x00\x00\x00\x10\x00\x00\x00\x1A\x00\x00\x00"s;
    files.bytes["WordList.txt"] = "\xC1\xEE\xE3\r\n\xE7\xE5\xEC\xFF\r\n\xF0\xE5\xF7\xE5\r\n";
    files.bytes["WordPoint.bin"] = "\x00\x00\x00\x00\x05\x00\x00\x00\x0B\x00\x00\x00"s;
    files.bytes["Conc.bin"] = "\x02\x00\x01\x00\x03\x00\x01\x00\x02\x00\x02\x00\x01\x00\x03\x00"s;
    files.bytes["ConcP.bin"] = "\x00\x00\x00\x00\x03\x00\x00\x00\x05\x00\x00\x00"s;
    files.bytes["_Info_.txt"] = cp1251("Малък превод\r\nМалък\r\nМП\r\nСвободен текст\r\n");
    return files;
}

ModuleFiles makeModule(const std::string& title, const std::vector<Book>& books, const std::string& diff)
{
    ModuleFiles files;
    TextFiles texts;
    std::string globalIDs = std::to_string(books.size());
    std::string titles, abbreviations, structure;
    for (const Book& book : books) {
        globalIDs += " " + std::to_string(book.globalID);
        titles += cp1251(book.title) + "\r\n";
        abbreviations += cp1251(book.title).substr(0, 3) + "\r\n";
        structure += std::to_string(book.chapters.size());
        for (const std::vector<std::string>& verses : book.chapters) {
            structure += " " + std::to_string(verses.size());
            for (const std::string& verse : verses)
                texts.addVerse(cp1251(verse));
        }
        structure += "\r\n";
    }
    files.bytes["BibleTitles.txt"] = globalIDs + "\r\n" + titles + titles + abbreviations;
    files.bytes["BibleStructure.csv"] = structure;
    files.bytes["_Diff_.txt"] = diff;
    files.bytes["_Info_.txt"] = cp1251(title + "\r\n" + title + "\r\n" + title + "\r\n");
    texts.storeInto(files);
    return files;
}

Book plainBook(unsigned int globalID, const std::string& title, const std::vector<unsigned int>& verseCounts)
{
    Book book{globalID, title, {}};
    for (std::size_t chapter = 0; chapter < verseCounts.size(); ++chapter) {
        book.chapters.emplace_back();
        for (unsigned int verse = 0; verse < verseCounts[chapter]; ++verse)
            book.chapters.back().push_back(title + " " + std::to_string(chapter + 1) + ":" +
                                           std::to_string(verse + 1));
    }
    return book;
}

} // namespace test_support
