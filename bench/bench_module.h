#pragma once

#include <string>

/// A module of the size of a whole Bible, made up the same way at every run: 66 books, 31,102 verses, 60,000
/// distinct words that are as unequally frequent as those of a language, Latin letters, capitals at the beginning
/// of each verse. All benchmarks of one program share it; its folder goes when the program ends.
class CBenchModule
{
public:
    static constexpr unsigned int verseCount = 31102;
    static constexpr unsigned int wordCount = 60000;

    static constexpr const char* commonWord = "yea"; ///< in 20,000 verses
    static constexpr unsigned int commonHits = 20000;
    static constexpr const char* rareWord = "zeboim"; ///< in 300 verses
    static constexpr unsigned int rareHits = 300;

    static constexpr unsigned int longChapterBook = 18; ///< whose chapter 0 has 176 verses
    static constexpr unsigned int longChapterVerses = 176;

    /// The module, made at the first call.
    static const CBenchModule& get();

    const std::string& folder() const { return m_folder; }
    std::string file(const char* name) const { return m_folder + "/" + name; }
    /// The same verses, a line each: what other programs search.
    std::string lines() const { return file("lines.txt"); }

private:
    explicit CBenchModule(const std::string& folder);

    std::string m_folder;
};
