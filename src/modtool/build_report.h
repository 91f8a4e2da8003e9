#pragma once

#include "diff_search.h"
#include "occasions.h"
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
    std::string firstPlace;
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
    Occasions emptyVerses;                 ///< kept without text, because verses follow in the chapter
    Occasions emptyChapters;         ///< kept as one verse without text, because chapters follow in the book
    std::uint64_t trimmedVerses = 0; ///< without text at the end of a chapter, left out
    std::uint64_t trimmedChapters = 0; ///< without text at the end of a book, left out
    std::uint64_t trimmedBooks = 0;    ///< without any text, left out
    Occasions longWords;               ///< too long for the list of words
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

/// Where the lines of the report go on after their labels.
inline constexpr std::size_t labelColumns = 14;

/// One kind of character in a line of a list: "U+00E6 LATIN SMALL LETTER AE".
std::string describeCharacter(char32_t codePoint);

} // namespace Kedrin::ModTool
