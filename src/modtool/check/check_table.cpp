#include "check_table.h"

#include "messages.h"

#include <array>

namespace Kedrin::ModTool {

namespace {

using enum CheckID;
using enum Severity;

// clang-format off
constexpr std::array table = {
    // the files
    Check{fileMissing, "file-missing", error, translatable("A file that the reader needs is missing, or is not a regular file that can be opened. Build the module again.")},
    Check{filePartialRecord, "file-partial-record", error, translatable("The file ends in the middle of a record: it was truncated. Build or copy the module again.")},
    Check{sizeLimit, "size-limit", error, translatable("More than any Bible needs (64 MiB for a file, 16 MiB for all verses, 1048576 words in the list, 33554432 numbers in the concordance); the rest was not checked. Build the module again.")},
    // _Info_.txt
    Check{infoMissing, "info-missing", warning, translatable("Without _Info_.txt the folder's name is the module's title. Write one with the title on the first line.")},
    Check{infoTitle, "info-title", error, translatable("The full title, short title or abbreviation is missing: the menu and the tab stay empty. Fill in the first three lines.")},
    Check{infoLongLine, "info-long-line", error, translatable("The reader drops everything from the 256th byte of a line on, including the following lines. Break the line.")},
    Check{infoBytes, "info-bytes", error, translatable("The line contains a control character, or a byte that is not a Windows-1251 character. Write it in Windows-1251.")},
    Check{infoCopyright, "info-copyright", note, translatable("There is no notice of who made the text and how it may be used. Add the copyright after the third line.")},
    // BibleTitles.txt
    Check{titlesMalformed, "titles-malformed", error, translatable("BibleTitles.txt does not begin with the number of books and a number for each of them. Build the module again.")},
    Check{titlesEmpty, "titles-empty", error, translatable("A book has no full title, short title or abbreviation. Add the missing line.")},
    Check{titlesLong, "titles-long", warning, translatable("A title line is longer than 255 bytes, which is too long for other readers. Shorten it.")},
    Check{titlesBytes, "titles-bytes", error, translatable("A title contains a control character, or a byte that is not a Windows-1251 character. Write it in Windows-1251.")},
    Check{titlesRepeated, "titles-repeated", warning, translatable("Two books have the same title or abbreviation and cannot be told apart. Make them different.")},
    Check{titlesSurplus, "titles-surplus", warning, translatable("There are more lines after the last title: the number of books may be wrong. Compare it with the lines.")},
    Check{booksNone, "books-none", error, translatable("The module has no books. Build it from a text that has some.")},
    Check{booksTooMany, "books-too-many", error, translatable("The module has more books than the global numbering, which has 77. Remove those that are not in it.")},
    Check{bookNumberUnknown, "book-number-unknown", error, translatable("The book's number is not in the global numbering (0 to 76): the position is lost in other translations. Correct it.")},
    Check{bookNumberRepeated, "book-number-repeated", error, translatable("Two books have the same global number: only the first is found from other translations. Correct it.")},
    // BibleStructure.csv
    Check{structureMalformed, "structure-malformed", error, translatable("BibleStructure.csv has fewer numbers than the books of BibleTitles.txt need, or something that is not a number. Build the module again.")},
    Check{structureSurplus, "structure-surplus", warning, translatable("There is more after the last book: the two files may describe different books. Build the module again.")},
    Check{structureEmptyBook, "structure-empty-book", error, translatable("A book without chapters breaks the verse numbering. Remove it.")},
    Check{structureEmptyChapter, "structure-empty-chapter", error, translatable("A chapter without verses breaks the verse numbering. Give it one empty verse.")},
    Check{structureTooManyVerses, "structure-too-many-verses", error, translatable("The concordance can number at most 65535 verses. Split the module.")},
    // _Diff_.txt
    Check{diffMalformed, "diff-malformed", error, translatable("A record does not consist of five numbers: it and all records after it are ignored. Correct it.")},
    Check{diffIdle, "diff-idle", warning, translatable("The record has no effect: only the second chapter of a book of the module is shifted, and only by the first record for it. Remove it.")},
    Check{diffNotBack, "diff-not-back", warning, translatable("Verses of the chapter change position when the reader switches to another translation and back. Check whether other records do better.")},
    Check{diffOutside, "diff-outside", note, translatable("Verses of the chapter have no counterpart in the global numbering: other translations cannot show their position.")},
    // CompactPoint.bin and CompactText.bin
    Check{pointsShort, "points-short", error, translatable("CompactPoint.bin has fewer records than BibleStructure.csv has verses: the last verses cannot be read. Build the module again.")},
    Check{pointsSurplus, "points-surplus", warning, translatable("CompactPoint.bin has more records than BibleStructure.csv has verses: verses may be missing from BibleStructure.csv. Build the module again.")},
    Check{textOffset, "text-offset", error, translatable("The verse is outside CompactText.bin: showing it terminates the reader. Build the module again.")},
    Check{textOverlap, "text-overlap", warning, translatable("The verse shares bytes with another verse. Build the module again.")},
    Check{textUnreachable, "text-unreachable", warning, translatable("No verse uses these bytes of CompactText.bin: text may be missing. Build the module again.")},
    Check{textOrder, "text-order", note, translatable("The verse is stored before the one that precedes it: the chapter is slower to read.")},
    Check{textByte98, "text-byte-98", error, translatable("The byte 0x98 is not a Windows-1251 character. Replace it with the intended character.")},
    Check{textControl, "text-control", error, translatable("The verse contains a control character; a zero byte hides the rest of the verse. Remove it.")},
    Check{textSoftHyphen, "text-soft-hyphen", warning, translatable("A soft hyphen prevents its word from being found. Remove it.")},
    Check{textBlanks, "text-blanks", note, translatable("The verse begins or ends with a space, or has several in a row. Remove them.")},
    // markup of the verses
    Check{markupBracket, "markup-bracket", error, translatable("A < does not start a tag, or the tag has no end: text may disappear. Write &lt; for the character.")},
    Check{markupUnbalanced, "markup-unbalanced", error, translatable("A tag is not closed in its verse, or is closed without being open: it affects the rest of the chapter. Balance the tags.")},
    Check{markupDeep, "markup-deep", error, translatable("Tags are nested more than 16 deep. Simplify the markup.")},
    Check{markupUnknownTag, "markup-unknown-tag", warning, translatable("The chapter view does not know the tag and ignores it. Remove it.")},
    Check{markupBlock, "markup-block", error, translatable("The tag starts a new paragraph, so the reader scrolls to the wrong verse. Remove it.")},
    Check{markupLink, "markup-link", error, translatable("An <a> tag ends the verse's own anchor, and links lead nowhere. Remove it.")},
    Check{markupGotoChapter, "markup-goto-chapter", error, translatable("The anchor has the name reserved for chapter links: clicking it changes the chapter. Remove it.")},
    Check{markupImage, "markup-image", error, translatable("The view loads no images, sounds or other files. Remove the tag.")},
    Check{markupStyle, "markup-style", warning, translatable("Style sheets and styles change how the reader's page looks. Remove them.")},
    Check{markupScript, "markup-script", error, translatable("Scripts do not belong in a text and are never run. Remove them.")},
    Check{markupComment, "markup-comment", warning, translatable("A comment or declaration hides text. Remove it.")},
    Check{markupEntity, "markup-entity", error, translatable("The & does not start a character reference that the chapter view knows. Write &amp; for the character.")},
    Check{markupForeignEntity, "markup-foreign-entity", warning, translatable("The entity stands for a character that Windows-1251 lacks: a word with it cannot be found. Replace it.")},
    // WordList.txt and WordPoint.bin
    Check{wordTooLong, "word-too-long", error, translatable("The reader stops at a line of more than 40 bytes, including CR: this word and all words after it cannot be found. Shorten or remove it.")},
    Check{wordEmpty, "word-empty", error, translatable("A line of the word list is empty. Build the module again.")},
    Check{wordBytes, "word-bytes", error, translatable("The word contains a control character, or a byte that is not a Windows-1251 character. Build the module again.")},
    Check{wordLineEnd, "word-line-end", warning, translatable("A line of the word list does not end with CR LF. Build the module again.")},
    Check{wordsUnsorted, "words-unsorted", error, translatable("The word belongs before the one that precedes it: the search may miss both. Sort the list by bytes, ignoring case.")},
    Check{wordsRepeated, "words-repeated", error, translatable("The word is already in the list, perhaps in another case: the search finds only one of them. Merge them.")},
    Check{wordMissing, "word-missing", error, translatable("A word of the text is missing from the list and cannot be found. Build the module again.")},
    Check{wordUnused, "word-unused", warning, translatable("The word occurs in no verse. Build the module again.")},
    Check{wordPointsMissing, "word-points-missing", warning, translatable("WordPoint.bin is missing; this reader does not need it, but others may. Build the module again.")},
    Check{wordPointsCount, "word-points-count", warning, translatable("WordPoint.bin does not have as many records as WordList.txt has words. Build the module again.")},
    Check{wordPointsOffset, "word-points-offset", warning, translatable("The WordPoint.bin record does not point to the start of the word. Build the module again.")},
    // Conc.bin and ConcP.bin
    Check{concPointsShort, "conc-points-short", error, translatable("ConcP.bin has fewer records than WordList.txt has words: the last words cannot be found. Build the module again.")},
    Check{concPointsSurplus, "conc-points-surplus", warning, translatable("ConcP.bin has more records than WordList.txt has words: words may be missing. Build the module again.")},
    Check{concOffset, "conc-offset", error, translatable("The word's entry is outside Conc.bin: searching for the word fails. Build the module again.")},
    Check{concOverlap, "conc-overlap", warning, translatable("The word's entry shares records with another word's. Build the module again.")},
    Check{concUnreachable, "conc-unreachable", warning, translatable("No word uses these records of Conc.bin. Build the module again.")},
    Check{concVerseNumber, "conc-verse-number", error, translatable("The word's entry lists a verse that the module does not have: searching for the word fails. Build the module again.")},
    Check{concOrder, "conc-order", warning, translatable("The word's verses are not in ascending order: hits are shown out of order. Build the module again.")},
    Check{concRepeated, "conc-repeated", warning, translatable("The word's entry lists a verse twice: the hit is shown twice. Build the module again.")},
    Check{concMissingVerse, "conc-missing-verse", error, translatable("The concordance lacks a verse that contains the word: the search misses it. Build the module again.")},
    Check{concExtraVerse, "conc-extra-verse", error, translatable("The concordance lists a verse that does not contain the word: a false hit. Build the module again.")},
    // a modules directory
    Check{globalStructureMissing, "common-structure-missing", warning, translatable("The modules directory has no BibleStructure.txt. Build any module into the directory to write it.")},
    Check{globalStructureDiffers, "common-structure-differs", error, translatable("BibleStructure.txt is not this program's global numbering. Build any module into the directory to rewrite it.")},
    Check{modulesSameTitle, "modules-same-title", error, translatable("Two modules have the same full title: their tabs in the window cannot be told apart. Change one in its _Info_.txt.")},
};
// clang-format on

constexpr bool isInOrder()
{
    for (std::size_t i = 0; i < table.size(); ++i)
        if (table[i].check != static_cast<CheckID>(i))
            return false;
    return table.size() == static_cast<std::size_t>(CheckID::count);
}
static_assert(isInOrder());

} // namespace

std::span<const Check> checkTable() { return table; }

std::optional<CheckID> checkNamed(std::string_view id)
{
    for (const Check& check : checkTable())
        if (check.id == id)
            return check.check;
    return std::nullopt;
}

const char* severityName(Severity severity)
{
    return severity == error     ? translatable("error")
           : severity == warning ? translatable("warning")
                                 : translatable("note");
}

} // namespace Kedrin::ModTool
