#include "build_report.h"

#include "substitutes.h"
#include "ut_utils.h"

namespace Kedrin::ModTool {

namespace {

std::string line(const char* label, const std::string& content)
{
    return ut::format("%-14s", label) + content + '\n';
}

std::string occasions(const char* label, const Occasions& what, const char* singular, const char* plural)
{
    if (what.count == 0)
        return "";
    return line(label, counted(what.count, singular, plural) + ", first " + what.firstPlace);
}

std::string replacedLine(const ReplacedKind& kind)
{
    const std::string to = toUtf8(kind.replaced.to);
    return line("replaced", describeCharacter(kind.from) +
                                (to.empty() ? " removed, " : " by \"" + to + "\", ") +
                                counted(kind.replaced.count, "time", "times") + ", first " + kind.firstPlace);
}

std::string trimmedLine(const BuildReport& report)
{
    if (report.trimmedVerses + report.trimmedChapters + report.trimmedBooks == 0)
        return "";
    return line("left out", "without text at the end: " + counted(report.trimmedVerses, "verse", "verses") +
                                ", " + counted(report.trimmedChapters, "chapter", "chapters") + ", " +
                                counted(report.trimmedBooks, "book", "books"));
}

std::string numberingLines(const BuildReport& report)
{
    const DiffFigures& diff = report.diff;
    return line("numbering", report.versification + (report.versificationGuessed ? " (fits best)" : "")) +
           line("", ut::format("%u of %u verses keep their place both ways (%u without any record)",
                               diff.kept, diff.versesCount, diff.keptWithout)) +
           (diff.withoutPlace == 0 ? ""
                                   : line("", counted(diff.withoutPlace, "verse has", "verses have") +
                                                  " no place in the common numbering"));
}

} // namespace

std::string counted(std::uint64_t count, const char* singular, const char* plural)
{
    return std::to_string(count) + ' ' + (count == 1 ? singular : plural);
}

std::string describeCharacter(char32_t codePoint)
{
    return ut::format("U+%04X ", static_cast<unsigned int>(codePoint)) + characterName(codePoint);
}

std::string BuildReport::text() const
{
    std::string report =
        line("module", folder) + line("title", title) +
        line("holds", counted(booksCount, "book", "books") + ", " +
                          counted(chaptersCount, "chapter", "chapters") + ", " +
                          counted(versesCount, "verse", "verses")) +
        line("words", std::to_string(wordsCount) + " different of " + std::to_string(occurrences)) +
        numberingLines(*this);
    for (const OmittedBook& book : omittedBooks)
        report += line("left out", book.osis + ": " + counted(book.versesCount, "verse", "verses") +
                                       ", not in the common numbering");
    report += findings.text();
    report += trimmedLine(*this);
    report += occasions("without text", emptyVerses, "verse inside a chapter", "verses inside chapters");
    report += occasions("without text", emptyChapters, "chapter inside a book, kept as one verse",
                        "chapters inside books, each kept as one verse");
    for (const ReplacedKind& kind : replaced)
        report += replacedLine(kind);
    return report;
}

} // namespace Kedrin::ModTool
