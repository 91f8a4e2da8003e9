#include "sword_verses.h"

#include "ascii.h"
#include "errors.h"
#include "letters.h"
#include "messages.h"
#include "sword_elements.h"
#include "sword_entry.h"
#include "sword_markup.h"

#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <swmodule.h>
#include <versekey.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace Kedrin::ModTool {

namespace {

/// The bytes as valid UTF-8; invalid ones become U+FFFD.
std::string validUtf8(std::string_view bytes)
{
    const auto size = static_cast<std::int32_t>(bytes.size());
    UChar32 codePoint = 0;
    for (std::int32_t i = 0; i < size && codePoint >= 0;)
        U8_NEXT(reinterpret_cast<const std::uint8_t*>(bytes.data()), i, size, codePoint);
    if (codePoint >= 0)
        return std::string(bytes);
    std::string utf8;
    return icu::UnicodeString::fromUTF8(icu::StringPiece(bytes.data(), size)).toUTF8String(utf8);
}

/// Reads the verses of one module in order.
class CSwordVerseReader
{
public:
    CSwordVerseReader(sword::SWModule& module, const std::function<void(std::size_t, std::size_t)>& progress)
        : m_module(module),
          m_progress(progress),
          m_key(static_cast<sword::VerseKey*>(module.createKey()))
    {
        m_key->setPersist(true);
        m_key->setIntros(true);
        m_key->setAutoNormalize(true);
        m_module.setKey(m_key.get());
    }
    ~CSwordVerseReader() { m_module.setKey(""); }
    CSwordVerseReader(const CSwordVerseReader&) = delete;
    CSwordVerseReader& operator=(const CSwordVerseReader&) = delete;

    void readInto(SourceBible& bible)
    {
        constexpr std::size_t versesBetweenReports = 500;
        m_key->setPosition(sword::BOTTOM);
        const auto last = static_cast<std::size_t>(m_key->getIndex());
        std::size_t done = 0;
        for (m_key->setPosition(sword::TOP); !m_key->popError(); m_key->increment(1)) {
            addEntry(bible);
            if (++done % versesBetweenReports == 0)
                m_progress(std::min(static_cast<std::size_t>(m_key->getIndex()), last), last);
        }
        dropTitle(bible);
        bible.letters = m_letters;
    }

private:
    void addEntry(SourceBible& bible)
    {
        const bool isVerse = m_key->getChapter() != 0 && m_key->getVerse() != 0;
        const std::string raw = rawEntry();
        if (raw.empty() || (isVerse && isRepeated(raw, bible)))
            return;
        const SwordEntryContext context = positionOf(raw);
        const SwordEntry entry = readSwordEntry(raw, context, bible.findings);
        refuseLoss(raw, entry);
        if (!isVerse) {
            addTitle(entry.title, bible);
            return;
        }
        const std::size_t offset = bible.text.size();
        if (!m_title.empty())
            insertTitle(bible);
        bible.text += entry.verse;
        bible.verses.push_back({bookIndex(bible), static_cast<std::uint16_t>(m_key->getChapter()),
                                static_cast<std::uint16_t>(m_key->getVerse()),
                                static_cast<std::uint32_t>(offset),
                                static_cast<std::uint32_t>(bible.text.size() - offset), 0});
    }

    std::string rawEntry() const
    {
        const char* raw = m_module.getRawEntry();
        return validUtf8(raw ? raw : "");
    }

    /// Whether the verse shares its entry with the last one that has text. Empty entries never count as
    /// shared, though the library may say so.
    bool isRepeated(const std::string& raw, SourceBible& bible)
    {
        if (m_textKey && raw == m_lastText && m_module.isLinked(m_textKey.get(), m_key.get())) {
            if (!std::exchange(m_isInRange, true))
                bible.findings.add(ReaderRule::verseRange, bible.positionOf(bible.verses.back()));
            return true;
        }
        m_isInRange = false;
        m_textKey.reset(static_cast<sword::VerseKey*>(m_key->clone()));
        m_lastText = raw;
        return false;
    }

    SwordEntryContext positionOf(const std::string& raw)
    {
        SwordEntryContext context{positionName()};
        if (m_key->getVerse() == 0 || m_key->getChapter() == 0)
            context.kind = m_key->getChapter() == 0 ? SwordEntryContext::Kind::introduction
                                                    : SwordEntryContext::Kind::chapter;
        context.beginsInNote = std::exchange(m_noteGoesOn, false);
        const bool noteIsOpen = endsInside(raw, "note");
        const bool titleIsOpen = endsInside(raw, "title");
        if (noteIsOpen || titleIsOpen) {
            const std::string next = nextRawEntry();
            context.noteGoesOn = m_noteGoesOn = noteIsOpen && beginsInside(next, "note");
            context.titleGoesOn = titleIsOpen && beginsInside(next, "title");
        }
        return context;
    }

    /// The next entry that is not empty.
    std::string nextRawEntry()
    {
        const sword::VerseKey here(*m_key);
        std::string next;
        for (m_key->increment(1); !m_key->popError() && next.empty(); m_key->increment(1))
            next = rawEntry();
        m_key->popError();
        m_key->positionFrom(here);
        return next;
    }

    /// Every letter of an entry, counted regardless of its elements, must be in its text or in the report.
    void refuseLoss(const std::string& raw, const SwordEntry& entry)
    {
        const std::uint64_t inSource = lettersOfEntry(raw);
        const std::uint64_t found = countLetters(entry.verse) + countLetters(entry.title) + entry.leftOut;
        m_letters += inSource;
        if (inSource != found)
            throw CBuildError(
                message("%s: %s letters and digits were read, but %s are accounted for; this is a bug in "
                        "kedrin-module, please report it",
                        positionName(), inSource, found));
    }

    void addTitle(const std::string& title, SourceBible& bible)
    {
        if (isBlank(title))
            return;
        dropTitle(bible);
        m_title = title + ' ';
        m_titlePosition = positionName();
        m_titleBook = m_key->getOSISBookName();
    }

    void insertTitle(SourceBible& bible)
    {
        if (m_titleBook != m_key->getOSISBookName()) {
            dropTitle(bible);
            return;
        }
        bible.text += std::exchange(m_title, {});
        bible.findings.add(ReaderRule::canonicalTitle, m_titlePosition);
    }

    /// No verse follows the title in its book.
    void dropTitle(SourceBible& bible)
    {
        if (m_title.empty())
            return;
        bible.findings.add(ReaderRule::outside, m_titlePosition);
        bible.findings.addLetters(ReaderRule::outside, countLetters(std::exchange(m_title, {})));
    }

    /// "Gen 1:1", "Gen 1" and "Gen" for introductions, "the beginning" for that of the whole.
    std::string positionName() const
    {
        if (m_key->getTestament() == 0 || m_key->getBook() == 0)
            return tr("the beginning");
        std::string text = m_key->getOSISBookName();
        if (m_key->getChapter() != 0)
            text += ' ' + std::to_string(m_key->getChapter());
        return m_key->getVerse() == 0 ? text : text + ':' + std::to_string(m_key->getVerse());
    }

    std::uint32_t bookIndex(SourceBible& bible) const
    {
        const char* osis = m_key->getOSISBookName();
        if (bible.books.empty() || bible.books.back() != osis)
            bible.books.emplace_back(osis);
        return static_cast<std::uint32_t>(bible.books.size() - 1);
    }

    sword::SWModule& m_module;
    const std::function<void(std::size_t, std::size_t)>& m_progress;
    std::unique_ptr<sword::VerseKey> m_key;
    std::unique_ptr<sword::VerseKey> m_textKey; ///< the last verse with text of its own
    std::string m_lastText;                     ///< its entry
    std::string m_title;                        ///< pending until the next verse of its book
    std::string m_titlePosition;
    std::string m_titleBook;
    std::uint64_t m_letters = 0;
    bool m_isInRange = false;
    bool m_noteGoesOn = false;
};

} // namespace

void readSwordVerses(sword::SWModule& module, const std::function<void(std::size_t, std::size_t)>& progress,
                     SourceBible& bible)
{
    CSwordVerseReader(module, progress).readInto(bible);
}

} // namespace Kedrin::ModTool
