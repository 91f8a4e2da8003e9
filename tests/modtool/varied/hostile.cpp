// Damaged sources of every format are built or refused, with a documented message, little memory and in little time.

#include "hostile.h"

#include "build_fixture.h"
#include "documented_messages.h"
#include "mutation.h"
#include "sanitized.h"

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <iostream>
#include <new>
#include <stdexcept>

namespace varied_test {

namespace {

using test_support::isSanitized;

constexpr rlim_t mostAddresses = 1u << 30;
constexpr time_t mostSeconds = 30;
constexpr unsigned int batchSize = 500;

/// What a forked process writes, and the one that started it reads after its end.
struct Shared
{
    unsigned int current; ///< the input that it works at
    HostileCounts counts;
    std::array<char, 4096> report; ///< of inputs that failed
};

class CSharedMemory
{
public:
    CSharedMemory()
        : m_memory(::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
    {
        if (m_memory == MAP_FAILED)
            throw std::runtime_error("cannot share memory");
        new (m_memory) Shared{};
    }
    ~CSharedMemory() { ::munmap(m_memory, sizeof(Shared)); }
    CSharedMemory(const CSharedMemory&) = delete;
    CSharedMemory& operator=(const CSharedMemory&) = delete;
    Shared* operator->() const { return static_cast<Shared*>(m_memory); }

private:
    void* m_memory;
};

/// The files of fuzz/corpus for the format.
std::vector<std::string> corpusOf(const Format& format)
{
    std::vector<std::string> paths, files;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(KEDRIN_CORPUS "/") + format.corpus))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    for (const std::string& path : paths)
        files.push_back(build_test::bytesOf(path));
    return files;
}

/// A source of the format, of which the seed says what is damaged in it.
std::vector<File> hostileSource(const Format& format, const std::vector<std::string>& corpus,
                                unsigned int seed)
{
    CRandom random(seed);
    if (random.oneIn(4))
        return {{"made", mutated(random.oneOf(corpus), corpus, random)}};
    Text text = randomText(random);
    if (random.oneIn(4))
        mutate(text, random);
    const bool isInArchive = std::strcmp(format.name, "zip") == 0 && random.oneIn(2);
    const Format& written = isInArchive ? random.oneOf(formats().first(formats().size() - 1)) : format;
    std::vector<File> files = written.write(text, random);
    for (File& file : files)
        if (files.size() == 1 || random.oneIn(2))
            file.bytes = mutated(std::move(file.bytes), corpus, random);
    return isInArchive ? std::vector<File>{{"made.zip", zipOf(files, random)}} : files;
}

void limitTime(time_t seconds)
{
    const itimerval limit{{0, 0}, {isSanitized ? 10 * seconds : seconds, 0}};
    ::setitimer(ITIMER_PROF, &limit, nullptr); // its signal ends the process
}

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// The forked process, which builds one source after another.
class CBatch
{
public:
    CBatch(const Format& format, const CSharedMemory& shared, const test_support::TempFolder& folder)
        : m_format(format),
          m_shared(shared),
          m_folder(folder),
          m_corpus(corpusOf(format)),
          m_messages(KEDRIN_DOC)
    {}

    void run(unsigned int first, unsigned int end)
    {
        const rlimit addresses{mostAddresses, mostAddresses};
        if (!isSanitized) // a sanitizer reserves more than any limit
            ::setrlimit(RLIMIT_AS, &addresses);
        for (m_shared->current = first; m_shared->current < end; ++m_shared->current)
            build();
    }

private:
    void build()
    {
        const std::vector<File> files = hostileSource(m_format, m_corpus, m_shared->current);
        std::size_t byteCount = 0;
        for (const File& file : files)
            byteCount += file.bytes.size();
        const std::string path = writeSource(files, m_folder);
        ++m_shared->counts.inputs;
        const double began = processorSeconds();
        limitTime(mostSeconds);
        const build_test::Result result =
            build_test::run({"build", path, m_folder.file("modules/made"), "--substitute"});
        limitTime(0);
        HostileCounts& counts = m_shared->counts;
        counts.mostBytes = std::max(counts.mostBytes, byteCount);
        counts.longestSeconds = std::max(counts.longestSeconds, processorSeconds() - began);
        count(result);
    }

    void count(const build_test::Result& result)
    {
        HostileCounts& counts = m_shared->counts;
        const std::string unknown = m_messages.firstUndocumented(result.err);
        if (result.code == 0 && result.err.empty() && !result.out.empty())
            ++counts.built;
        else if (result.code == 1 && !result.err.empty() && result.out.empty() && unknown.empty())
            ++counts.refused;
        else
            throw std::runtime_error("exit code " + std::to_string(result.code) +
                                     ", undocumented: " + unknown);
    }

    const Format& m_format;
    const CSharedMemory& m_shared;
    const test_support::TempFolder& m_folder;
    const std::vector<std::string> m_corpus;
    const CDocumentedMessages m_messages;
};

/// Forks a process for these inputs, of which one may end it.
/// @returns how it ended; "" if all inputs were built or refused
std::string runBatch(const Format& format, const CSharedMemory& shared,
                     const test_support::TempFolder& folder, unsigned int first, unsigned int end)
{
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot fork");
    if (child == 0) {
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_CORE, &none);
        try {
            CBatch(format, shared, folder).run(first, end);
        } catch (const std::exception& ex) {
            std::strncpy(shared->report.data(), ex.what(), shared->report.size() - 1);
            ::_exit(1);
        }
        ::_exit(0);
    }
    int status = 0;
    rusage used{};
    ::wait4(child, &status, 0, &used);
    HostileCounts& counts = shared->counts;
    counts.mostMemory = std::max(counts.mostMemory, static_cast<std::size_t>(used.ru_maxrss) * 1024);
    if (WIFSIGNALED(status))
        return std::string("ended by ") + ::strsignal(WTERMSIG(status));
    return WEXITSTATUS(status) == 0 ? "" : shared->report.data();
}

} // namespace

HostileCounts buildHostile(const Format& format, const HostileOptions& options)
{
    const CSharedMemory shared;
    const test_support::TempFolder folder;
    const unsigned int end = options.first + options.inputs;
    for (unsigned int next = options.first; next < end; next = shared->current) {
        const std::string failure = runBatch(format, shared, folder, next, std::min(next + batchSize, end));
        if (failure.empty())
            continue;
        ++shared->counts.failed;
        std::cerr << format.name << ", source " << shared->current << ": " << failure << '\n';
        if (!options.keep.empty())
            std::filesystem::copy(
                writeSource(hostileSource(format, corpusOf(format), shared->current), folder),
                std::filesystem::path(options.keep) / (format.name + std::to_string(shared->current)),
                std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
        ++shared->current;
    }
    return shared->counts;
}

} // namespace varied_test
