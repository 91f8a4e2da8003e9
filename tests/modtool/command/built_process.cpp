#include "built_process.h"

namespace process_test {

namespace fs = std::filesystem;

namespace {

std::string textOf(const std::string& lastWord)
{
    std::string text;
    for (const char* book : {"Gen", "Exod"})
        for (unsigned int chapter = 1; chapter <= 10; ++chapter)
            for (unsigned int verse = 1; verse <= 20; ++verse) {
                const std::string position = std::to_string(chapter) + '\t' + std::to_string(verse);
                text += std::string(book) + '\t' + position + "\tДума" + std::to_string(chapter * verse) +
                        " и още " + lastWord + '\n';
            }
    return text;
}

} // namespace

BuiltProcess::BuiltProcess()
{
    m_folder.write("old/Made.vpl", textOf("старо"));
    m_folder.write("new/Made.vpl", textOf("ново"));
    for (const auto& [source, files] : {std::pair(oldSource(), &m_oldFiles), {newSource(), &m_newFiles}}) {
        const std::string built = m_folder.file("kept/" + fs::path(source).parent_path().filename().string());
        EXPECT_EQ(run(tool({"build", "-q", source, built})).exitCode, 0);
        *files = build_test::filesOf(built);
    }
    EXPECT_TRUE(m_oldFiles != m_newFiles);
    m_globalStructure = build_test::bytesOf(m_folder.file("kept/BibleStructure.txt"));
}

void BuiltProcess::beginWithNothing() const
{
    fs::create_directories(modules());
    for (const fs::directory_entry& entry : fs::directory_iterator(modules()))
        fs::remove_all(entry.path());
}

void BuiltProcess::beginWithTheOldModule() const
{
    beginWithNothing();
    fs::copy(m_folder.file("kept/old"), made());
    m_folder.write("modules/BibleStructure.txt", m_globalStructure);
}

testing::AssertionResult BuiltProcess::isWhole() const
{
    if (!fs::exists(fs::symlink_status(made())))
        return testing::AssertionSuccess() << "none";
    const Files files = build_test::filesOf(made());
    if (files == m_oldFiles)
        return testing::AssertionSuccess() << "the old one";
    if (files == m_newFiles)
        return testing::AssertionSuccess() << "the new one";
    return testing::AssertionFailure()
           << "neither the old module nor the new one, of " << files.size() << " files";
}

testing::AssertionResult BuiltProcess::nextBuildSucceeds() const
{
    const build_test::Result result = build_test::run({"build", "-q", newSource(), made()});
    if (result != build_test::Result{0, "", ""})
        return testing::AssertionFailure() << "exit code " << result.code << ": " << result.err;
    if (build_test::filesOf(made()) != m_newFiles)
        return testing::AssertionFailure() << "the next build makes another module";
    if (build_test::bytesOf(modules() + "/BibleStructure.txt") != m_globalStructure)
        return testing::AssertionFailure() << "the next build leaves another BibleStructure.txt";
    const std::vector<std::string> names = build_test::namesIn(modules());
    if (names != std::vector<std::string>{"BibleStructure.txt", "made"})
        return testing::AssertionFailure() << "beside it lies " << testing::PrintToString(names);
    return testing::AssertionSuccess();
}

} // namespace process_test
