#include "build_report.h"

#include "errors.h"
#include "messages.h"
#include "substitutes.h"
#include "text_columns.h"
#include "ut_utils.h"

namespace Kedrin::ModTool {

namespace {

/// @param label  English, translated here; "" for none
std::string line(const char* label, const std::string& content)
{
    return padded(*label ? tr(label) : "", labelColumns) + content + '\n';
}

std::string occasions(const char* label, const Tally& what, const char* singular, const char* plural)
{
    if (what.count == 0)
        return "";
    return line(label, message("%s, first at %s", counted(what.count, singular, plural), what.firstPosition));
}

std::string replacedLine(const ReplacedKind& kind)
{
    const std::string to = toUtf8(kind.replaced.to);
    const std::string from = describeCharacter(kind.from);
    const std::string times = counted(kind.replaced.count, "time", "times");
    return line(translatable("replaced"),
                to.empty() ? message("%s removed, %s, first at %s", from, times, kind.firstPosition)
                           : message("%s with \"%s\", %s, first at %s", from, to, times, kind.firstPosition));
}

std::string trimmedLine(const BuildReport& report)
{
    if (report.trimmedVerses + report.trimmedChapters + report.trimmedBooks == 0)
        return "";
    return line(translatable("left out"), message("without text at the end: %s, %s, %s",
                                                  counted(report.trimmedVerses, "verse", "verses"),
                                                  counted(report.trimmedChapters, "chapter", "chapters"),
                                                  counted(report.trimmedBooks, "book", "books")));
}

/// What a USFM file without verses contains, by its code; "" if the code does not tell.
std::string matterOf(std::string_view code)
{
    static constexpr std::pair<std::string_view, const char*> matters[] = {
        {"FRT", translatable("front matter")},   {"INT", translatable("introduction")},
        {"BAK", translatable("back matter")},    {"CNC", translatable("concordance")},
        {"GLO", translatable("glossary")},       {"TDX", translatable("index of topics")},
        {"NDX", translatable("index of names")}, {"OTH", translatable("other matter")}};
    for (const auto& [known, name] : matters)
        if (code == known)
            return tr(name);
    return "";
}

std::string omittedLine(const OmittedBook& book)
{
    if (book.versesCount != 0)
        return line(translatable("left out"), message("%s: %s, not in the global numbering", book.osis,
                                                      counted(book.versesCount, "verse", "verses")));
    const std::string matter = matterOf(book.osis);
    return line(translatable("left out"), matter.empty()
                                              ? message("%s: a book without verses", book.osis)
                                              : message("%s: %s, without verses", book.osis, matter));
}

std::string numberingLines(const BuildReport& report)
{
    const DiffFigures& diff = report.diff;
    return line(translatable("numbering"), report.versificationGuessed
                                               ? message("%s (best match)", report.versification)
                                               : report.versification) +
           line("", message("%s of %s verses map correctly both ways (%s without any record)",
                            diff.roundTrips, diff.versesCount, diff.roundTripsWithoutRecords)) +
           (diff.withoutPosition == 0
                ? ""
                : line("", counted(diff.withoutPosition, "verse has no position in the global numbering",
                                   "verses have no position in the global numbering")));
}

} // namespace

std::string BuildReport::text() const
{
    std::string report;
    for (const OmittedBook& book : omittedBooks)
        if (book.versesCount != 0)
            report += omittedLine(book);
    if (!folder.empty())
        report += line(translatable("module"), folder);
    report += line(translatable("title"), title) +
              line(translatable("contains"), counted(booksCount, "book", "books") + ", " +
                                                 counted(chaptersCount, "chapter", "chapters") + ", " +
                                                 counted(versesCount, "verse", "verses")) +
              line(translatable("words"), message("%s distinct, %s in total", wordsCount, occurrences)) +
              numberingLines(*this);
    for (const OmittedBook& book : omittedBooks)
        if (book.versesCount == 0)
            report += omittedLine(book);
    report += findings.text();
    report += trimmedLine(*this);
    report += occasions(translatable("without text"), emptyVerses, "verse inside a chapter",
                        "verses inside chapters");
    report +=
        occasions(translatable("without text"), emptyChapters, "chapter inside a book, kept as one verse",
                  "chapters inside books, each kept as one verse");
    report += occasions(translatable("left out"), longWords,
                        "word of more than 39 bytes from the word list; its verse is kept",
                        "words of more than 39 bytes from the word list; their verses are kept");
    for (const ReplacedKind& kind : replaced)
        report += replacedLine(kind);
    return printable(report);
}

std::int64_t BuildReport::lettersLeftOut() const
{
    std::uint64_t sum = findings.letters();
    for (const OmittedBook& book : omittedBooks)
        sum += book.letters;
    return static_cast<std::int64_t>(sum);
}

void BuildReport::checkLetters() const
{
    if (!letters.source)
        return;
    const auto given = static_cast<std::int64_t>(*letters.source + letters.attributes) + letters.change;
    const std::int64_t found = static_cast<std::int64_t>(letters.module) + lettersLeftOut();
    if (given != found)
        throw CBuildError(
            message("the source has %s letters and digits, but %s are accounted for; this is a bug in "
                    "kedrin-module, please report it",
                    given, found));
}

std::string BuildReport::letterAccount() const
{
    if (!letters.source)
        return "";
    const auto part = [](const std::string& text) { return line("", text); };
    std::string account =
        line(translatable("letters"), message("%s letters and digits in the source", *letters.source));
    if (letters.attributes != 0)
        account += part(message("%s more in its attributes, taken as text", letters.attributes));
    if (letters.change != 0)
        account += part(message("%s more or fewer because of replaced characters", letters.change));
    account += part(message("%s in the verses of the module", letters.module));
    for (const std::string& leftOut : findings.letterParts())
        account += part(leftOut);
    for (const OmittedBook& book : omittedBooks)
        if (book.letters != 0)
            account += part(message("%s in %s, not in the global numbering", book.letters, book.osis));
    return account;
}

} // namespace Kedrin::ModTool
