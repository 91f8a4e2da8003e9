#include "seed_run.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <poll.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test_support {

namespace {

/// The outcomes of consecutive seeds that one forked process reports.
class Process
{
public:
    Process(unsigned int first, unsigned int count, const std::function<Outcome(unsigned int)>& tryOne)
    {
        int ends[2];
        if (::pipe(ends) != 0)
            throw std::runtime_error("cannot make a pipe");
        std::fflush(nullptr);
        m_id = ::fork();
        if (m_id < 0)
            throw std::runtime_error("cannot fork");
        if (m_id == 0) {
            ::close(ends[0]);
            report(ends[1], first, count, tryOne);
        }
        ::close(ends[1]);
        m_reports = ends[0];
    }
    ~Process()
    {
        ::close(m_reports);
        if (m_hangs)
            ::kill(m_id, SIGKILL);
        if (!m_hasEnded)
            waitForEnd();
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// The outcome of the next seed; an empty one if the process has ended as it should. Must not be called
    /// again after an outcome that is an end or a hang.
    Outcome next(unsigned int seconds)
    {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        while (m_received.find('\n') == std::string::npos) {
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                limit - std::chrono::steady_clock::now());
            pollfd reports = {m_reports, POLLIN, 0};
            if (left.count() <= 0 || ::poll(&reports, 1, static_cast<int>(left.count())) == 0) {
                m_hangs = true;
                return {"hangs", false, true};
            }
            char bytes[4096];
            const ssize_t count = ::read(m_reports, bytes, sizeof bytes);
            if (count == 0)
                return endOutcome();
            if (count > 0)
                m_received.append(bytes, static_cast<std::size_t>(count));
        }
        const std::size_t length = m_received.find('\n');
        const std::string line = m_received.substr(0, length);
        m_received.erase(0, length + 1);
        return {line.substr(2), line[0] == '+', line[1] == '*'};
    }

private:
    static constexpr int reported = 77; // exit code of a process that has reported all its seeds

    [[noreturn]] static void report(int reports, unsigned int first, unsigned int count,
                                    const std::function<Outcome(unsigned int)>& tryOne)
    {
        const rlimit none = {0, 0};
        ::setrlimit(RLIMIT_CORE, &none);
        for (unsigned int seed = first; seed - first < count; ++seed) {
            Outcome outcome;
            try {
                outcome = tryOne(seed);
            } catch (const std::exception& ex) {
                outcome = {std::string("throws ") + ex.what(), false, true};
            }
            for (char& c : outcome.name)
                c = c == '\n' ? ' ' : c;
            const std::string line = std::string(outcome.allowed ? "+" : "-") +
                                     (outcome.processIsSpent ? "*" : " ") + outcome.name + "\n";
            if (::write(reports, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
                break;
            if (outcome.processIsSpent)
                break;
        }
        std::fflush(nullptr);
        ::_exit(reported);
    }

    int waitForEnd()
    {
        int status = 0;
        while (::waitpid(m_id, &status, 0) < 0 && errno == EINTR) {
        }
        m_hasEnded = true;
        return status;
    }

    Outcome endOutcome()
    {
        const int status = waitForEnd();
        if (WIFSIGNALED(status))
            return {"ended by signal " + std::to_string(WTERMSIG(status)), false, true};
        if (WEXITSTATUS(status) == reported)
            return {};
        return {"exits with " + std::to_string(WEXITSTATUS(status)), false, true};
    }

    pid_t m_id = -1;
    int m_reports = -1;
    bool m_hangs = false;
    bool m_hasEnded = false;
    std::string m_received;
};

/// Prints a table and writes it as lines of outcome, tab, count.
void tell(const std::map<std::string, unsigned int>& counts, const std::string& countsFile)
{
    std::ofstream file(countsFile);
    for (const auto& [name, count] : counts) {
        std::printf("%8u  %s\n", count, name.c_str());
        file << name << '\t' << count << '\n';
    }
}

} // namespace

SeedRun seedRunOf(int argc, char** argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    SeedRun run;
    if (arguments.size() > 2 && arguments[0] == "--counts") {
        run.countsFile = arguments[1];
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: %s [--counts FILE] FIRST COUNT\n", argv[0]);
        std::exit(2);
    }
    run.first = static_cast<unsigned int>(std::stoul(arguments[0]));
    run.count = static_cast<unsigned int>(std::stoul(arguments[1]));
    return run;
}

int trySeeds(const SeedRun& run, const std::function<Outcome(unsigned int seed)>& tryOne)
{
    std::map<std::string, unsigned int> counts;
    bool allAllowed = true;
    const unsigned int end = run.first + run.count;
    for (unsigned int seed = run.first; seed < end;) {
        Process process(seed, std::min(run.perProcess, end - seed), tryOne);
        for (bool goesOn = true; goesOn;) {
            const Outcome outcome = process.next(run.secondsForOne);
            if (outcome.name.empty())
                break;
            ++counts[outcome.name];
            if (!outcome.allowed) {
                std::printf("seed %u: %s\n", seed, outcome.name.c_str());
                std::fflush(stdout);
            }
            allAllowed = allAllowed && outcome.allowed;
            goesOn = !outcome.processIsSpent;
            ++seed;
        }
    }
    tell(counts, run.countsFile);
    return allAllowed ? 0 : 1;
}

} // namespace test_support
