#include "module_reader.h"

#include "errors.h"
#include "folder_names.h"
#include "global_books.h"
#include "input_file.h"
#include "messages.h"
#include "module_data.h"
#include "module_format.h"
#include "stored_markup.h"

#include <cerrno>
#include <filesystem>

namespace Kedrin::ModTool {

using namespace Kedrin::Tolvo;

namespace {

std::string withoutSlashes(std::string folder)
{
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

int asSigned(unsigned int number) { return static_cast<int>(number); }

} // namespace

CModuleReader::CModuleReader(const std::string& folder) : m_folder(withoutSlashes(folder))
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(m_folder, ignored))
        throw CModuleError(message("%s: is not a module folder", m_folder));
    try {
        open();
    } catch (const std::exception& ex) {
        throw CModuleError(message("%s: the module cannot be read: %s", m_folder, withSystemReason(ex)));
    }
    validate();
}

void CModuleReader::open()
{
    const auto path = [&](const char* fileName) { return m_folder + '/' + fileName; };
    m_titles = std::make_unique<CTitles>(path(titlesFileName).c_str());
    m_structure = std::make_unique<CBibleStructure>(path(structureFileName).c_str(), m_titles->booksCount());
    m_diff = std::make_unique<CDiff>(path(diffFileName).c_str());
    m_text = std::make_unique<CBibleText>(path(textFileName).c_str(), path(textPointsFileName).c_str());
    m_info = std::make_unique<CBibleInfo>(path(infoFileName).c_str(), folderTitle(m_folder).c_str());
}

/// Each verse needs 4 file bytes, so the count is bounded by the file.
void CModuleReader::validate()
{
    const std::string pointFileName = m_folder + '/' + textPointsFileName;
    const ut::CInputFile pointFile(pointFileName.c_str());
    if (!pointFile.isOpen()) // although the text has it open
        throw CModuleError(message("%s: cannot be read", pointFileName) + systemReason(errno));
    const std::uint64_t points = pointFile.size() / pointBytes;
    if (m_structure->totalVersesCount() > points)
        throw CModuleError(
            message("%s: BibleStructure.csv counts %s verses, but CompactPoint.bin has records for %s",
                    m_folder, m_structure->totalVersesCount(), points));
    unsigned int verseNum = 0;
    for (unsigned int book = 0; book < m_titles->booksCount(); ++book) {
        if (m_titles->globalID(book) >= globalBooksCount)
            throw CModuleError(message("%s: book %s has the global number %s; the last is 76", m_folder,
                                       book + 1, m_titles->globalID(book)));
        m_firstVerseNums.push_back(verseNum);
        for (unsigned int chapter = 0; chapter < m_structure->chaptersCount(book); ++chapter)
            verseNum += m_structure->versesCount(book, chapter);
    }
}

std::vector<CRef> CModuleReader::referencesOfBook(unsigned int localBook) const
{
    std::vector<CRef> references;
    for (unsigned int chapter = 0; chapter < m_structure->chaptersCount(localBook); ++chapter)
        for (unsigned int verse = 0; verse < m_structure->versesCount(localBook, chapter); ++verse)
            references.emplace_back(localBook, chapter, verse, false);
    return references;
}

std::vector<CRef> CModuleReader::references() const
{
    std::vector<CRef> all;
    all.reserve(m_structure->totalVersesCount());
    for (unsigned int book = 0; book < m_titles->booksCount(); ++book) {
        const std::vector<CRef> references = referencesOfBook(book);
        all.insert(all.end(), references.begin(), references.end());
    }
    return all;
}

GlobalPosition CModuleReader::globalPosition(const CRef& local) const
{
    const CRef global =
        m_diff->toGlobal(CRef(m_titles->globalID(local.bookID()), local.chapter(), local.verse()));
    return {global.bookID(), asSigned(global.chapter()), asSigned(global.verse())};
}

bool CModuleReader::mapsBothWays(const CRef& local) const
{
    const unsigned int globalBook = m_titles->globalID(local.bookID());
    const CRef global = m_diff->toGlobal(CRef(globalBook, local.chapter(), local.verse()));
    const CRef back = m_diff->toLocal(CRef(m_titles->localID(globalBook), global.chapter(), global.verse()));
    return !(back < local) && !(local < back);
}

std::string CModuleReader::bookLabel(unsigned int localBook) const
{
    std::string label = plainLine(m_titles->abbreviatedTitle(localBook));
    if (label.empty())
        label = plainLine(m_titles->shortTitle(localBook));
    return label.empty() ? std::string(globalBooks()[m_titles->globalID(localBook)].osis) : label;
}

std::string CModuleReader::label(const CRef& local) const
{
    return positionText(bookLabel(local.bookID()), local.chapter() + 1, local.verse() + 1);
}

std::string CModuleReader::storedText(const CRef& local) const
{
    try {
        return (*m_text)[static_cast<int>(m_structure->toNum(local))];
    } catch (const std::exception& ex) {
        throw CModuleError(message("%s: verse %s cannot be read: %s", m_folder, label(local), ex.what()));
    }
}

std::string CModuleReader::text(const CRef& local) const { return plainText(storedText(local)); }

void CModuleReader::forEachVerse(unsigned int firstVerseNum, unsigned int verseCount,
                                 const std::function<void(unsigned int, std::string_view)>& use) const
{
    CVerseCursor run(*m_text, firstVerseNum, verseCount);
    const auto next = [&] {
        try {
            return run.next();
        } catch (const std::exception& ex) {
            throw CModuleError(message("%s: the verses cannot be read: %s", m_folder, ex.what()));
        }
    };
    while (next())
        use(run.verseNum(), run.text());
}

} // namespace Kedrin::ModTool
