#include "marked_files.h"
#include "marked_maker.h"

namespace build_test {

namespace {

class CZefaniaMaker : public CMaker
{
protected:
    void beginVerse(const MarkedVerse& verse) override
    {
        text += "<VERS vnumber=\"" + std::to_string(verse.verse) + "\">" + m_waiting;
        m_waiting.clear();
        m_inVerse = true;
    }
    void endVerse(const MarkedVerse&) override
    {
        text += "</VERS>\n";
        m_inVerse = false;
    }
    void open(const Piece& piece) override
    {
        if (piece.style == Style::word)
            put(piece.text.empty() ? "<gr>" : "<gr str=\"" + piece.text.substr(1) + "\">");
        else if (piece.style == Style::jesus)
            put("<STYLE css=\"color:#ff0000\">");
        else
            put("<STYLE fs=\"italic\">");
    }
    void close(const Piece& opened) override
    {
        put(opened.style == Style::word ? "</gr>" : "</STYLE>");
        if (opened.style == Style::psalmTitle)
            put("<BR art=\"x-nl\"/>");
    }
    void note(const std::string& content) override
    {
        put("<NOTE type=\"x-studynote\">" + inXml(content) + "</NOTE>");
    }
    void heading(const std::string& content) override
    {
        text += "<CAPTION vref=\"1\">" + inXml(content) + "</CAPTION>";
    }
    void block(Kind) override { put("<BR art=\"x-nl\"/>"); }
    void plain(const std::string& content) override { put(inXml(content)); }

private:
    /// What stands before the verse's number stands in the verse, since the format has no other place for it.
    void put(const std::string& markup) { (m_inVerse ? text : m_waiting) += markup; }

    std::string m_waiting;
    bool m_inVerse = false;
};

} // namespace

std::string zefaniaFile(const MarkedBible& bible)
{
    CZefaniaMaker maker;
    maker.text =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<XMLBIBLE biblename=\"Made\" version=\"2.0.1.18\">\n"
        "<INFORMATION><title>Made</title><format>Zefania XML Bible Markup Language</format></INFORMATION>\n";
    for (const MarkedBook& book : bible) {
        maker.text += "<BIBLEBOOK bnumber=\"" + std::to_string(nameOf(book.osis).zefania) + "\" bname=\"" +
                      book.osis + "\">\n";
        forEachChapter(
            book,
            [&](unsigned int chapter) {
                maker.text += "<CHAPTER cnumber=\"" + std::to_string(chapter) + "\">\n";
            },
            [&](const MarkedVerse& verse) { maker.add(verse); }, [&] { maker.text += "</CHAPTER>\n"; });
        maker.text += "</BIBLEBOOK>\n";
    }
    return maker.text + "</XMLBIBLE>\n";
}

} // namespace build_test
