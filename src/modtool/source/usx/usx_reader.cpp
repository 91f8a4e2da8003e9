#include "usx_reader.h"

#include "usfm_elements.h"

namespace Kedrin::ModTool {

namespace {

/// One file.
class CUsxFile final : public CUsfmElements
{
public:
    CUsxFile(const std::string& fileName, std::string_view utf8, CVerseCollector& verses)
        : CUsfmElements(fileName, utf8, verses, {"usx", "<book>"})
    {}

private:
    bool beginsVerse(const std::string& name) const override
    {
        return name == "verse" && m_xml.attribute("eid").empty();
    }

    void start(const std::string& name) override
    {
        if (name == "para")
            startMarker(m_xml.attribute("style"), true);
        else if (name == "char" || name == "cell")
            startMarker(m_xml.attribute("style"), false);
        else if (name == "verse")
            startVerse();
        else if (name == "note")
            leaveOut(ReaderRule::note);
        else if (name == "chapter")
            startChapter();
        else if (name == "book")
            startBook();
        else if (name == "figure")
            leaveOut(ReaderRule::figure);
        else if (name == "sidebar" || name == "periph")
            leaveOut(ReaderRule::outside);
        else if (name == "optbreak" || name == "row")
            m_verses.addBreak();
    }

    void startBook()
    {
        const std::string code = m_xml.attribute("code");
        const std::size_t line = m_xml.line();
        const std::string rest = elementText(m_xml);
        m_verses.leaveOut(ReaderRule::metadata, rest);
        beginBookOf(code, rest, "code", line);
    }

    void startChapter()
    {
        if (m_xml.attribute("eid").empty())
            beginChapter(m_xml.attribute("number"));
        else
            m_verses.endVerse();
    }

    void startVerse()
    {
        const std::string endId = m_xml.attribute("eid");
        if (endId.empty()) {
            beginVerse(m_xml.attribute("number"));
            m_openId = m_xml.attribute("sid");
        } else if (m_openId.empty() || m_openId == endId) {
            m_verses.endVerse();
        }
    }

    std::string m_openId; ///< sid of the last verse begun
};

} // namespace

class CUsxReader::Impl
{
public:
    CVerseCollector verses;
    std::uint64_t letters = 0;
};

CUsxReader::CUsxReader() : m_impl(std::make_unique<Impl>()) {}
CUsxReader::~CUsxReader() = default;

void CUsxReader::read(const std::string& fileName, std::string_view utf8, const std::string& shownName)
{
    m_impl->verses.setFile(shownName);
    m_impl->letters += CUsxFile(fileName, utf8, m_impl->verses).read();
}

SourceBible CUsxReader::finish(const std::string& source)
{
    SourceBible bible = m_impl->verses.finish(source);
    bible.letters = m_impl->letters;
    return bible;
}

} // namespace Kedrin::ModTool
