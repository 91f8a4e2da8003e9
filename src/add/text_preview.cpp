#include "text_preview.h"

#include "add_module.h"
#include "build.h"
#include "messages.h"
#include "module_format.h"
#include "prepare.h"
#include "shown_text.h"
#include "text_encoder.h"

#include <algorithm>

namespace Kedrin::Add {

using namespace ModTool;

namespace {

constexpr qsizetype maxSampleCharacters = 240;

QString sampleOf(const SourceBible& bible, const SourceVerse& verse)
{
    return fromUtf8(bible.positionOf(verse)) + QStringLiteral("  ") +
           shortLine(bible.textOf(verse), maxSampleCharacters);
}

/// The first verse, one in the middle and the last.
QStringList samplesOf(const SourceBible& bible)
{
    QStringList samples;
    if (bible.verses.empty())
        return samples;
    const std::size_t last = bible.verses.size() - 1;
    for (const std::size_t index : {std::size_t{0}, last / 2, last})
        samples.append(sampleOf(bible, bible.verses[index]));
    samples.removeDuplicates();
    return samples;
}

/// A title in one line that fits into a module.
std::string fittingTitle(const std::string& given)
{
    QString title = fromUtf8(given).simplified().left(static_cast<qsizetype>(maxLineBytes));
    while (encodedTitle(toUtf8(title)).size() > maxLineBytes)
        title.chop(1);
    return toUtf8(title);
}

QString listed(const std::vector<std::string>& texts)
{
    QStringList list;
    for (const std::string& text : texts)
        list.append(fromUtf8(text));
    return list.join(QStringLiteral(", "));
}

QString booksLeftOut(const BuildReport& report)
{
    constexpr std::size_t maxNamed = 20;
    std::vector<std::string> books;
    for (const OmittedBook& book : report.omittedBooks)
        if (books.size() < maxNamed)
            books.push_back(book.osis);
    const std::string all = counted(report.omittedBooks.size(), "book that Kedrin does not know is left out",
                                    "books that Kedrin does not know are left out");
    return fromUtf8(all) + QStringLiteral(": ") + listed(books);
}

QString replacements(const BuildReport& report)
{
    std::uint64_t times = 0;
    for (const ReplacedKind& kind : report.replaced)
        times += kind.replaced.count;
    return fromUtf8(counted(times, "character that Kedrin cannot store is replaced or removed",
                            "characters that Kedrin cannot store are replaced or removed"));
}

void read(const TextSource& source, const ISword& sword, IProgress& progress, TextPreview& preview)
{
    if (!source.repository) {
        preview.bible = readSource(source.text, {}, sword, progress);
        return;
    }
    preview.fetched = sword.repositories()->fetch(*source.repository, source.text, progress);
    preview.bible = preview.fetched->bible();
    preview.bible.format = "SWORD";
}

} // namespace

QStringList changesOf(const BuildReport& report)
{
    QStringList changes;
    if (!report.omittedBooks.empty())
        changes.append(booksLeftOut(report));
    for (const auto& [label, heading] : {std::pair{"left out", translatable("Left out: %s")},
                                         std::pair{"joined", translatable("Joined: %s")},
                                         std::pair{"interpreted", translatable("Interpreted: %s")}})
        if (const QString kinds = listed(report.findings.counts(label)); !kinds.isEmpty())
            changes.append(fromUtf8(message(heading, toUtf8(kinds))));
    if (!report.replaced.empty())
        changes.append(replacements(report));
    if (report.emptyVerses.count != 0)
        changes.append(fromUtf8(counted(report.emptyVerses.count, "verse inside a chapter has no text",
                                        "verses inside chapters have no text")));
    if (changes.isEmpty())
        changes.append(translated("Nothing is left out or replaced."));
    return changes;
}

TextPreview readPreview(const TextSource& source, const ISword& sword, IProgress& progress)
{
    TextPreview preview;
    progress.show(tr("reading"), 0, 1);
    read(source, sword, progress, preview);
    progress.show(tr("preparing"), 0, 1);
    SourceInfo& info = preview.bible.info;
    for (std::string* title : {&info.fullTitle, &info.shortTitle, &info.abbreviatedTitle})
        *title = fittingTitle(*title);
    preview.title = fromUtf8(info.fullTitle);
    BuildOptions options;
    options.substitute = true;
    options.refuseUnfitText = true;
    BuildReport report;
    prepareModule(preview.bible, options, report);
    progress.show(tr("preparing"), 1, 1);
    preview.name = defaultModuleName((source.repository ? "sword:" : "") + source.text, info);
    preview.contents = fromUtf8(counted(report.booksCount, "book", "books") + ", " +
                                counted(report.chaptersCount, "chapter", "chapters") + ", " +
                                counted(report.versesCount, "verse", "verses"));
    preview.samples = samplesOf(preview.bible);
    preview.changes = changesOf(report);
    preview.report = fromUtf8(report.text());
    return preview;
}

} // namespace Kedrin::Add
