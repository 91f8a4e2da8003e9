// Formats in XML whose verses may lie between milestones: OSIS, USX and USFX.

#include "varied_formats.h"
#include "varied_xml.h"

namespace varied_test {

namespace {

std::string number(unsigned int value) { return std::to_string(value); }

/// Opens a verse as an element or between milestones, in a paragraph that may end within the verse.
class COsisWriter
{
public:
    explicit COsisWriter(CRandom& random) : xml(random), m_random(random) {}

    void verse(const Verse& verse)
    {
        const std::string id =
            std::string(verse.book->osis) + '.' + number(verse.chapter) + '.' + number(verse.verse);
        xml.gap();
        if (m_random.oneIn(2)) {
            xml.element("verse", {{"osisID", id}}, verse.text);
            return;
        }
        const bool isInParagraph = m_random.oneIn(2);
        if (isInParagraph)
            xml.open("p");
        xml.empty("verse", {{"sID", id}, {"osisID", id}});
        const std::size_t blank = verse.text.find(' ');
        if (isInParagraph && blank != std::string::npos) {
            xml.text(verse.text.substr(0, blank));
            xml.close("p");
            xml.gap();
            xml.open("p");
            xml.text(verse.text.substr(blank + 1));
        } else {
            xml.text(verse.text);
        }
        xml.empty("verse", {{"eID", id}});
        if (isInParagraph)
            xml.close("p");
    }

    CXmlWriter xml;

private:
    CRandom& m_random;
};

/// Writes paragraphs of USX or USFX with words in the style of added ones.
class CUsfmXmlWriter
{
public:
    CUsfmXmlWriter(CRandom& random, bool isUsx) : xml(random), m_random(random), m_isUsx(isUsx) {}

    void beginParagraph()
    {
        static constexpr const char* styles[] = {"p", "q", "m"};
        endParagraph();
        const std::string style = m_random.oneOf(styles);
        if (m_isUsx) {
            xml.open("para", {{"style", style}});
            m_paragraph = "para";
        } else {
            xml.open(style);
            m_paragraph = style;
        }
    }

    void endParagraph()
    {
        if (!m_paragraph.empty())
            xml.close(m_paragraph);
        m_paragraph.clear();
        xml.gap();
    }

    void text(const std::string& utf8)
    {
        const std::size_t begin = utf8.find(' '), end = utf8.find(' ', begin + 1);
        if (begin == std::string::npos || m_random.oneIn(2)) {
            xml.text(utf8);
            return;
        }
        xml.text(utf8.substr(0, begin + 1));
        const std::string name = m_isUsx ? "char" : "add";
        const std::string inside = utf8.substr(begin + 1, end - begin - 1);
        xml.element(name, m_isUsx ? CXmlWriter::Attributes{{"style", "add"}} : CXmlWriter::Attributes{},
                    inside);
        if (end == std::string::npos)
            return;
        if (m_random.oneIn(3))
            beginParagraph();
        xml.text(utf8.substr(end));
    }

    CXmlWriter xml;

private:
    CRandom& m_random;
    bool m_isUsx;
    std::string m_paragraph; ///< the open element
};

} // namespace

std::vector<File> writeOsis(const Text& text, CRandom& random)
{
    COsisWriter writer(random);
    CXmlWriter& xml = writer.xml;
    xml.open("osis");
    xml.gap();
    xml.open("osisText", {{"osisIDWork", "T"}});
    xml.gap();
    forEachPart(
        text,
        [&](const Book& book) {
            xml.open("div", {{"type", "book"}, {"osisID", book.osis}});
        },
        [&](const Verse& verse) {
            xml.gap();
            xml.open("chapter", {{"osisID", std::string(verse.book->osis) + '.' + number(verse.chapter)}});
        },
        [&](const Verse& verse) { writer.verse(verse); }, [&] { xml.close("chapter"); },
        [&] {
            xml.gap();
            xml.close("div");
        });
    xml.gap();
    xml.close("osisText");
    xml.close("osis");
    return {{"made.xml", xml.document()}};
}

std::vector<File> writeUsx(const Text& text, CRandom& random)
{
    CUsfmXmlWriter writer(random, true);
    CXmlWriter& xml = writer.xml;
    const bool hasEnds = random.oneIn(2);
    std::string chapter;
    xml.open("usx", {{"version", "3.0"}});
    forEachPart(
        text,
        [&](const Book& book) {
            xml.gap();
            xml.element("book", {{"code", book.usfm}, {"style", "id"}}, "- Тест");
        },
        [&](const Verse& verse) {
            chapter = std::string(verse.book->usfm) + ' ' + number(verse.chapter);
            writer.endParagraph();
            xml.empty("chapter", {{"number", number(verse.chapter)}, {"style", "c"}, {"sid", chapter}});
            writer.beginParagraph();
        },
        [&](const Verse& verse) {
            if (random.oneIn(3))
                writer.beginParagraph();
            const std::string id = chapter + ':' + number(verse.verse);
            xml.empty("verse", {{"number", number(verse.verse)}, {"style", "v"}, {"sid", id}});
            writer.text(verse.text);
            if (hasEnds)
                xml.empty("verse", {{"eid", id}});
        },
        [&] { writer.endParagraph(); }, [] {});
    xml.close("usx");
    return {{"made.usx", xml.document()}};
}

std::vector<File> writeUsfx(const Text& text, CRandom& random)
{
    CUsfmXmlWriter writer(random, false);
    CXmlWriter& xml = writer.xml;
    const bool hasEnds = random.oneIn(2);
    xml.open("usfx");
    xml.element("languageCode", {}, "bul");
    forEachPart(
        text,
        [&](const Book& book) {
            xml.gap();
            xml.open("book", {{"id", book.usfm}});
            xml.element("id", {{"id", book.usfm}}, "- Тест");
        },
        [&](const Verse& verse) {
            writer.endParagraph();
            xml.empty("c", {{"id", number(verse.chapter)}});
            writer.beginParagraph();
        },
        [&](const Verse& verse) {
            if (random.oneIn(3))
                writer.beginParagraph();
            xml.empty("v", {{"id", number(verse.verse)}});
            writer.text(verse.text);
            if (hasEnds)
                xml.empty("ve");
        },
        [&] { writer.endParagraph(); }, [&] { xml.close("book"); });
    xml.close("usfx");
    return {{"made.xml", xml.document()}};
}

} // namespace varied_test
