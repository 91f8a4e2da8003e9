#pragma once

#include "build_fixture.h"
#include "made_lines.h"
#include "made_sqlite.h"
#include "marked_files.h"
#include "marked_maker.h"
#include "osis_writer.h"
#include "real_data.h"
#include "text_columns.h"

#include <algorithm>
#include <sstream>

/// The same text built from every format, and the differences of the modules.
namespace same_text {

using build_test::MarkedBible;
using build_test::Result;
using Kedrin::Tolvo::CBible;
using Kedrin::Tolvo::CRef;

/// A verse that two modules do not have alike, as they store it.
struct Difference
{
    std::string first;
    std::string second;
};

inline std::size_t charactersIn(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return c != ' ' && c != '\n'; }));
}

inline std::string inSmallLetters(std::string text)
{
    for (char& c : text)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
    return text;
}

/// A marked-up format that a text is written in.
struct Format
{
    const char* name; ///< of the module
    const char* onPage;
    bool hasPsalmTitles;   ///< otherwise they are text of their verses
    bool hasHeadingOfBook; ///< one for each book
    bool hasMarkersOfUsfm; ///< otherwise a marker in the text is unknown
};

inline constexpr Format allFormats[] = {{"usfm", "USFM", true, true, true},
                                        {"zefania", "Zefania XML", false, false, false},
                                        {"osis", "OSIS", true, false, false},
                                        {"json", "JSON", false, false, false},
                                        {"beblia", "Beblia XML", false, false, false},
                                        {"opensong", "OpenSong XML", false, false, false},
                                        {"ces", "CES XML", false, false, false},
                                        {"sqlite", "SQLite", false, false, false},
                                        {"usx", "USX", true, true, false},
                                        {"usfx", "USFX", true, true, false}};

inline bool isOf66Books(const MarkedBible& bible)
{
    return std::all_of(bible.begin(), bible.end(), [](const build_test::MarkedBook& book) {
        return build_test::nameOf(book.osis).zefania <= 66;
    });
}

class SameText : public build_test::Building
{
protected:
    std::string moduleNamed(const std::string& name) const { return m_folder.file("modules/" + name); }

    /// Builds the module and keeps its report.
    void build(const std::string& source, const std::string& name)
    {
        const Result result = build_test::run(
            {"build", source, moduleNamed(name), "--substitute", "--versification", m_versification});
        ASSERT_EQ(result.code, 0) << result.err;
        m_reports[name] = result.out;
    }

    /// Builds the text through the marked-up formats that have its books.
    void buildMarked(const MarkedBible& bible)
    {
        for (const auto& [file, content] : build_test::usfmFiles(bible))
            m_folder.write("usfm-files/" + file, content);
        build(m_folder.file("usfm-files"), "usfm");
        for (const auto& [file, content] : build_test::usxFiles(bible))
            m_folder.write("usx-files/" + file, content);
        build(m_folder.file("usx-files"), "usx");
        build(m_folder.write("usfx.xml", build_test::usfxFile(bible)), "usfx");
        build(m_folder.write("zefania.xml", build_test::zefaniaFile(bible)), "zefania");
        build(m_folder.write("osis.xml", build_test::osisFile(bible)), "osis");
        build(m_folder.write("made.json", build_test::jsonFile(bible)), "json");
        build(m_folder.write("ces.xml", build_test::cesFile(bible)), "ces");
        build(m_folder.write("opensong", build_test::openSongFile(bible)), "opensong");
        if (isOf66Books(bible)) {
            build(m_folder.write("beblia.xml", build_test::bebliaFile(bible)), "beblia");
            build_test::writeSqlite(m_folder.file("made.db"), bible);
            build(m_folder.file("made.db"), "sqlite");
        }
        EXPECT_EQ(reportLine("usfm", "kept"), ""); // no marker is unknown
        const build_test::MarkedCounts counts = countMarks(bible);
        for (const Format& format : formats()) {
            expectReported(format.name, "left out      ", counts.notes, " note");
            if (format.hasPsalmTitles)
                expectReported(format.name, "joined        ", counts.psalmTitles, " psalm title");
            expectReported(format.name, "left out      ",
                           counts.headings + (format.hasHeadingOfBook ? bible.size() : 0), " title");
        }
    }

    /// Those that the text was built through.
    std::vector<Format> formats() const
    {
        std::vector<Format> built;
        std::copy_if(std::begin(allFormats), std::end(allFormats), std::back_inserter(built),
                     [&](const Format& format) { return m_reports.contains(format.name); });
        return built;
    }

    void expectReported(const std::string& name, const std::string& label, std::size_t count,
                        const std::string& what) const
    {
        const std::string& report = m_reports.at(name);
        const std::string several = count == 1 ? what : what + 's';
        if (count == 0)
            EXPECT_EQ(report.find(what), std::string::npos) << name << ":\n" << report;
        else
            EXPECT_NE(report.find(label + std::to_string(count) + several + ','), std::string::npos)
                << name << ": " << count << what << "\n"
                << report;
    }

    /// The verses that the module of the name has otherwise than the one named "plain".
    std::vector<Difference> differences(const std::string& name) const
    {
        const CBible plain(moduleNamed("plain")), other(moduleNamed(name));
        EXPECT_EQ(build_test::bytesOf(moduleNamed("plain") + "/BibleStructure.csv"),
                  build_test::bytesOf(moduleNamed(name) + "/BibleStructure.csv"));
        std::vector<Difference> found;
        for (unsigned int book = 0; book < plain.booksCount(); ++book)
            for (unsigned int chapter = 0; chapter < plain.chaptersCount(book); ++chapter)
                for (unsigned int verse = 0; verse < plain.versesCount(book, chapter); ++verse) {
                    const CRef ref(book, chapter, verse, false);
                    if (std::string first = plain[ref], second = other[ref]; first != second)
                        found.push_back({std::move(first), std::move(second)});
                }
        return found;
    }

    /// Characters of all verses but blanks, as they are stored.
    std::size_t charactersOf(const std::string& name) const
    {
        const CBible bible(moduleNamed(name));
        std::size_t count = 0;
        for (unsigned int book = 0; book < bible.booksCount(); ++book)
            for (unsigned int chapter = 0; chapter < bible.chaptersCount(book); ++chapter)
                for (unsigned int verse = 0; verse < bible.versesCount(book, chapter); ++verse)
                    count += charactersIn(bible[CRef(book, chapter, verse, false)]);
        return count;
    }

    /// Compares what a module came to with the row of the page.
    /// @param text     as the page calls it
    /// @param through  the format, as the page calls it
    void expectRow(const std::string& text, const std::string& through, const std::string& name) const
    {
        std::istringstream contents(reportLine(name, "contains")), words(reportLine(name, "words"));
        std::string verses, all, ignored;
        contents >> ignored >> ignored >> ignored >> ignored >> verses;
        words >> ignored >> ignored >> all;
        const std::string row = "| " + text + " | " + through + " | " + verses + " | " + all + " | " +
                                std::to_string(charactersOf(name)) + " | " +
                                (name == "plain" ? "" : std::to_string(differences(name).size()) + ' ') +
                                "|\n";
        EXPECT_NE(m_page.find(row), std::string::npos) << row;
    }

    void expectRows(const std::string& text, const std::string& from) const
    {
        expectRow(text, from, "plain");
        for (const Format& format : formats())
            expectRow(text, format.onPage, format.name);
    }

    /// A line of a module's report, by its first word.
    std::string reportLine(const std::string& name, const std::string& label) const
    {
        return reported({0, m_reports.at(name), ""}, label);
    }

    /// Verse lines and the marked-up formats give the same bytes; nothing comes, nothing goes.
    void expectSameEverywhere(const std::string& lines, const std::string& notes, const std::string& leftOut)
    {
        ASSERT_FALSE(lines.empty());
        build(m_folder.write("plain.vpl", lines), "plain");
        const MarkedBible bible = build_test::bibleOfLines(lines, notes);
        buildMarked(bible);
        for (const Format& through : formats()) {
            const char* format = through.name;
            EXPECT_EQ(differences(format).size(), 0u) << format;
            EXPECT_EQ(reportLine(format, "contains"), reportLine("plain", "contains"));
            EXPECT_EQ(reportLine(format, "words"), reportLine("plain", "words"));
            EXPECT_EQ(build_test::bytesOf(moduleNamed(format) + "/CompactText.bin"),
                      build_test::bytesOf(moduleNamed("plain") + "/CompactText.bin"));
            EXPECT_EQ(build_test::bytesOf(moduleNamed(format) + "/Conc.bin"),
                      build_test::bytesOf(moduleNamed("plain") + "/Conc.bin"));
        }
        EXPECT_EQ(charactersOf("plain"), charactersMarked(bible, {leftOut}));
    }

    /// The same of a text of the test data, whose figures the page has.
    void expectSameOfData(const std::string& name, const std::string& notes, const std::string& leftOut)
    {
        expectSameEverywhere(build_test::realText(name), build_test::realText(notes), leftOut);
        expectRows('`' + name.substr(0, name.find('.')) + '`', "verse lines");
    }

    /// Characters of the text that is marked, but blanks and the books that modules lack.
    static std::size_t charactersMarked(const MarkedBible& bible, const std::vector<std::string>& leftOut)
    {
        std::string text;
        for (const build_test::MarkedBook& book : bible)
            if (std::find(leftOut.begin(), leftOut.end(), book.osis) == leftOut.end())
                for (const build_test::MarkedVerse& verse : book.verses)
                    for (const build_test::Piece& piece : verse.pieces)
                        if (piece.kind == build_test::Piece::Kind::text)
                            text += piece.text;
        return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
            return c != ' ' && c != '\n' && (c & 0xC0) != 0x80; // the first byte of a character
        }));
    }

    const std::string m_page = build_test::bytesOf(KEDRIN_FORMATS_FOLDER "/source-tests.md");
    std::string m_versification = "KJV";
    std::map<std::string, std::string> m_reports;
};

} // namespace same_text
