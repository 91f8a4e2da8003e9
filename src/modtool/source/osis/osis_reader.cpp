#include "osis_reader.h"

#include "book_ids.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"
#include "osis_elements.h"
#include "osis_header.h"
#include "osis_reference.h"
#include "verse_collector.h"
#include "xml_letters.h"
#include "xml_reader.h"

#include <algorithm>
#include <vector>

namespace Kedrin::ModTool {

namespace {

class COsisReader
{
public:
    COsisReader(const std::string& fileName, std::string_view utf8) : m_utf8(utf8), m_xml(fileName, utf8) {}

    SourceBible read()
    {
        if (m_xml.next() != CXmlReader::Node::start || m_xml.name() != "osis")
            m_xml.fail(message("the root element is %s, not osis", inQuotes(m_xml.name())));
        for (auto node = m_xml.next(); node != CXmlReader::Node::none; node = m_xml.next()) {
            if (node == CXmlReader::Node::text)
                m_verses.addText(m_xml.text(), m_xml.line());
            else if (node == CXmlReader::Node::start)
                start();
            else
                end();
        }
        SourceBible bible = m_verses.finish(m_xml.fileName());
        bible.letters = proveXmlLetters(m_xml.fileName(), m_utf8, m_verses.takeLetters());
        return bible;
    }

private:
    void start()
    {
        const std::string name(m_xml.name());
        if (name == "osisText")
            m_workId = m_xml.attribute("osisIDWork");
        else if (name == "header")
            readHeader();
        else if (name == "verse")
            startVerse();
        else if (name == "chapter" && m_xml.attribute("eID").empty())
            startChapter();
        else if (name == "div")
            startDivision();
        else if (name == "q")
            startQuotation();
        else if (name == "milestone")
            startMilestone();
        else if (name == "w" && !m_xml.isEmpty())
            m_verses.beginWord();
        else if (isOsisTitle(name))
            startTitle(name);
        else if (const auto reason = reasonToSkip(name))
            skip(*reason);
        if (isOsisBlock(name))
            m_verses.addBreak();
    }

    void end()
    {
        const std::string_view name = m_xml.name();
        if (isOsisBlock(name))
            m_verses.addBreak();
        if (m_xml.depth() == m_verseDepth && name == "verse") {
            m_verses.endVerse();
            m_verseDepth = noDepth;
        } else if (m_xml.depth() == m_titleDepth) {
            m_verses.endTitle();
            m_verses.addBreak();
            m_titleDepth = noDepth;
        } else if (name == "w") {
            m_verses.endWord();
        } else if (name == "q") {
            m_verses.addClosingSign(m_quoteSigns.empty() ? "" : m_quoteSigns.back(), m_xml.line());
            if (!m_quoteSigns.empty())
                m_quoteSigns.pop_back();
        }
    }

    void readHeader()
    {
        COsisHeader header(m_workId);
        header.read(m_xml);
        m_verses.leaveOut(ReaderRule::metadata, header.text());
        m_verses.info() = header.info();
        m_verses.versification() = header.versification();
    }

    void startVerse()
    {
        const std::string endId = m_xml.attribute("eID");
        if (!endId.empty()) {
            if (m_openId.empty() || m_openId == endId)
                m_verses.endVerse();
            return;
        }
        const std::string startId = m_xml.attribute("sID");
        std::string id = m_xml.attribute("osisID");
        if (id.empty())
            id = startId;
        beginVerse(id);
        m_openId = startId;
        const bool isMilestone = m_xml.isEmptyTag() || (m_xml.isEmpty() && !startId.empty());
        if (m_xml.isEmpty() && !isMilestone) // a verse without text
            m_verses.endVerse();
        m_verseDepth = m_xml.isEmpty() ? noDepth : m_xml.depth();
    }

    void startChapter()
    {
        const auto number = chapterOf(m_xml.attribute("osisID"));
        m_chapter = number.value_or(std::min(m_chapter + 1, maxSourceNumber));
        m_verses.beginChapter(m_chapter);
    }

    void beginVerse(const std::string& id)
    {
        if (const auto reference = parseOsisReferences(id)) {
            beginKnownBook(reference->book);
            m_verses.beginVerse(reference->chapter, reference->verse, m_xml.line());
            m_chapter = reference->chapter;
        } else if (m_verses.inBook()) {
            m_verses.beginVerseWithoutNumber(std::max(m_chapter, 1u), m_xml.line());
        } else {
            m_xml.fail(message("%s is not a verse reference, such as Gen.1.1", inQuotes(id)));
        }
    }

    void startDivision()
    {
        const std::string type = m_xml.attribute("type");
        if (type == "book") {
            m_verses.endVerse();
            if (const std::string id = m_xml.attribute("osisID");
                !id.empty() && m_xml.attribute("eID").empty())
                beginBook(id);
        } else if (!m_xml.isEmpty() && isOsisSideMatter(type))
            skip(ReaderRule::outside);
    }

    void beginKnownBook(std::string_view osis)
    {
        if (osis == m_book)
            return;
        m_book = osis;
        if (isKnownOsisId(osis))
            m_verses.beginBook(osis);
        else
            m_verses.beginUnknownBook(osis, atLine(m_xml.fileName(), m_xml.line(),
                                                   message("%s is not an OSIS book id", inQuotes(osis))));
    }

    void beginBook(const std::string& id)
    {
        const std::size_t colon = id.find(':');
        beginKnownBook(colon == std::string::npos ? id : id.substr(colon + 1));
        m_verses.beginChapter();
        m_chapter = 0;
    }

    /// A continued quote attaches to the next word; other marks are spaced.
    void startMilestone()
    {
        const std::string sign = m_xml.attribute("marker");
        const bool goesOn = m_xml.attribute("type") == "cQuote";
        if (!goesOn)
            m_verses.addBreak();
        m_verses.addOpeningSign(sign + (goesOn ? "" : " "), m_xml.line());
    }

    void startQuotation()
    {
        const std::string sign = m_xml.attribute("marker");
        const bool isMilestoneEnd = !m_xml.attribute("eID").empty();
        if (sign.empty() && !isMilestoneEnd && m_xml.attribute("who") != "Jesus" &&
            m_xml.attribute("type") != "block")
            m_verses.found(ReaderRule::unmarkedQuote, m_xml.line());
        if (isMilestoneEnd)
            m_verses.addClosingSign(sign, m_xml.line());
        else
            m_verses.addOpeningSign(sign, m_xml.line());
        if (!m_xml.isEmpty())
            m_quoteSigns.push_back(closingQuoteMark(sign));
    }

    void startTitle(const std::string& name)
    {
        const std::string canonical = m_xml.attribute("canonical");
        const std::string type = m_xml.attribute("type");
        if (m_xml.isEmpty())
            return;
        if (name == "title" && (canonical == "true" || (type == "psalm" && canonical.empty()))) {
            m_verses.beginTitle();
            m_titleDepth = m_xml.depth();
            return;
        }
        const bool namesBook = name == "title" && m_verses.inBook() && type != "sub" && type != "chapter";
        const std::string shortTitle = m_xml.attribute("short");
        const std::string abbreviation = m_xml.attribute("n");
        const bool isExported = type == "x-module"; // written by export
        if (!isExported)
            m_verses.found(ReaderRule::title, m_xml.line());
        const std::string text = titleText(isExported ? ReaderRule::metadata : ReaderRule::title);
        m_verses.addBreak();
        if (!namesBook || m_verses.bookHasVerses() || !m_verses.titles().fullTitle.empty())
            return;
        m_verses.titles() = {text, shortTitle, abbreviation.empty() ? shortTitle : abbreviation};
        if (isExported)
            m_verses.info().keepsTitles = true;
    }

    /// The text of the current title, up to its end or to a verse inside it, which is read as usual.
    std::string titleText(ReaderRule why)
    {
        std::string text;
        const int depth = m_xml.depth();
        for (auto node = m_xml.next(); node != CXmlReader::Node::none; node = m_xml.next()) {
            if (node == CXmlReader::Node::end && m_xml.depth() == depth)
                break;
            if (node == CXmlReader::Node::text) {
                text += m_xml.text();
                m_verses.leaveOut(why, m_xml.text());
            }
            if (node == CXmlReader::Node::start && m_xml.name() == "verse") {
                startVerse();
                break;
            }
        }
        return text;
    }

    std::optional<ReaderRule> reasonToSkip(const std::string& name) const
    {
        if (m_xml.isEmpty())
            return std::nullopt;
        if (name == "note")
            return ReaderRule::note;
        const std::string type = m_xml.attribute("type");
        const bool isSecondVariant =
            name == "seg" && type == "x-variant" && m_xml.attribute("subType") == "x-2";
        if (isSecondVariant || (name == "rdg" && !type.empty() && type != "primary"))
            return ReaderRule::otherReading;
        if (isOsisFigure(name))
            return ReaderRule::figure;
        return std::nullopt;
    }

    void skip(ReaderRule reason)
    {
        m_verses.found(reason, m_xml.line());
        m_verses.leaveOut(reason, elementText(m_xml));
        m_verses.addGap();
    }

    static constexpr int noDepth = -1;

    std::string_view m_utf8;
    CXmlReader m_xml;
    CVerseCollector m_verses;
    std::string m_workId;
    std::string m_openId;                  ///< sID of the open verse between milestones
    std::vector<std::string> m_quoteSigns; ///< closing marks of the open quotations
    std::string m_book;                    ///< id of the one that was begun last
    unsigned int m_chapter = 0;            ///< current chapter, for a verse without a reference
    int m_verseDepth = noDepth;            ///< of the open verse element
    int m_titleDepth = noDepth;            ///< of the open canonical title
};

} // namespace

SourceBible readOsis(const std::string& fileName, std::string_view utf8)
{
    return COsisReader(fileName, utf8).read();
}

} // namespace Kedrin::ModTool
