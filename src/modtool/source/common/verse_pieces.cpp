#include "verse_pieces.h"

#include "ascii.h"
#include "letters.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

namespace {

/// Whether two consecutive pieces make one verse: the same position, or verse 0 and the next one.
bool belongTogether(const SourceVerse& first, const SourceVerse& second)
{
    return first.book == second.book && first.chapter == second.chapter &&
           (first.verse == second.verse || first.verse == 0);
}

/// Whether the piece repeats the verse of the one before it.
bool isGivenAgain(const VersePiece& before, const VersePiece& piece)
{
    return !piece.isPart && piece.verse.verse == before.verse.verse;
}

/// Joins the pieces from begin to end to one verse.
SourceVerse joined(const std::vector<VersePiece>& pieces, std::size_t begin, std::size_t end,
                   SourceBible& bible)
{
    std::string text;
    for (std::size_t i = begin; i < end; ++i) {
        const VersePiece& piece = pieces[i];
        const std::string_view pieceText = bible.textOf(piece.verse);
        if (i != begin && isGivenAgain(pieces[i - 1], piece)) {
            const bool isRepeated = trimmed(pieceText) == trimmed(bible.textOf(pieces[i - 1].verse));
            bible.findings.add(isRepeated ? ReaderRule::verseRepeated : ReaderRule::verseAgain,
                               bible.positionOf(piece.verse));
            if (isRepeated) {
                bible.findings.addLetters(ReaderRule::verseRepeated, countLetters(pieceText));
                continue;
            }
        }
        text += pieceText;
        text += ' ';
    }
    SourceVerse verse = pieces[begin].verse;
    verse.verse = pieces[end - 1].verse.verse;
    verse.offset = static_cast<std::uint32_t>(bible.text.size());
    verse.byteCount = static_cast<std::uint32_t>(text.size());
    bible.text += text;
    return verse;
}

} // namespace

void joinPieces(std::vector<VersePiece> pieces, SourceBible& bible)
{
    std::stable_sort(pieces.begin(), pieces.end(), [](const VersePiece& a, const VersePiece& b) {
        return a.verse.position() < b.verse.position();
    });
    bible.verses.reserve(pieces.size());
    for (std::size_t begin = 0; begin < pieces.size();) {
        std::size_t end = begin + 1;
        while (end < pieces.size() && belongTogether(pieces[end - 1].verse, pieces[end].verse))
            ++end;
        bible.verses.push_back(end == begin + 1 ? pieces[begin].verse : joined(pieces, begin, end, bible));
        SourceVerse& verse = bible.verses.back();
        verse.verse = std::max<std::uint16_t>(verse.verse, 1); // a chapter of nothing but verse 0
        begin = end;
    }
}

} // namespace Kedrin::ModTool
