#include "marked_files.h"
#include "marked_maker.h"

namespace build_test {

namespace {

class COsisMaker : public CMaker
{
public:
    explicit COsisMaker(const std::string& book) : m_book(book) {}

    /// Before a chapter or book ends.
    void endBlock()
    {
        text += m_blockEnd;
        m_blockEnd.clear();
    }

protected:
    void beginVerse(const MarkedVerse& verse) override
    {
        if (m_blockEnd.empty())
            block(Kind::paragraph);
        const std::string place =
            m_book + '.' + std::to_string(verse.chapter) + '.' + std::to_string(verse.verse);
        text += "<verse osisID=\"" + place + "\" sID=\"" + place + ".s\"/>";
    }
    void endVerse(const MarkedVerse& verse) override
    {
        text += "<verse eID=\"" + m_book + '.' + std::to_string(verse.chapter) + '.' +
                std::to_string(verse.verse) + ".s\"/>\n";
    }
    void open(const Piece& piece) override
    {
        switch (piece.style) {
        case Style::word:
            text += "<w lemma=\"strong:" + piece.text + "\">";
            return;
        case Style::jesus:
            text += "<q who=\"Jesus\" marker=\"\">";
            return;
        case Style::psalmTitle:
            endBlock();
            text += "<title type=\"psalm\" canonical=\"true\">";
            return;
        default:
            text += '<' + nameOfStyle(piece.style) + '>';
        }
    }
    void close(const Piece& opened) override
    {
        text += opened.style == Style::word         ? "</w>"
                : opened.style == Style::jesus      ? "</q>"
                : opened.style == Style::psalmTitle ? "</title>"
                                                    : "</" + nameOfStyle(opened.style) + '>';
    }
    void note(const std::string& content) override { text += "<note>" + inXml(content) + "</note>"; }
    void heading(const std::string& content) override
    {
        endBlock();
        text += "<title>" + inXml(content) + "</title>";
        block(Kind::paragraph);
    }
    void block(Kind kind) override
    {
        endBlock();
        text += kind == Kind::line ? "<lg><l>" : kind == Kind::item ? "<list><item>" : "<p>";
        m_blockEnd = kind == Kind::line ? "</l></lg>" : kind == Kind::item ? "</item></list>" : "</p>";
    }
    void plain(const std::string& content) override { text += inXml(content); }

private:
    static std::string nameOfStyle(Style style)
    {
        return style == Style::added        ? "transChange"
               : style == Style::divineName ? "divineName"
               : style == Style::foreign    ? "foreign"
                                            : "hi";
    }

    std::string m_book;
    std::string m_blockEnd;
};

} // namespace

std::string osisFile(const MarkedBible& bible)
{
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<osis xmlns=\"http://www.bibletechnologies.net/2003/OSIS/namespace\">\n"
        "<osisText osisIDWork=\"Made\"><header><work osisWork=\"Made\"><title>Made</title></work>"
        "</header>\n";
    for (const MarkedBook& book : bible) {
        COsisMaker maker(book.osis);
        maker.text = "<div type=\"book\" osisID=\"" + book.osis + "\">\n";
        forEachChapter(
            book,
            [&](unsigned int chapter) {
                maker.text += "<chapter osisID=\"" + book.osis + '.' + std::to_string(chapter) + "\">\n";
            },
            [&](const MarkedVerse& verse) { maker.add(verse); },
            [&] {
                maker.endBlock();
                maker.text += "</chapter>\n";
            });
        text += maker.text + "</div>\n";
    }
    return text + "</osisText></osis>\n";
}

} // namespace build_test
