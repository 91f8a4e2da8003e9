// The module tool building one Bible from every format that it reads. Times are processor times, including the start of
// the program.

#include "check.h"
#include "made_sqlite.h"
#include "marked_files.h"
#include "measured.h"
#include "plain_maker.h"
#include "process.h"
#include "temp_folder.h"

#include <benchmark/benchmark.h>

#include <zip.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The verses of a module in each format.
class CSources
{
public:
    CSources(std::string program, const std::string& module) : m_program(std::move(program))
    {
        m_lines = versesOf(module, "lines.txt");
        const pid_t writer =
            fork(); // this process stays small, as the peak of its children is at least its own
        if (writer == 0) {
            write();
            std::_Exit(0);
        }
        int status = -1;
        checkAnswer(waitpid(writer, &status, 0) == writer && status == 0, "writing the sources");
    }

    static const std::vector<std::string>& formats()
    {
        static const std::vector<std::string> names{
            "verse_lines", "csv",  "references", "headed_lines", "osis", "zefania", "beblia", "opensong",
            "ces",         "usfx", "json",       "yaml",         "usfm", "usx",     "sqlite", "zip"};
        return names;
    }

    std::vector<std::string> build(const std::string& format) const
    {
        std::vector<std::string> command = {m_program, "build", "--quiet", m_folder.file(format), built()};
        if (format == "yaml") // its first key is a book, which says nothing about the format
            command.insert(command.end(), {"--from", "yaml"});
        return command;
    }

    /// Whether the verses of the built module are those of the original one.
    bool isBuiltRight() const { return versesOf(built(), "built.txt") == m_lines; }

private:
    std::string built() const { return m_folder.file("modules/built"); }

    /// The lines of a module's verses, without those that describe it.
    std::string versesOf(const std::string& module, const std::string& name) const
    {
        const std::string file = m_folder.file(name);
        checkAnswer(runProcess({m_program, "export", module, file, "--to", "verse-lines"}).exitCode == 0,
                    "export");
        std::ifstream in(file);
        std::string verses;
        for (std::string line; std::getline(in, line);)
            if (!line.starts_with('#'))
                verses += line + '\n';
        return verses;
    }

    void write() const
    {
        const build_test::MarkedBible bible = build_test::bibleOfLines(m_lines, "");
        m_folder.write("verse_lines", m_lines);
        m_folder.write("csv", build_test::csvOf(m_lines));
        m_folder.write("references", build_test::referencesOf(m_lines));
        m_folder.write("headed_lines", build_test::headedOf(m_lines));
        m_folder.write("yaml", build_test::yamlOf(m_lines));
        m_folder.write("osis", build_test::osisFile(bible));
        m_folder.write("zefania", build_test::zefaniaFile(bible));
        m_folder.write("beblia", build_test::bebliaFile(bible));
        m_folder.write("opensong", build_test::openSongFile(bible));
        m_folder.write("ces", build_test::cesFile(bible));
        m_folder.write("usfx", build_test::usfxFile(bible));
        m_folder.write("json", build_test::jsonFile(bible));
        for (const auto& [name, content] : build_test::usfmFiles(bible))
            m_folder.write("usfm/" + name, content);
        for (const auto& [name, content] : build_test::usxFiles(bible))
            m_folder.write("usx/" + name, content);
        build_test::writeSqlite(m_folder.file("sqlite"), bible);
        writeArchive();
    }

    /// The lines in a zip archive.
    void writeArchive() const
    {
        zip_t* archive = zip_open(m_folder.file("zip").c_str(), ZIP_CREATE, nullptr);
        checkAnswer(archive &&
                        zip_file_add(archive, "lines.txt",
                                     zip_source_buffer(archive, m_lines.data(), m_lines.size(), 0), 0) >= 0 &&
                        zip_close(archive) == 0,
                    "zip");
    }

    test_support::TempFolder m_folder;
    std::string m_program;
    std::string m_lines;
};

void build(benchmark::State& state, const CSources& sources, const std::string& format)
{
    measureProgram(state, sources.build(format));
    checkAnswer(sources.isBuiltRight(), format.c_str());
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const char* program = std::getenv("KEDRIN_BENCH_TOOL");
    const char* module = std::getenv("KEDRIN_BENCH_MODULE");
    if (benchmark::ReportUnrecognizedArguments(argc, argv) || !program || !module)
        return 1;
    const CSources sources(program, module);
    for (const std::string& format : CSources::formats())
        benchmark::RegisterBenchmark(format.c_str(),
                                     [&](benchmark::State& state) { build(state, sources, format); })
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
