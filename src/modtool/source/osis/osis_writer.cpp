#include "osis_writer.h"

#include "escape.h"

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view workId = "Module";

std::string escaped(std::string_view text)
{
    std::string xml;
    appendEscaped(text, xml);
    return xml;
}

/// For an attribute between double quotes.
std::string attribute(std::string_view name, std::string_view value)
{
    std::string xml = escaped(value);
    for (std::size_t i = xml.find('"'); i != std::string::npos; i = xml.find('"', i))
        xml.replace(i, 1, "&quot;");
    return ' ' + std::string(name) + "=\"" + xml + '"';
}

std::string element(std::string_view name, std::string_view attributes, std::string_view text)
{
    return '<' + std::string(name) + std::string(attributes) + '>' + escaped(text) + "</" +
           std::string(name) + ">\n";
}

/// Text of a verse. An empty element after each backslash keeps readers from taking what follows for a USFM
/// marker.
std::string verseText(std::string_view text)
{
    constexpr std::string_view parting = "<seg/>";
    std::string xml = escaped(text);
    for (std::size_t i = xml.find('\\'); i != std::string::npos; i = xml.find('\\', i + 1))
        xml.insert(i + 1, parting);
    return xml;
}

std::string header(const SourceBible& bible)
{
    const SourceInfo& info = bible.info;
    std::string xml = "<header>\n<work" + attribute("osisWork", workId) + ">\n" +
                      element("title", "", info.fullTitle) +
                      element("title", attribute("type", "x-short"), info.shortTitle) +
                      element("title", attribute("type", "x-abbreviation"), info.abbreviatedTitle);
    for (const std::string& line : info.copyright)
        xml += element("description", attribute("type", "x-copyright"), line);
    if (info.differences)
        xml += element("description", attribute("type", "x-differences"), *info.differences);
    if (!bible.versification.empty())
        xml += element("refSystem", "", "Bible." + bible.versification);
    return xml + "</work>\n</header>\n";
}

class COsisWriter
{
public:
    explicit COsisWriter(const SourceBible& bible) : m_bible(bible) {}

    std::string write()
    {
        m_xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                "<osis xmlns=\"http://www.bibletechnologies.net/2003/OSIS/namespace\">\n<osisText" +
                attribute("osisIDWork", workId) + attribute("osisRefWork", "Bible") +
                attribute("xml:lang", "und") + ">\n" + header(m_bible);
        for (const SourceVerse& verse : m_bible.verses)
            add(verse);
        endBook();
        m_xml += "</osisText>\n</osis>\n";
        return std::move(m_xml);
    }

private:
    void add(const SourceVerse& verse)
    {
        if (!m_last || m_last->book != verse.book) {
            endBook();
            beginBook(verse.book);
        }
        const std::string chapter = m_bible.books[verse.book] + '.' + std::to_string(verse.chapter);
        if (!m_last || m_last->chapter != verse.chapter) {
            endChapter();
            m_xml += "<chapter" + attribute("osisID", chapter) + ">\n";
        }
        m_xml += "<verse" + attribute("osisID", chapter + '.' + std::to_string(verse.verse)) + '>' +
                 verseText(m_bible.textOf(verse)) + "</verse>\n";
        m_last = &verse;
    }

    void beginBook(std::size_t book)
    {
        m_xml += "<div" + attribute("type", "book") + attribute("osisID", m_bible.books[book]) + ">\n";
        if (!m_bible.info.keepsTitles)
            return;
        const BookTitles& titles = m_bible.bookTitles[book];
        m_xml += element("title",
                         attribute("type", "x-module") + attribute("short", titles.shortTitle) +
                             attribute("n", titles.abbreviatedTitle),
                         titles.fullTitle);
    }

    void endChapter()
    {
        if (m_last)
            m_xml += "</chapter>\n";
    }

    void endBook()
    {
        endChapter();
        if (m_last)
            m_xml += "</div>\n";
        m_last = nullptr;
    }

    const SourceBible& m_bible;
    const SourceVerse* m_last = nullptr; ///< of the open book; null: none
    std::string m_xml;
};

} // namespace

std::string osisFile(const SourceBible& bible) { return COsisWriter(bible).write(); }

} // namespace Kedrin::ModTool
