#include "read_source.h"
#include "zip_archive.h"

#include "build_fixture.h"
#include "errors.h"
#include "made_sqlite.h"
#include "source_format.h"
#include "source_text.h"
#include "temp_folder.h"

#include <zip.h>

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;
using test_support::TempFolder;

namespace {

using Files = std::vector<std::pair<std::string, std::string>>; // name and content

void require(bool done)
{
    if (!done)
        throw std::runtime_error("cannot make an archive");
}

class ZipArchive : public testing::Test
{
protected:
    void make(const Files& files) const
    {
        std::filesystem::remove(m_file);
        zip_t* archive = zip_open(m_file.c_str(), ZIP_CREATE, nullptr);
        require(archive != nullptr);
        for (const auto& [name, content] : files)
            require((name.ends_with('/')
                         ? zip_dir_add(archive, name.c_str(), ZIP_FL_ENC_UTF_8)
                         : zip_file_add(archive, name.c_str(),
                                        zip_source_buffer(archive, content.data(), content.size(), 0),
                                        ZIP_FL_ENC_UTF_8)) >= 0);
        require(zip_close(archive) == 0);
    }

    SourceBible read(const ReadOptions& options = {}) const { return readSourceFile(m_file, options); }

    SourceBible read(const Files& files) const
    {
        make(files);
        return read();
    }

    /// Without the name of the archive.
    std::string error(const ReadOptions& options = {}) const
    {
        const std::string text = messageOf<CBuildError>([&] { read(options); });
        return text.starts_with(m_file) ? text.substr(m_file.size()) : text;
    }

    std::string errorIn(const Files& files, const ReadOptions& options = {}) const
    {
        make(files);
        return error(options);
    }

    const TempFolder m_folder;
    const std::string m_file = m_folder.file("My Bible.zip");
};

const std::string genesis = "\\id GEN\n\\c 1\n\\v 1 a\n";
const std::string exodus = "\\id EXO\n\\c 1\n\\v 1 b\n";
const std::string osis = "<osis><osisText><verse osisID='Gen.1.1'>a</verse></osisText></osis>";
const std::string severalFiles =
    ": contains several files; only USFM, USX, JSON and plain lines are read from more than one";

TEST_F(ZipArchive, SmallestArchive)
{
    using namespace std::string_literals;
    // One stored file of a byte, "a" in a file named "f": its header, the directory, the end of the directory.
    const std::string sizes = "\x43\xBE\xB7\xE8\1\0\0\0\1\0\0\0\1\0"s; // CRC-32, sizes, length of the name
    const std::string bytes =
        "PK\3\4\x0A\0\0\0\0\0\0\0!\0"s + sizes + "\0\0fa"s + "PK\1\2\x0A\0\x0A\0\0\0\0\0\0\0!\0"s + sizes +
        "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0f"s + "PK\5\6\0\0\0\0\1\0\1\0\x2F\0\0\0\x20\0\0\0\0\0"s;
    std::ofstream(m_file, std::ios::binary) << bytes;
    EXPECT_TRUE(isZipFile(m_file));
    const std::vector<ArchivedFile> files = filesOfZip(m_file);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].name, "f");
    EXPECT_EQ(files[0].content, "a");
}

TEST_F(ZipArchive, OneFileOfAnyFormat)
{
    build_test::writeSqlite(m_folder.file("a.db"), {{10, 1, 1, "a"}, {730, 1, 1, "b"}});
    const std::string database = build_test::bytesOf(m_folder.file("a.db"));
    for (const std::string& content :
         {genesis, osis, std::string("Gen\t1\t1\ta\n"), std::string("Gen 1:1 a\n"),
          std::string(R"([{"book":1,"chapter":1,"verse":1,"text":"a"}])")})
        EXPECT_EQ(linesOf(read({{"folder/", ""}, {"folder/file", content}})), "Gen 1:1 a\n") << content;
    EXPECT_EQ(linesOf(read({{"a.db", database}})), "Gen 1:1 a\nRev 1:1 b\n");
    EXPECT_EQ(read({{"file", genesis}}).info.fullTitle, "My Bible");
    ReadOptions usfm;
    usfm.format = SourceFormat::usfm;
    make({{"f", "text\n" + genesis}});
    EXPECT_EQ(linesOf(read(usfm)), "Gen 1:1 a\n");
}

TEST_F(ZipArchive, SeveralFilesAreReadLikeAFolder)
{
    const Files hidden{{"books/", ""},       {"books/02.usfm", exodus}, {"books/01.usfm", genesis},
                       {"readme.txt", "no"}, {"__MACOSX/01.usfm", "x"}, {"books/.03.usfm", "x"}};
    EXPECT_EQ(linesOf(read(hidden)), "Gen 1:1 a\nExod 1:1 b\n");
    EXPECT_EQ(linesOf(read({{"2.js", R"(var b={"name":"Exodus","chapters":[["b"]]})"},
                            {"1.js", R"(var b={"name":"Genesis","chapters":[["a"]]})"}})),
              "Gen 1:1 a\nExod 1:1 b\n");
    const SourceBible plain = read({{"1.txt", "Gen 1:1 a\n"}, {"2.txt", "Exod 1:1 b\n"}, {"about", "no"}});
    EXPECT_EQ(linesOf(plain), "Gen 1:1 a\nExod 1:1 b\n");
    EXPECT_NE(plain.findings.text().find("the file about, which contains no verses"), std::string::npos);
    EXPECT_EQ(errorIn({{"a/1.usfm", genesis}, {"2.usfm", "\\c 1\n\\v 1 a"}}).substr(0, 10), "/2.usfm:1:");
}

TEST_F(ZipArchive, SingleXmlFileAmongOthers)
{
    EXPECT_EQ(linesOf(read({{"copyright.txt", "All."}, {"bible.xml", "\uFEFF\n" + osis}})), "Gen 1:1 a\n");
    EXPECT_EQ(errorIn({{"a.xml", osis}, {"b.xml", osis}}), severalFiles);
    ReadOptions verseLines;
    verseLines.format = SourceFormat::verseLines;
    EXPECT_EQ(errorIn({{"a", "Gen\t1\t1\ta\n"}, {"b", "Exod\t1\t1\tb\n"}}, verseLines), severalFiles);
}

TEST_F(ZipArchive, NamesAreNeverOpened)
{
    EXPECT_EQ(linesOf(read({{"../../../x/1.usfm", genesis}, {"/etc/passwd.usfm", exodus}})),
              "Gen 1:1 a\nExod 1:1 b\n");
    EXPECT_EQ(errorIn({{"a\nb.usfm", "\\c 1\n\\v 1 a"}}).substr(0, 12), "/a?b.usfm:1:");
    EXPECT_EQ(build_test::namesIn(m_folder.path().string()), std::vector<std::string>{"My Bible.zip"});
}

TEST_F(ZipArchive, SizesAreBounded)
{
    EXPECT_EQ(errorIn({{"a", std::string((64u << 20) + 1, 'a')}}), ": contains more than 64 MiB");
    EXPECT_LT(std::filesystem::file_size(m_file), 1u << 20);
    const std::string part(40u << 20, 'a');
    EXPECT_EQ(errorIn({{"a", part}, {"b", part}}), ": contains more than 64 MiB");
    Files many;
    for (unsigned int i = 0; i < 10001; ++i)
        many.emplace_back(std::to_string(i), "");
    EXPECT_EQ(errorIn(many), ": contains more than 10000 files");
}

TEST_F(ZipArchive, BadArchivesAreRefused)
{
    EXPECT_EQ(errorIn({{"folder/", ""}}), ": contains no files");
    make({{"a", genesis}, {"b", exodus}});
    const std::string whole = build_test::bytesOf(m_file);
    const auto write = [&](const std::string& bytes) { std::ofstream(m_file, std::ios::binary) << bytes; };
    write(whole.substr(0, 40));
    EXPECT_EQ(error().substr(0, 26), ": not a valid zip archive:");
    for (std::size_t length = 4; length < whole.size(); length += 3) {
        write(whole.substr(0, length));
        EXPECT_NE(error(), "");
    }
    for (std::size_t i = 4; i < whole.size(); ++i) {
        std::string spoilt = whole;
        spoilt[i] = static_cast<char>(spoilt[i] ^ 0x55);
        write(spoilt);
        try {
            read();
        } catch (const CBuildError&) {
        }
    }
    EXPECT_EQ(messageOf<CBuildError>([&] { filesOfZip(m_folder.file("none")); }),
              m_folder.file("none") + ": cannot be opened");
}

TEST_F(ZipArchive, BookIsGivenOnlyToPlainLines)
{
    ReadOptions options;
    options.book = "Gen";
    EXPECT_EQ(errorIn({{"a.usfm", genesis}, {"b.usfm", exodus}}, options),
              ": --book is for a file of plain lines");
    make({{"a.txt", "1:1 a\n"}});
    EXPECT_EQ(linesOf(read(options)), "Gen 1:1 a\n");
}

} // namespace
