// An independent program: it includes one header, links one library and Qt Core, and uses every public class
// by name. It creates a module, reads it, and exits with 0 if all results are correct.

#include "tolvo_bible.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace {

using namespace Kedrin::Tolvo;
using namespace std::string_literals;

class Workshop
{
public:
    Workshop()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "third-program-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("cannot make " + pattern);
        m_root = pattern;
        std::filesystem::create_directory(m_root / "module");
    }
    ~Workshop()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    std::string root() const { return m_root.string(); }
    std::string file(std::string_view name) const { return (m_root / "module" / name).string(); }
    void write(std::string_view name, std::string_view bytes) const
    {
        std::ofstream(file(name), std::ios::binary) << bytes;
    }

private:
    std::filesystem::path m_root;
};

void expect(bool holds, const char* what)
{
    if (!holds)
        throw std::runtime_error(what);
}

void makeModule(const Workshop& shop)
{
    shop.write("BibleTitles.txt", "1 0\r\nGenesis\r\nGenesis\r\nGen\r\n");
    shop.write("BibleStructure.csv", "1 2\r\n");
    shop.write("_Diff_.txt", "");
    shop.write("CompactText.bin", "\x05\x00light\x03\x00"
                                  "day"s);
    shop.write("CompactPoint.bin", "\x00\x00\x00\x00\x07\x00\x00\x00"s);
    shop.write("WordList.txt", "day\r\nlight\r\n");
    shop.write("Conc.bin", "\x01\x00\x02\x00\x01\x00\x01\x00"s);
    shop.write("ConcP.bin", "\x00\x00\x00\x00\x02\x00\x00\x00"s);
    shop.write("_Info_.txt", "Example\r\nEx\r\nE\r\n");
}

void useReaders(const Workshop& shop)
{
    const CTitles titles(shop.file("BibleTitles.txt").c_str());
    const ITitles& source = titles;
    expect(CRef(0, 0, 1).toString(&source) == "Gen 1:2", "CRef, ITitles, CTitles");
    const CBibleStructure structure(shop.file("BibleStructure.csv").c_str(), titles.booksCount());
    expect(structure.toNum(CRef(0, 0, 1)) == 1, "CBibleStructure");
    const CDiff diff(shop.file("_Diff_.txt").c_str());
    expect((diff.toGlobal(CRef(0, 0, 1)) + CRefDelta(0, 1)).verse() == 2, "CDiff, CRefDelta");
    CBibleText text(shop.file("CompactText.bin").c_str(), shop.file("CompactPoint.bin").c_str());
    expect(text[1] == "day", "CBibleText");
    const CWordList words(shop.file("WordList.txt").c_str(), shop.file("WordPoint.bin").c_str(), true);
    expect(words.indexOf("LIGHT") == 1 && caseInsensitiveComp("Day", "light"), "CWordList");
    CConc conc(shop.file("Conc.bin").c_str(), shop.file("ConcP.bin").c_str());
    std::vector<unsigned int> verseNums;
    conc.getVersesFor(1, verseNums);
    expect(verseNums == std::vector<unsigned int>{0}, "CConc");
    const CBibleInfo info(shop.file("_Info_.txt").c_str(), "none");
    expect(info.abbreveatedTitle() == "E", "CBibleInfo");
    ut::CFileVector<unsigned int> records(shop.file("ConcP.bin").c_str());
    expect(records.size() == 2 && records[1] == 2, "ut::CFileVector");
    expect(ut::format("%s-%u", ut::chomp("a\r\n").c_str(), 7u) == "a-7", "ut");
}

void useCatalogue(const Workshop& shop)
{
    const CBibleModules modules(shop.root());
    expect(modules.count() == 1 && modules.info(0)->fullTitle() == "Example", "CBibleModules");
    modules.ValidateBible(0);
    const std::unique_ptr<const CBible> bible(modules.loadBible(0));
    expect((*bible)[CRef(0, 0, 0, true)] == "light", "CBible");
    std::vector<CRef> hits;
    bible->search("IGH", false, false, hits);
    expect(hits.size() == 1 && hits[0].isGlobal() && hits[0].verse() == 0, "CBible::search");
    bible->searchVerses("day", true, false, hits);
    expect(hits.size() == 1 && hits[0].verse() == 1, "CBible::searchVerses");
}

} // namespace

int main()
{
    try {
        const Workshop shop;
        makeModule(shop);
        useReaders(shop);
        useCatalogue(shop);
        std::puts("every class answers");
        return 0;
    } catch (const std::exception& ex) {
        std::fprintf(stderr, "wrong: %s\n", ex.what());
        return 1;
    }
}
