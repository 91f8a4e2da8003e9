#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace Kedrin::ModTool {

/// Severity of a finding of `kedrin-module check`.
enum class Severity
{
    note,    ///< worth knowing; the module is sound
    warning, ///< untidy or doubtful; everything can be read and found
    error    ///< something cannot be read, shown or found as it should
};

/// The checks, in the order in which they are reported.
enum class CheckID
{
    fileMissing,
    filePartialRecord,
    sizeLimit,
    infoMissing,
    infoTitle,
    infoLongLine,
    infoBytes,
    infoCopyright,
    titlesMalformed,
    titlesEmpty,
    titlesLong,
    titlesBytes,
    titlesRepeated,
    titlesSurplus,
    booksNone,
    booksTooMany,
    bookNumberUnknown,
    bookNumberRepeated,
    structureMalformed,
    structureSurplus,
    structureEmptyBook,
    structureEmptyChapter,
    structureTooManyVerses,
    diffMalformed,
    diffIdle,
    diffNotBack,
    diffOutside,
    pointsShort,
    pointsSurplus,
    textOffset,
    textOverlap,
    textUnreachable,
    textOrder,
    textByte98,
    textControl,
    textSoftHyphen,
    textBlanks,
    markupBracket,
    markupUnbalanced,
    markupDeep,
    markupUnknownTag,
    markupBlock,
    markupLink,
    markupGotoChapter,
    markupImage,
    markupStyle,
    markupScript,
    markupComment,
    markupEntity,
    markupForeignEntity,
    wordTooLong,
    wordEmpty,
    wordBytes,
    wordLineEnd,
    wordsUnsorted,
    wordsRepeated,
    wordMissing,
    wordUnused,
    wordPointsMissing,
    wordPointsCount,
    wordPointsOffset,
    concPointsShort,
    concPointsSurplus,
    concOffset,
    concOverlap,
    concUnreachable,
    concVerseNumber,
    concOrder,
    concRepeated,
    concMissingVerse,
    concExtraVerse,
    globalStructureMissing,
    globalStructureDiffers,
    modulesSameTitle,
    count ///< number of checks
};

struct Check
{
    CheckID check;
    std::string_view id; ///< "conc-missing-verse": name in all output; never changes
    Severity severity;
    const char* advice; ///< what is wrong and what to do, one or two sentences; English, for tr()
};

/// All checks, indexed by CheckID.
std::span<const Check> checkTable();

inline const Check& checkOf(CheckID check) { return checkTable()[static_cast<std::size_t>(check)]; }

/// The check of that name; nothing for an unknown one.
std::optional<CheckID> checkNamed(std::string_view id);

/// "error", "warning", "note": the same in every language
const char* severityName(Severity severity);

} // namespace Kedrin::ModTool
