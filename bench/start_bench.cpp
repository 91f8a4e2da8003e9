// The start of the program until a chapter is painted, compared with that of a bare window with the same widgets and the
// same page. Times are processor times. This process stays small, as the peak of its children is at least its own.

#include "check.h"
#include "measured.h"
#include "process.h"
#include "temp_folder.h"
#include "window_folder.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned int manyModules = 1000;

std::string probe()
{
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "kedrin_start_probe").string();
}

/// The folders of the applications, and the page of their first chapter.
class CStartFolders
{
public:
    CStartFolders()
    {
        const pid_t writer = fork();
        if (writer == 0) {
            write();
            std::_Exit(0);
        }
        int status = -1;
        checkAnswer(waitpid(writer, &status, 0) == writer && status == 0, "writing the modules");
        const std::string html = runProcess({probe(), "page", m_folder.file("two/modules/bibles/a")}).output;
        checkAnswer(html.find("</") != std::string::npos, "page");
        m_folder.write("page.html", html);
    }

    std::string folder(const char* name) const { return m_folder.file(name); }
    std::string page() const { return m_folder.file("page.html"); }

private:
    void write() const
    {
        const std::string module = folder("two") + "/modules/bibles/a";
        writeWindowFolder(folder("two"));
        writeManyModules(folder("one"), module, 1);
        writeManyModules(folder("many"), module, manyModules);
    }

    test_support::TempFolder m_folder;
};

/// A process from its start until its page is painted.
void start(benchmark::State& state, const std::vector<std::string>& command, const std::string& expected)
{
    checkAnswer(runProcess(command).output == expected, "start");
    measureProgram(state, command);
}

} // namespace

int main(int argc, char** argv)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    const CStartFolders folders;
    const auto add = [](const char* name, const std::vector<std::string>& arguments,
                        const std::string& expected) {
        std::vector<std::string> command{probe()};
        command.insert(command.end(), arguments.begin(), arguments.end());
        benchmark::RegisterBenchmark(name, [=](benchmark::State& state) { start(state, command, expected); })
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    };
    const std::string bare =
        runProcess({probe(), "bare", folders.page()}).output; // "CHARACTERS characters\n"
    checkAnswer(std::atoi(bare.c_str()) > 1000, "bare");
    add("start/bare", {"bare", folders.page()}, bare);
    add("start/window", {"window", folders.folder("two")}, bare + "2 translations\n");
    add("start/one_module", {"window", folders.folder("one")}, bare + "1 translations\n");
    add("start/many_modules", {"window", folders.folder("many")},
        bare + std::to_string(manyModules) + " translations\n");
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
