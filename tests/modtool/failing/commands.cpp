#include "commands.h"

#include "build_fixture.h"
#include "made_sqlite.h"
#include "process_setup.h"
#include "program.h"
#include "sword_access.h"
#include "tolvo_bible.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace failing_test {

namespace fs = std::filesystem;

namespace {

constexpr const char* oldText = "Gen\t1\t1\tВ начало Бог\nGen\t1\t2\tА земята\nJohn\t1\t1\tВ начало\n";
constexpr const char* newText = "Gen\t1\t1\tВ началото\nGen\t2\t1\tТака\nJohn\t1\t1\tСловото &eacute;\n";
constexpr const char* osisText = "<osis><osisText><div type='book' osisID='Gen'><chapter osisID='Gen.1'>"
                                 "<verse osisID='Gen.1.1'>В начало</verse></chapter></div></osisText></osis>";
constexpr const char* usfmText = "\\id GEN\n\\c 1\n\\p\n\\v 1 В начало\n";
constexpr const char* jsonText = R"([{"book": 1, "chapter": 1, "verse": 1, "text": "В начало"}])";
constexpr const char* yamlText = "books:\n- name: Gen\n  chapters:\n  - - В начало\n";

} // namespace

CScene::CScene()
{
    m_sword.add("Made", {{"Gen 1:1", "Бог"}, {"John 1:1", "Слово"}},
                "Description=Направена\nLang=bg\nDistributionLicense=Public Domain\n");
    ::setenv("XDG_DATA_HOME", (folder() + "/data").c_str(), 1);
    makeSources();
    for (const char* name : {"old", "data/kedrin/modules/bibles/own"})
        if (build_test::run({"build", "-q", m_folder.file("sources/old.txt"), folder() + '/' + name}).code !=
            0)
            throw std::runtime_error("cannot build a module");
    m_before = snapshot();
    makeTrials();
}

void CScene::makeSources() const
{
    m_folder.write("sources/old.txt", oldText);
    m_folder.write("sources/new.txt", newText);
    m_folder.write("sources/new.xml", osisText);
    m_folder.write("sources/new.json", jsonText);
    m_folder.write("sources/new.yaml", yamlText);
    m_folder.write("sources/usfm/01GEN.usfm", usfmText);
    m_folder.write("sources/usfm/02EXO.usfm", "\\id EXO\n\\c 1\n\\p\n\\v 1 Ето\n");
    build_test::writeSqlite(m_folder.file("sources/new.db"),
                            {{10, 1, 1, "В начало"}, {730, 1, 1, "Откровение"}});
}

void CScene::makeTrials()
{
    const std::string sources = m_folder.file("sources/"), old = folder() + "/old", made = folder() + "/made";
    m_trials = {{"engine", {}},
                {"help", {"help"}},
                {"build", {"build", sources + "new.txt", made}},
                {"build over a module", {"build", sources + "new.txt", old, "--verbose"}},
                {"build of OSIS", {"build", sources + "new.xml", made, "-q"}},
                {"build of USFM", {"build", sources + "usfm", made, "-q"}},
                {"build of JSON", {"build", sources + "new.json", made, "-q"}},
                {"build of YAML", {"build", sources + "new.yaml", made, "-q"}},
                {"build of SQLite", {"build", sources + "new.db", made, "-q"}},
                {"build of SWORD", {"build", "sword:Made", made, "-q"}, true},
                {"build --all-sword", {"build", "--all-sword", folder() + "/all"}, true},
                {"add", {"add", sources + "new.txt", "--as", "added", "--first"}},
                {"remove", {"remove", "own"}},
                {"get --list", {"get", "--list", "--repository", m_sword.path()}, true},
                {"get", {"get", "Made", "--repository", m_sword.path()}, true},
                {"list", {"list"}},
                {"info", {"info", old}},
                {"words", {"words", old, "--counts"}},
                {"show", {"show", "own", "Gen 1"}},
                {"show --with", {"show", old, "Gen 1-John", "--with", "own", "--format", "html"}},
                {"search", {"search", old, "начало"}},
                {"search --regex", {"search", "--regex", old, "Бог|земя"}},
                {"diff", {"diff", old, "own"}},
                {"check", {"check", old}},
                {"check --json", {"check", "--json", folder() + "/data/kedrin/modules/bibles"}},
                {"export", {"export", old, folder() + "/exported.txt", "--to", "verse-lines"}},
                {"export to the output", {"export", old, "--to", "osis"}}};
}

void CScene::reset() const
{
    fs::remove_all(folder());
    fs::create_directories(folder());
    for (const auto& [path, content] : m_before)
        if (content != "folder")
            m_folder.write("work/" + path, content);
}

Snapshot CScene::snapshot() const
{
    Snapshot files;
    for (const auto& entry : fs::recursive_directory_iterator(folder())) {
        const std::string path = fs::relative(entry.path(), folder());
        if (entry.is_symlink())
            files[path] = "link";
        else
            files[path] = entry.is_directory() ? "folder" : build_test::bytesOf(entry.path());
    }
    return files;
}

void CScene::letOthersRead() const
{
    for (const fs::path& path :
         {m_folder.path(), fs::path(m_sword.path()), fs::path(m_sword.path()).parent_path()})
        if (path != fs::temp_directory_path())
            fs::permissions(path, fs::perms(0755));
}

int CScene::run(const Trial& trial) const
{
    if (trial.arguments.empty())
        return runEngine();
    Kedrin::ModTool::setUpProcess();
    std::vector<const char*> argv{"kedrin-module"};
    for (const std::string& argument : trial.arguments)
        argv.push_back(argument.c_str());
    return Kedrin::ModTool::runProgram(static_cast<int>(argv.size()), argv.data(), Kedrin::ModTool::CSword(),
                                       std::cout, std::cerr, nullptr);
}

/// Opens a module and asks it for what the window does.
int CScene::runEngine() const
{
    using namespace Kedrin::Tolvo;
    try {
        const CBible bible(folder() + "/old");
        for (unsigned int book = 0; book < bible.booksCount(); ++book)
            for (unsigned int chapter = 0; chapter < bible.chaptersCount(book); ++chapter)
                for (unsigned int verse = 0; verse < bible.versesCount(book, chapter); ++verse)
                    std::cout << bible[CRef(book, chapter, verse, false)] << '\n';
        std::vector<CRef> hits;
        bible.search("\xED\xE0\xF7\xE0\xEB\xEE", true, false, hits); // "начало" in Windows-1251
        bible.search("\xE7\xE5\xEC", false, false, hits);
        std::cout << hits.size() << '\n';
        if (!std::cout.flush())
            throw std::runtime_error("the output cannot be written");
        return 0;
    } catch (const std::exception& ex) {
        std::cerr << "kedrin-module: " << ex.what() << '\n';
        return 3;
    }
}

} // namespace failing_test
