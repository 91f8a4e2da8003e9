#include "marked_files.h"
#include "marked_maker.h"

namespace build_test {

namespace {

class CUsfmMaker : public CMaker
{
protected:
    void beginVerse(const MarkedVerse& verse) override
    {
        if (verse.verse == 1 && m_titleEnded)
            text += "\n\\p";
        m_titleEnded = false;
        text += "\n\\v " + std::to_string(verse.verse) + ' ';
    }
    void open(const Piece& piece) override
    {
        if (piece.style == Style::psalmTitle)
            text += "\n\\d ";
        else
            text += std::string(isNested() ? "\\+" : "\\") + markerOf(piece.style) + ' ';
    }
    void close(const Piece& opened) override
    {
        if (opened.style == Style::psalmTitle) {
            m_titleEnded = true;
            return;
        }
        if (opened.style == Style::word && !opened.text.empty())
            text += "|strong=\"" + opened.text + '"';
        text += std::string(isNested() ? "\\+" : "\\") + markerOf(opened.style) + '*';
    }
    void note(const std::string& content) override
    {
        std::string plainContent;
        for (const char c : content)
            plainContent += c == '\\' ? '/' : c;
        text += "\\f + \\fr 1:1 \\ft " + plainContent + "\\f*";
    }
    void heading(const std::string& content) override
    {
        text += "\n\\s1 " + content + "\n\\p\n";
        m_titleEnded = false;
    }
    void block(Kind kind) override
    {
        text += kind == Kind::line ? "\n\\q1 " : kind == Kind::item ? "\n\\li1 " : "\n\\p ";
        m_titleEnded = false;
    }
    void plain(const std::string& content) override
    {
        if (m_titleEnded && content.find_first_not_of(' ') != std::string::npos)
            block(Kind::paragraph);
        text += content;
    }

private:
    static std::string markerOf(Style style)
    {
        switch (style) {
        case Style::word:
            return "w";
        case Style::added:
            return "add";
        case Style::divineName:
            return "nd";
        case Style::jesus:
            return "wj";
        case Style::foreign:
            return "tl";
        default:
            return "qs";
        }
    }

    bool m_titleEnded = false; ///< and no paragraph was begun since
};

} // namespace

std::map<std::string, std::string> usfmFiles(const MarkedBible& bible)
{
    std::map<std::string, std::string> files;
    unsigned int place = 0;
    for (const MarkedBook& book : bible) {
        const std::string code = nameOf(book.osis).usfm;
        CUsfmMaker maker;
        maker.text = "\\id " + code + " made for a test\n\\usfm 3.0\n\\h " + book.osis + "\n\\toc1 " +
                     book.osis + "\n\\mt1 " + book.osis;
        forEachChapter(
            book, [&](unsigned int chapter) { maker.text += "\n\\c " + std::to_string(chapter) + "\n\\p"; },
            [&](const MarkedVerse& verse) { maker.add(verse); }, [] {});
        const std::string number = std::to_string(100 + place++);
        files[number.substr(1) + '-' + code + ".usfm"] = maker.text + '\n';
    }
    return files;
}

} // namespace build_test
