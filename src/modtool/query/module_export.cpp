#include "module_export.h"

#include "cp1251.h"
#include "diff_records.h"
#include "diff_search.h"
#include "errors.h"
#include "global_books.h"
#include "input_file.h"
#include "messages.h"
#include "module_facts.h"
#include "module_format.h"
#include "stored_markup.h"
#include "versification.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

using Tolvo::CRef;

std::vector<ModuleBook> moduleBooks(const CModuleReader& module)
{
    std::vector<ModuleBook> books;
    for (unsigned int book = 0; book < module.titles().booksCount(); ++book) {
        const unsigned int globalID = module.titles().globalID(book);
        books.push_back({std::string(globalBooks()[globalID].osis), globalID, {}});
        if (module.titles().localID(globalID) != book)
            throw CModuleError(message("%s: the book %s appears twice", module.folder(), books.back().osis));
        for (unsigned int chapter = 0; chapter < module.structure().chaptersCount(book); ++chapter)
            books.back().versesCount.push_back(module.structure().versesCount(book, chapter));
    }
    return books;
}

bool gives(const CVersification& versification, const std::vector<ModuleBook>& books,
           const std::vector<DiffRecord>& records)
{
    DiffFigures figures;
    return chooseDiffRecords(versePairs(books, versification), figures) == records;
}

void exportNumbering(const CModuleReader& module, SourceBible& bible)
{
    std::string text;
    const std::string path = module.folder() + '/' + diffFileName;
    if (!ut::read_text_file(path.c_str(), text))
        throw CModuleError(message("%s: cannot be read", path));
    const std::vector<DiffRecord> records = readDiffRecords(text);
    const std::vector<ModuleBook> books = moduleBooks(module);
    std::vector<std::string> names = CVersification::names();
    names.insert(names.begin(), CVersification::bestFor(books).name());
    const auto known = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
        return gives(CVersification(name), books, records);
    });
    if (known != names.end()) {
        bible.versification = *known;
        return;
    }
    std::string& differences = bible.info.differences.emplace();
    for (const DiffRecord& record : records)
        differences += (differences.empty() ? "" : " ") + diffRecordText(record);
}

void exportTitles(const CModuleReader& module, SourceBible& bible)
{
    const Tolvo::CTitles& titles = module.titles();
    for (unsigned int book = 0; book < titles.booksCount(); ++book) {
        const GlobalBook& common = globalBooks()[titles.globalID(book)];
        bible.books.emplace_back(common.osis);
        bible.bookTitles.push_back({plainLine(titles.fullTitle(book)), plainLine(titles.shortTitle(book)),
                                    plainLine(titles.abbreviatedTitle(book))});
        if (titles.fullTitle(book) != ut::to_cp1251(common.fullTitle) ||
            titles.shortTitle(book) != ut::to_cp1251(common.shortTitle) ||
            titles.abbreviatedTitle(book) != ut::to_cp1251(common.abbreviatedTitle))
            bible.info.keepsTitles = true;
    }
}

} // namespace

SourceBible exportModule(const CModuleReader& module)
{
    SourceBible bible;
    bible.info.fullTitle = plainLine(module.info().fullTitle());
    bible.info.shortTitle = plainLine(module.info().shortTitle());
    bible.info.abbreviatedTitle = plainLine(module.info().abbreveatedTitle());
    bible.info.copyright = copyrightLines(module.info());
    exportTitles(module, bible);
    exportNumbering(module, bible);
    const std::vector<CRef> references = module.references();
    module.forEachVerse(
        0, static_cast<unsigned int>(references.size()), [&](unsigned int verseNum, std::string_view stored) {
            const CRef& reference = references[verseNum];
            if (reference.chapter() >= maxSourceNumber || reference.verse() >= maxSourceNumber)
                throw CModuleError(
                    message("%s: %s is out of range for a source", module.folder(), module.label(reference)));
            const std::string text = plainText(stored);
            bible.verses.push_back({reference.bookID(), static_cast<std::uint16_t>(reference.chapter() + 1),
                                    static_cast<std::uint16_t>(reference.verse() + 1),
                                    static_cast<std::uint32_t>(bible.text.size()),
                                    static_cast<std::uint32_t>(text.size()), 0});
            bible.text += text;
        });
    return bible;
}

} // namespace Kedrin::ModTool
