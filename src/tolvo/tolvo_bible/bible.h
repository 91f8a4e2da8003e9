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
class CTitles;
class CWordList;

/// One translation, loaded from a module folder: verse texts, book titles, counts, the word list, the mapping
/// between the module's own (local) numbers and the common (global) ones, and the search. Made by
/// CBibleModules::loadBible(), owned by whoever called that.
///
/// As a title source it answers in global book numbers; titles() answers in local ones. Fully loaded when the
/// constructor returns, and constant from then on; but its files are read on demand, so one object serves one
/// thread.
class CBible : public ITitles
{
public:
    /// Opens, in this order: BibleTitles.txt, BibleStructure.csv, _Diff_.txt, CompactPoint.bin, CompactText.bin,
    /// WordList.txt, Conc.bin, ConcP.bin, _Info_.txt. The first that fails ends the loading; what was built until
    /// then is abandoned, not released.
    /// @param bibleFolder  native path, with or without a trailing '/', not empty
    /// @throws std::runtime_error  "CBible::CBible(): Error loading Bible (from folder %s);\nError message:
    ///                             \"%s\"", the folder as given and the reader's message; nothing else
    CBible(const std::string& bibleFolder);
    /// Releases every part but the information record, which stays until the process ends.
    virtual ~CBible();
    CBible(const CBible&) = delete;
    CBible& operator=(const CBible&) = delete;

    /// Throws what the constructor would throw for this folder; then refuses, with a message of the same form, what
    /// loads and cannot be read:
    ///     "CTitles::CTitles(): error reading file %s": a number or a title line is missing
    ///     "CBibleSructure::CBibleSructure(): error reading file %s": a whole book follows those that have titles, or
    ///     there are more verses than CompactPoint.bin has records
    ///     what chapterVerses(0, 0) throws
    /// Leaves nothing behind either way. The word list is opened and not read: nothing in it can make the loading fail.
    static void Validate(const std::string& bibleFolder);

    /// The same verse in local numbers; the argument is taken as global whatever its type. Not validated.
    /// @throws std::out_of_range  "CTitles::localID() called for non existing book"
    CRef toLocal(const CRef& globalRef) const;

    /// The same verse in global numbers; the argument is taken as local whatever its type. Not validated.
    /// @throws std::out_of_range  "CTitles::ValidateBookID(): bookID out of range"
    CRef toGlobal(const CRef& localRef) const;

    /// The text of one verse, as stored.
    /// @throws std::out_of_range  "CBible::operator [](): ref type is not known" for a reference that is neither
    ///                            global nor local; the messages of toLocal and CBibleStructure. Nothing else: a
    ///                            damaged text file ends the program.
    std::string operator[](const CRef& ref) const;

    /// The texts of all verses of a chapter, in order; book and chapter are local. What operator[] would give verse
    /// by verse, in two reads where the chapter lies together in the file.
    /// @throws std::out_of_range       as operator[]
    /// @throws std::ios_base::failure  as CBibleText::operator[]: the text is damaged, and each later chapter fails
    ///                                 alike; nothing else
    std::vector<std::string> chapterVerses(unsigned int bookID, unsigned int chapter) const;

    /// Titles by global book number; "" for a book that the module lacks.
    std::string fullTitle(unsigned int globalBookID) const override;
    std::string shortTitle(unsigned int globalBookID) const override;
    std::string abbreviatedTitle(unsigned int globalBookID) const override;

    const CTitles* titles() const { return m_titles; } ///< by local book number; lives as long as this object
    const CBibleInfo* info() const { return m_info; }  ///< never released, see the destructor

    /// Local numbers; what CBibleStructure throws passes.
    unsigned int booksCount() const;
    unsigned int chaptersCount(unsigned int bookID) const;
    unsigned int versesCount(unsigned int bookID, unsigned int chapter) const;
    bool hasBook(unsigned int globalBookID) const;

    unsigned int wordsCount() const;
    std::string getWord(unsigned int wordIndex) const; ///< what CWordList throws passes
    int indexOfWord(const std::string& word) const;    ///< -1: not a word of the module

    /// The verses that hold a text, as global references.
    ///
    ///     wholeWord  caseSensitive
    ///     false      false    substring, without regard to case, as ut::cyr_stristr finds it
    ///     false      true     substring, byte by byte; zero bytes are characters like others
    ///     true       false    `searchText` is one entry of the word list, without regard to case
    ///     true       true     refused
    ///
    /// Substring searches give each verse once, in the module's order; an empty text is in every verse. The whole
    /// word gives what the concordance stores, in its order.
    /// @param searchText    Windows-1251; not trimmed, not split
    /// @param searchResult  cleared, then filled; when an exception comes, it holds the hits before
    /// @throws std::logic_error   "Whole words search may be only case insensitive": searchResult is untouched
    /// @throws std::out_of_range  the module's files disagree. Nothing else: a damaged text file ends the program.
    void search(const std::string& searchText, bool wholeWord, bool caseSensitive,
                std::vector<CRef>& searchResult) const;

    /// search() for a caller that goes on after a damaged file: a failed read of before does not end it, and none of
    /// its own ends what is read after it.
    /// @throws std::logic_error        as search()
    /// @throws std::ios_base::failure  as CBibleText::operator[] and CFileVector::operator[]; nothing else
    void searchVerses(const std::string& searchText, bool wholeWord, bool caseSensitive,
                      std::vector<CRef>& searchResult) const;

    /// "num(31094) -> ref(b, c, v)" for local verse number 31094, or "Demo exception: " and what went wrong.
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
};

} // namespace Kedrin::Tolvo
