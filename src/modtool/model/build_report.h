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

/// Account of the letters and digits of a source.
struct LetterAccount
{
    std::optional<std::uint64_t> source; ///< in its text; nothing: not counted
    std::uint64_t attributes = 0;        ///< in the verses, taken from attributes of the source
    std::int64_t change = 0;             ///< more or fewer by replaced and composed characters
    std::uint64_t module = 0;            ///< in the verses as they are written
};

/// How well a module's difference records map its verses.
struct DiffFigures
{
    unsigned int versesCount = 0;
    unsigned int roundTrips = 0; ///< verses that toGlobal() maps correctly and toLocal() maps back
    unsigned int roundTripsWithoutRecords = 0; ///< the same if the module had no records
    unsigned int withoutPosition = 0; ///< verses that the global numbering lacks, or has in another book
};

/// What a build did, for the user.
struct BuildReport
{
    std::string title;  ///< UTF-8
    std::string folder; ///< native bytes; "": there is none yet
    std::size_t booksCount = 0;
    std::size_t chaptersCount = 0;
    std::size_t versesCount = 0;
    std::size_t wordsCount = 0;
    std::uint64_t occurrences = 0; ///< words of the running text that are in the list

    SourceFindings findings;               ///< what the source reader did
    std::vector<OmittedBook> omittedBooks; ///< not in the global numbering
    Tally emptyVerses;                     ///< kept without text, because verses follow in the chapter
    Tally emptyChapters;             ///< kept as one verse without text, because chapters follow in the book
    std::uint64_t trimmedVerses = 0; ///< without text at the end of a chapter, left out
    std::uint64_t trimmedChapters = 0; ///< without text at the end of a book, left out
    std::uint64_t trimmedBooks = 0;    ///< without any text, left out
    Tally longWords;                   ///< too long for the word list
    std::vector<ReplacedKind> replaced;
    LetterAccount letters;

    std::string versification;
    bool versificationGuessed = false; ///< chosen by its verse counts
    DiffFigures diff;

    /// The full report, printable(), lines ended by LF; first the books with verses that are left out.
    std::string text() const;

    /// What became of the source's letters and digits, lines ended by LF; "" if they were not counted.
    std::string letterAccount() const;

    /// @throws CBuildError  "the source has %s letters and digits, but %s are accounted for; this is a bug in
    ///                      kedrin-module, please report it"
    void checkLetters() const;

private:
    std::int64_t lettersLeftOut() const;
};

} // namespace Kedrin::ModTool
