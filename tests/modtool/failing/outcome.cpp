#include "outcome.h"

#include "failing_allocation.h"

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <iostream>
#include <stdexcept>

namespace failing_test {

namespace {

constexpr rlim_t longestSeconds = 5;
constexpr const char* program = "kedrin-module: ";
constexpr const char* endOfEngine = "let out an exception that its contract does not name: ";

/// What the C++ library and Qt say where there is no memory for an exception or for a text.
constexpr const char* endsOfLibraries[] = {"'std::bad_alloc'",
                                           "terminate called without an active exception"};

std::string contentOf(int descriptor)
{
    std::string content(static_cast<std::size_t>(::lseek(descriptor, 0, SEEK_END)), '\0');
    if (::pread(descriptor, content.data(), content.size(), 0) != static_cast<ssize_t>(content.size()))
        throw std::runtime_error("cannot read what was written");
    return content;
}

void emptyFile(int descriptor)
{
    if (::ftruncate(descriptor, 0) != 0)
        throw std::runtime_error("cannot empty a file");
    ::lseek(descriptor, 0, SEEK_SET);
}

/// Without files and folders whose names begin with a point: temporary ones and locks.
Snapshot withoutHidden(const Snapshot& files)
{
    Snapshot visible;
    for (const auto& [path, content] : files)
        if (!path.starts_with('.') && path.find("/.") == std::string::npos)
            visible[path] = content;
    return visible;
}

/// The first path that two snapshots do not have alike.
std::string difference(const Snapshot& first, const Snapshot& second)
{
    for (const auto* files : {&first, &second})
        for (const auto& [path, content] : *files)
            if (!first.contains(path) || !second.contains(path) || first.at(path) != second.at(path))
                return path;
    return "";
}

/// Whether a message names a hidden file that remains: one whose lock could not be had, which only its owner may remove,
/// or the folder of a build, to remove which there were too few descriptors.
bool namesHiddenFile(const std::string& errors)
{
    return errors.find(".lock: cannot be written") != std::string::npos ||
           errors.find(".new: cannot be written") != std::string::npos ||
           (errors.find(".building: ") != std::string::npos && errors.ends_with("(Too many open files)\n"));
}

/// Without the folders that a command makes for what it is to write, while they hold nothing but
/// BibleStructure.txt, which tells the reader that modules are there.
Snapshot withoutMadeFolders(Snapshot files, const Snapshot& before)
{
    for (auto file = files.end(); file != files.begin();) {
        const auto next = file--;
        const auto& [path, content] = *file;
        const bool isEmpty = content == "folder" ? next == files.end() || !next->first.starts_with(path + '/')
                                                 : path.ends_with("/BibleStructure.txt");
        if (isEmpty && !before.contains(path))
            file = files.erase(file);
    }
    return files;
}

/// With the names that modules have before one of them is put before the others.
Snapshot inNoOrder(const Snapshot& files)
{
    Snapshot renamed;
    for (const auto& [named, content] : files) {
        std::string path = named;
        if (const std::size_t sign = path.find("/!"); sign != std::string::npos)
            path.erase(sign + 1, 1);
        renamed[path] = content;
    }
    return renamed;
}

/// What a command may do beside what all may.
bool isOwnWay(const Trial& trial, const Attempt& attempt, const Cause& cause, const Snapshot& before,
              const Snapshot& after, const Snapshot& afterSuccess)
{
    const int code = attempt.end.exitCode;
    if (trial.is("check")) // a file that cannot be opened is a finding: a fault, or worth mentioning
        return (code == 0 || code == 1) && !attempt.output.empty() && after == before;
    if (trial.is("list")) // leaves out what it cannot look into
        return code == 0 && after == before;
    if (code != 1 || (attempt.errors.empty() && !cause.hasNoErrors))
        return false;
    if (trial.is("add") && (cause.isMemory || attempt.errors.find("cannot be renamed") != std::string::npos))
        return inNoOrder(after) == inNoOrder(afterSuccess);
    return withoutMadeFolders(after, before) == before;
}

} // namespace

Counts& Counts::operator+=(const Counts& other)
{
    tried += other.tried;
    unchanged += other.unchanged;
    reported += other.reported;
    ended += other.ended;
    cut += other.cut;
    wrong += other.wrong;
    return *this;
}

CAttempts::CAttempts(const CScene& scene)
    : m_scene(scene),
      m_before(scene.snapshot()),
      m_output(::memfd_create("output", 0)),
      m_errors(::memfd_create("errors", 0)),
      m_allocations(static_cast<unsigned long*>(
          ::mmap(nullptr, sizeof(unsigned long), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
{
    if (m_output < 0 || m_errors < 0 || m_allocations == MAP_FAILED)
        throw std::runtime_error("cannot make files in memory");
}

CAttempts::~CAttempts()
{
    ::munmap(m_allocations, sizeof(unsigned long));
    ::close(m_output);
    ::close(m_errors);
}

std::function<int()> CAttempts::body(const Trial& trial, const std::function<void()>& prepare) const
{
    return [&trial, &prepare, this] {
        ::dup2(m_output, STDOUT_FILENO);
        ::dup2(m_errors, STDERR_FILENO);
        const rlimit seconds{longestSeconds, RLIM_INFINITY}; // its signal ends what goes on without end
        ::setrlimit(RLIMIT_CPU, &seconds);
        prepare();
        const int exitCode = m_scene.run(trial);
        *m_allocations = allocationCount();
        return exitCode;
    };
}

Attempt CAttempts::finished(const WatchedEnd& end) const
{
    Attempt attempt{end, contentOf(m_output), contentOf(m_errors), m_scene.snapshot(), *m_allocations};
    if (attempt.after != m_before)
        m_scene.reset();
    return attempt;
}

Attempt CAttempts::run(const Trial& trial, const std::function<void()>& prepare,
                       const FailingCall& failing) const
{
    emptyFile(m_output);
    emptyFile(m_errors);
    return finished(runWatched(body(trial, prepare), failing));
}

Attempt CAttempts::runUnwatched(const Trial& trial, const std::function<void()>& prepare) const
{
    emptyFile(m_output);
    emptyFile(m_errors);
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_CORE, &none);
        constexpr int threw = 99;
        int exitCode = threw;
        try {
            exitCode = body(trial, prepare)();
        } catch (const std::exception& ex) {
            ::dprintf(STDERR_FILENO, "thrown: %s\n", ex.what());
        }
        ::_exit(exitCode);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    WatchedEnd end;
    end.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return finished(end);
}

void CAttempts::judge(const Trial& trial, const Attempt& undisturbed, const Attempt& attempt,
                      const Cause& cause, Counts& counts) const
{
    ++counts.tried;
    const bool mayLeaveFiles = cause.mayLeaveFiles ||
                               attempt.end.exitCode == 0 || // what could not be removed
                               namesHiddenFile(attempt.errors);
    const auto asIs = [&](const Snapshot& files) { return mayLeaveFiles ? withoutHidden(files) : files; };
    const Snapshot after = asIs(attempt.after);
    const bool isAsBefore = after == asIs(m_before), isAsAfter = after == asIs(undisturbed.after);
    const Snapshot visible = withoutHidden(attempt.after);
    const int code = attempt.end.exitCode;
    const bool isSaid = attempt.errors.starts_with(program) && attempt.errors.ends_with('\n') &&
                        attempt.errors.find("this is a bug") == std::string::npos;
    if (code == undisturbed.end.exitCode && isAsAfter && attempt.output == undisturbed.output)
        ++counts.unchanged;
    else if ((code == 1 || code == 3) && (isSaid || cause.hasNoErrors) && (isAsBefore || isAsAfter))
        ++counts.reported;
    else if (isOwnWay(trial, attempt, cause, asIs(m_before), after, asIs(undisturbed.after)))
        ++counts.reported;
    else if (attempt.end.signal == SIGABRT &&
             (attempt.errors.find(endOfEngine) != std::string::npos ||
              (cause.isMemory && std::any_of(std::begin(endsOfLibraries), std::end(endsOfLibraries),
                                             [&](const char* end) {
                                                 return attempt.errors.find(end) != std::string::npos;
                                             }))) &&
             (visible == withoutHidden(m_before) ||
              inNoOrder(visible) == inNoOrder(withoutHidden(undisturbed.after))))
        ++counts.ended;
    else if (code == undisturbed.end.exitCode && ((cause.isMemory && isAsAfter) || trial.usesSword))
        ++counts.cut;
    else {
        ++counts.wrong;
        std::cerr << trial.name << ", " << cause.what << ": exit code " << code << ", signal "
                  << attempt.end.signal << ", output "
                  << (attempt.output == undisturbed.output ? "the same" : "another") << ", "
                  << (isAsBefore  ? "files as before"
                      : isAsAfter ? "files as after"
                                  : "another file: " + difference(m_before, attempt.after))
                  << "\n  " << attempt.errors << '\n';
    }
}

} // namespace failing_test
