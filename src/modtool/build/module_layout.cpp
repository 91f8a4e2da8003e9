#include "module_layout.h"

#include "errors.h"
#include "escape.h"
#include "messages.h"
#include "module_data.h"
#include "module_format.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

class CLayout
{
public:
    CLayout(const SourceBible& source, const std::vector<ModuleData::Verse>& encoded, ModuleData& module,
            BuildReport& report)
        : m_source(source),
          m_encoded(encoded),
          m_module(module),
          m_report(report)
    {}

    /// @param begin,end  the verses of one book
    void addBook(std::size_t begin, std::size_t end, unsigned int globalID)
    {
        const std::size_t textEnd = lastWithText(begin, end);
        if (textEnd == begin) {
            ++m_report.trimmedBooks;
            return;
        }
        countTrimmedChapters(textEnd, end);
        m_module.books.push_back({m_source.books[m_source.verses[begin].book], globalID, {}});
        while (begin < end) {
            const std::uint16_t chapter = m_source.verses[begin].chapter;
            std::size_t chapterEnd = begin;
            while (chapterEnd < end && m_source.verses[chapterEnd].chapter == chapter)
                ++chapterEnd;
            if (begin < textEnd)
                addChapter(begin, chapterEnd, chapter);
            begin = chapterEnd;
        }
    }

    /// Bytes of all verses as they are stored.
    std::uint64_t textBytes() const { return m_textBytes; }

private:
    bool hasText(std::size_t i) const { return m_encoded[i].byteCount != 0; }

    /// One past the last verse with text; `begin` if there is none.
    std::size_t lastWithText(std::size_t begin, std::size_t end) const
    {
        while (end > begin && !hasText(end - 1))
            --end;
        return end;
    }

    void countTrimmedChapters(std::size_t textEnd, std::size_t end)
    {
        std::uint16_t chapter = m_source.verses[textEnd - 1].chapter;
        for (std::size_t i = textEnd; i < end; ++i)
            if (m_source.verses[i].chapter != chapter) {
                chapter = m_source.verses[i].chapter;
                ++m_report.trimmedChapters;
            }
    }

    void addChapter(std::size_t begin, std::size_t end, unsigned int chapter)
    {
        auto& chapters = m_module.books.back().versesCount;
        while (chapters.size() + 1 < chapter)
            addEmptyChapter();
        const std::size_t textEnd = lastWithText(begin, end);
        if (textEnd == begin) {
            addEmptyChapter();
            return;
        }
        m_report.trimmedVerses += end - textEnd;
        chapters.push_back(0);
        for (std::size_t i = begin; i < textEnd; ++i) {
            while (chapters.back() + 1u < m_source.verses[i].verse)
                addEmptyVerse();
            if (hasText(i))
                addVerse(m_encoded[i]);
            else
                addEmptyVerse();
        }
    }

    void addEmptyChapter()
    {
        auto& chapters = m_module.books.back().versesCount;
        chapters.push_back(0);
        m_report.emptyChapters.add(m_module.books.back().osis + ' ' + std::to_string(chapters.size()));
        addVerse({0, 0});
    }

    void addEmptyVerse()
    {
        addVerse({0, 0});
        m_report.emptyVerses.add(lastPosition());
    }

    void addVerse(ModuleData::Verse verse)
    {
        m_module.verses.push_back(verse);
        ++m_module.books.back().versesCount.back();
        if (m_module.verses.size() > maxModuleVerses)
            throw CBuildError(
                message("%s: the module would have more than %s verses", lastPosition(), maxModuleVerses));
        const std::size_t stored =
            verse.byteCount == 0 ? 0 : escapedSize(m_module.verse(m_module.verses.size() - 1));
        m_textBytes += stored;
        if (stored > maxVerseBytes)
            throw CBuildError(message("%s: the verse has %s bytes; the limit is %s", lastPosition(), stored,
                                      maxVerseBytes));
    }

    std::string lastPosition() const
    {
        const ModuleBook& book = m_module.books.back();
        return positionText(book.osis, book.versesCount.size(), book.versesCount.back());
    }

    const SourceBible& m_source;
    const std::vector<ModuleData::Verse>& m_encoded;
    ModuleData& m_module;
    BuildReport& m_report;
    std::uint64_t m_textBytes = 0;
};

} // namespace

void layOut(const SourceBible& source, const std::vector<std::optional<unsigned int>>& globals,
            const std::vector<ModuleData::Verse>& encoded, ModuleData& module, BuildReport& report)
{
    CLayout layout(source, encoded, module, report);
    for (std::size_t begin = 0; begin < source.verses.size();) {
        const std::uint32_t book = source.verses[begin].book;
        std::size_t end = begin;
        while (end < source.verses.size() && source.verses[end].book == book)
            ++end;
        if (globals[book])
            layout.addBook(begin, end, *globals[book]);
        begin = end;
    }
    if (layout.textBytes() > maxCheckedTextBytes)
        throw CBuildError(
            message("the text has %s bytes; the limit is %s", layout.textBytes(), maxCheckedTextBytes));
    if (module.verses.empty())
        throw CBuildError(tr("the source contains no text"));
}

} // namespace Kedrin::ModTool
