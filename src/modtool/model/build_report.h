#pragma once

#include "source_findings.h"
#include "text_encoder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

struct ReplacedKind
{
    char32_t from;
    ReplacedCharacter replaced;
    std::string firstPosition;
};

struct OmittedBook
{
    std::string osis;
    std::uint64_t versesCount;
    std::uint64_t letters = 0; ///< and digits
};

/// What became of the letters and digits of a source.
struct LetterAccount
{
    std::optional<std::uint64_t> source; ///< in its text; nothing: not counted
    std::uint64_t attributes = 0;        ///< in the verses, from attributes of the source
    std::int64_t change = 0;             ///< more or fewer by replaced and composed characters
    std::uint64_t module = 0;            ///< in the verses as they are written
};

/// What a module's differences come to.
struct DiffFigures
{
    unsigned int versesCount = 0;
    unsigned int kept = 0;         ///< verses that toGlobal() moves to their true place, and toLocal() back
    unsigned int keptWithout = 0;  ///< the same if the module had no record
    unsigned int withoutPlace = 0; ///< verses that the common numbering does not have, or has in another book
};

/// What a build did, for the user to read.
struct BuildReport
{
    std::string title;  ///< UTF-8
    std::string folder; ///< native bytes
    std::size_t booksCount = 0;
    std::size_t chaptersCount = 0;
    std::size_t versesCount = 0;
    std::size_t wordsCount = 0;
    std::uint64_t occurrences = 0; ///< running words of the list

    SourceFindings findings;               ///< what the reader of the source did
    std::vector<OmittedBook> omittedBooks; ///< not in the common numbering
    Tally emptyVerses;                     ///< kept without text, because verses follow in the chapter
    Tally emptyChapters;             ///< kept as one verse without text, because chapters follow in the book
    std::uint64_t trimmedVerses = 0; ///< without text at the end of a chapter, left out
    std::uint64_t trimmedChapters = 0; ///< without text at the end of a book, left out
    std::uint64_t trimmedBooks = 0;    ///< without any text, left out
    Tally longWords;                   ///< too long for the list of words
    std::vector<ReplacedKind> replaced;
    LetterAccount letters;

    std::string versification;
    bool versificationGuessed = false; ///< chosen by its verse counts
    DiffFigures diff;

    /// The report in full, lines ended by LF.
    std::string text() const;

    /// Where the letters and digits of the source are, lines ended by LF; "" where they were not counted.
    std::string letterAccount() const;

    /// @throws CBuildError  "the source has %s letters and digits, %s are accounted for; this is an error in
    ///                      kedrin-module, please report it"
    void checkLetters() const;

private:
    std::int64_t lettersLeftOut() const;
};

} // namespace Kedrin::ModTool
