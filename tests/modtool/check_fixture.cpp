#include "check_fixture.h"

namespace check_test {

using namespace Kedrin::ModTool;
using test_support::cp1251;
using test_support::smallModule;

std::string littleEndian(std::size_t value, std::size_t byteCount)
{
    std::string bytes;
    for (std::size_t i = 0; i < byteCount; ++i)
        bytes.push_back(static_cast<char>(value >> (8 * i)));
    return bytes;
}

ModuleFiles withVerses(const std::vector<std::string>& utf8Verses)
{
    ModuleFiles files = smallModule();
    std::string text, points;
    for (const std::string& utf8 : utf8Verses) {
        const std::string verse = cp1251(utf8);
        points += littleEndian(text.size(), 4);
        text += littleEndian(verse.size(), 2) + verse;
    }
    files.bytes["CompactText.bin"] = text;
    files.bytes["CompactPoint.bin"] = points;
    return files;
}

ModuleFiles withFirstVerse(const std::string& utf8Verse)
{
    return withVerses({utf8Verse, "земя", "рече Бог", ""});
}

ModuleFiles withWords(const std::vector<Word>& words)
{
    ModuleFiles files = smallModule();
    std::string list, points, conc, concPoints;
    for (const Word& word : words) {
        points += littleEndian(list.size(), 4);
        list += word.bytes + "\r\n";
        concPoints += littleEndian(conc.size() / 2, 4);
        conc += littleEndian(word.verses.size(), 2);
        for (const unsigned int verse : word.verses)
            conc += littleEndian(verse, 2);
    }
    files.bytes["WordList.txt"] = list;
    files.bytes["WordPoint.bin"] = points;
    files.bytes["Conc.bin"] = conc;
    files.bytes["ConcP.bin"] = concPoints;
    return files;
}

ModuleFiles withFile(const std::string& name, const std::string& bytes)
{
    ModuleFiles files = smallModule();
    files.bytes[name] = bytes;
    return files;
}

std::vector<std::string> lines(const CFindings& findings)
{
    std::vector<std::string> all;
    for (const auto& [check, finding] : findings.all()) {
        std::string line = std::string(checkOf(check).id) + " (" + std::to_string(finding.count) + ")";
        for (const std::string& place : finding.places)
            line += (&place == &finding.places.front() ? ": " : "; ") + place;
        all.push_back(line);
    }
    return all;
}

std::vector<std::string> findingsOf(const ModuleFiles& files)
{
    const test_support::TempFolder folder;
    files.write(folder.path());
    return lines(checkModule(folder.path().string(), 5).findings);
}

} // namespace check_test
