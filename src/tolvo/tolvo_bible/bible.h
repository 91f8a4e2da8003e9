#pragma once

#include "tolvo_ref.h"

#include <string>
#include <vector>

namespace Kedrin::Tolvo {

class CBibleInfo;
class CBibleStructure;
class CBibleText;
class CConc;
class CDiff;
class CGlobalRefs;
class CTitles;
class CWordList;

/// One translation, loaded from a module folder: verse texts, book titles, counts, the word list, the mapping
/// between the module's own (local) numbers and the global ones, and the search. Created by
/// CBibleModules::loadBible(), owned by its caller.
///
/// As a title source it takes global book numbers; titles() takes local ones. Fully loaded when the
/// constructor returns, and constant after that; but its files are read on demand, so an object is not
/// thread-safe.
class CBible : public ITitles
{
public:
    /// Opens, in this order: BibleTitles.txt, BibleStructure.csv, _Diff_.txt, CompactPoint.bin,
    /// CompactText.bin, WordList.txt, Conc.bin, ConcP.bin, _Info_.txt. The first failure ends the loading;
    /// the parts built until then are leaked, not released.
    /// @param bibleFolder  native path, with or without a trailing '/', not empty
    /// @throws std::runtime_error  "CBible::CBible(): Error loading Bible (from folder %s);\nError message:
    ///                             \"%s\"", with the folder as given and the reader's message; nothing else
    CBible(const std::string& bibleFolder);
    /// Releases all parts except the information record, which lives until the process ends.
    virtual ~CBible();
    CBible(const CBible&) = delete;
    CBible& operator=(const CBible&) = delete;

    /// Throws what the constructor would throw for this folder; also refuses, with a message of the same
    /// form, a module that loads but cannot be read:
    ///     "CTitles::CTitles(): error reading file %s": a number or a title line is missing
    ///     "CBibleSructure::CBibleSructure(): error reading file %s": there is a further complete book, or
    ///     there are more verses than CompactPoint.bin has records
    ///     the exceptions of chapterVerses(0, 0)
    /// Releases everything in either case. The word list is only read: its content cannot make the loading
    /// fail.
    static void Validate(const std::string& bibleFolder);

    /// The same verse in local numbers; the argument is treated as global regardless of its type. Not
    /// validated.
    /// @throws std::out_of_range  "CTitles::localID() called for non existing book"
    CRef toLocal(const CRef& globalRef) const;

    /// The same verse in global numbers; the argument is treated as local regardless of its type. Not
    /// validated.
    /// @throws std::out_of_range  "CTitles::ValidateBookID(): bookID out of range"
    CRef toGlobal(const CRef& localRef) const;

    /// The text of one verse, as stored.
    /// @throws std::out_of_range  "CBible::operator [](): ref type is not known" for a reference that is
    ///                            neither global nor local; the messages of toLocal and CBibleStructure.
    ///                            Nothing else: a damaged text file ends the program.
    std::string operator[](const CRef& ref) const;

    /// The texts of all verses of a chapter, in order; book and chapter are local. The same texts as
    /// operator[] verse by verse, but with two reads if the chapter is contiguous in the file.
    /// @throws std::out_of_range       as operator[]
    /// @throws std::ios_base::failure  as CBibleText::operator[]: the text is damaged, and every later
    ///                                 chapter fails in the same way; nothing else
    std::vector<std::string> chapterVerses(unsigned int bookID, unsigned int chapter) const;

    /// Titles by global book number; "" for a book that is not in the module.
    std::string fullTitle(unsigned int globalBookID) const override;
    std::string shortTitle(unsigned int globalBookID) const override;
    std::string abbreviatedTitle(unsigned int globalBookID) const override;

    const CTitles* titles() const { return m_titles; } ///< by local book number; lives as long as this object
    const CBibleInfo* info() const { return m_info; }  ///< never released, see the destructor

    /// Local numbers; exceptions as in CBibleStructure.
    unsigned int booksCount() const;
    unsigned int chaptersCount(unsigned int bookID) const;
    unsigned int versesCount(unsigned int bookID, unsigned int chapter) const;
    bool hasBook(unsigned int globalBookID) const;

    unsigned int wordsCount() const;
    std::string getWord(unsigned int wordIndex) const; ///< exceptions as in CWordList
    int indexOfWord(const std::string& word) const;    ///< -1: not a word of the module

    /// The verses that contain a text, as global references.
    ///
    ///     wholeWord  caseSensitive
    ///     false      false    substring, ignoring case, as ut::cyr_stristr finds it
    ///     false      true     substring, byte by byte; a zero byte is an ordinary character
    ///     true       false    `searchText` is one entry of the word list, ignoring case
    ///     true       true     refused
    ///
    /// A substring search finds each verse once, in the module's order; an empty text is in every verse. A
    /// whole-word search returns the verses in the concordance, in its order.
    /// @param searchText    Windows-1251; not trimmed, not split
    /// @param searchResult  cleared, then filled; after an exception it has the hits found before it
    /// @throws std::logic_error   "Whole words search may be only case insensitive": searchResult is
    ///                            untouched
    /// @throws std::out_of_range  the module's files disagree. Nothing else: a damaged text file ends the
    ///                            program.
    void search(const std::string& searchText, bool wholeWord, bool caseSensitive,
                std::vector<CRef>& searchResult) const;

    /// search() for a caller that continues after a damaged file: an earlier failed read does not make it
    /// fail, and its own failed reads do not affect later ones.
    /// @throws std::logic_error        as search()
    /// @throws std::ios_base::failure  as CBibleText::operator[] and CFileVector::operator[]; nothing else
    void searchVerses(const std::string& searchText, bool wholeWord, bool caseSensitive,
                      std::vector<CRef>& searchResult) const;

    /// "num(31094) -> ref(b, c, v)" for local verse number 31094, or "Demo exception: " and the error.
    std::string demoString() const;

private:
    enum class Words
    {
        load,
        openOnly
    };

    CBible() = default; ///< no parts yet
    void openParts(const std::string& bibleFolder, Words words);
    void proveParts(const std::string& bibleFolder) const;
    void searchIn(CBibleText& text, CConc& conc, const std::string& searchText, bool wholeWord,
                  bool caseSensitive, std::vector<CRef>& searchResult) const;
    const CGlobalRefs& globalRefs() const;
    void searchWord(CConc& conc, const std::string& word, std::vector<CRef>& searchResult) const;
    void searchPart(CBibleText& text, const std::string& part, bool caseSensitive,
                    std::vector<CRef>& searchResult) const;

    CBibleStructure* m_structure = nullptr;
    CDiff* m_diff = nullptr;
    CTitles* m_titles = nullptr;
    CBibleText* m_text = nullptr;
    CWordList* m_wordList = nullptr;
    CConc* m_conc = nullptr;
    CBibleInfo* m_info = nullptr;
    mutable CGlobalRefs* m_globalRefs = nullptr; ///< null before the first search
};

} // namespace Kedrin::Tolvo
