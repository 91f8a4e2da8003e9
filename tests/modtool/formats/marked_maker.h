#pragma once

#include "marked_text.h"

namespace build_test {

/// How the formats name a book.
struct BookName
{
    const char* osis;
    const char* usfm;
    unsigned int zefania; ///< 100 and more: the format has none
};

/// @throws std::out_of_range  a book that no text of the tests has
const BookName& nameOf(const std::string& osis);

/// With XML's entities for the characters that are its own.
std::string inXml(const std::string& text);

/// Writes verse after verse. Styles are closed where a paragraph or line ends and opened again behind it.
class CMaker
{
public:
    CMaker() = default;
    virtual ~CMaker() = default;
    CMaker(const CMaker&) = delete;
    CMaker& operator=(const CMaker&) = delete;

    void add(const MarkedVerse& verse)
    {
        bool isBegun = true;
        for (const Piece& piece : verse.pieces)
            isBegun = isBegun && piece.kind != Piece::Kind::verseBegin;
        if (isBegun)
            beginVerse(verse);
        for (const Piece& piece : verse.pieces)
            if (piece.kind == Kind::verseBegin)
                beginVerse(verse);
            else
                add(piece);
        endVerse(verse);
    }

    std::string text;

protected:
    using Kind = Piece::Kind;
    using Style = Piece::Style;

    virtual void beginVerse(const MarkedVerse& verse) = 0;
    virtual void endVerse(const MarkedVerse&) {}
    virtual void open(const Piece& piece) = 0;
    virtual void close(const Piece& opened) = 0;
    virtual void note(const std::string& content) = 0;
    virtual void heading(const std::string& content) = 0;
    virtual void block(Kind kind) = 0;
    virtual void plain(const std::string& content) = 0;

    /// Whether a style is open around the one that is opened or closed.
    bool isNested() const { return !m_open.empty(); }

private:
    void add(const Piece& piece)
    {
        switch (piece.kind) {
        case Kind::text:
            return plain(piece.text);
        case Kind::open:
            open(piece);
            m_open.push_back(piece);
            return;
        case Kind::close:
            return closeLast();
        case Kind::note:
            return note(piece.text);
        case Kind::heading:
            return interrupt([&] { heading(piece.text); });
        default:
            return interrupt([&] { block(piece.kind); });
        }
    }

    void closeLast()
    {
        const Piece opened = m_open.back();
        m_open.pop_back();
        close(opened);
    }

    template <typename Write>
    void interrupt(Write&& write)
    {
        std::vector<Piece> opened;
        while (!m_open.empty()) {
            opened.push_back(m_open.back());
            closeLast();
        }
        write();
        for (; !opened.empty(); opened.pop_back()) {
            open(opened.back());
            m_open.push_back(opened.back());
        }
    }

    std::vector<Piece> m_open;
};

/// Calls `begin` and `end` around the verses of each chapter, and `verse` for each of them.
template <typename Begin, typename Verse, typename End>
void forEachChapter(const MarkedBook& book, Begin&& begin, Verse&& verse, End&& end)
{
    unsigned int chapter = 0;
    for (const MarkedVerse& marked : book.verses) {
        if (marked.chapter != chapter) {
            if (chapter != 0)
                end();
            chapter = marked.chapter;
            begin(chapter);
        }
        verse(marked);
    }
    end();
}

} // namespace build_test
