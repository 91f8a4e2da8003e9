#include "limits.h"

#include "forked.h"
#include "sanitized.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

namespace failing_test {

namespace {

namespace fs = std::filesystem;

using test_support::isSanitized;

/// Something that a forked process does before its command.
struct Limit
{
    std::string name; ///< of the row
    std::function<void()> prepare;
    bool hasNoErrors = false;
    bool isMemory = false;
    bool isOfWriting = false;
};

void limitResource(__rlimit_resource resource, rlim_t most)
{
    const rlimit limit{most, most};
    ::setrlimit(resource, &limit);
}

/// Bytes of address space that this process has.
rlim_t addressesNow()
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

std::vector<Limit> makeLimits()
{
    std::vector<Limit> limits;
    for (int more = 0; more < 8; ++more)
        limits.push_back({"few descriptors", [more] {
                              const int lowest = ::dup(STDERR_FILENO);
                              ::close(lowest);
                              limitResource(RLIMIT_NOFILE, static_cast<rlim_t>(lowest + more));
                          }});
    for (const rlim_t most : {rlim_t{0}, rlim_t{1}, rlim_t{100}, rlim_t{1000}, rlim_t{10000}})
        limits.push_back({"files of limited size", [most] { limitResource(RLIMIT_FSIZE, most); }, most < 100,
                          false, true});
    for (rlim_t more = 0; !isSanitized && more <= (16u << 20); more = more == 0 ? 1u << 16 : 2 * more)
        limits.push_back(
            {"little memory", [more] { limitResource(RLIMIT_AS, addressesNow() + more); }, false, true});
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        limits.push_back(
            {"a closed standard stream", [stream] { ::close(stream); }, stream == STDERR_FILENO});
        limits.push_back({"standard streams of /dev/full",
                          [stream] { ::dup2(::open("/dev/full", O_RDWR), stream); },
                          stream == STDERR_FILENO});
    }
    return limits;
}

/// Takes from all folders, or gives back, the permission to write into them.
void setWritable(const CScene& scene, bool isWritable)
{
    const auto permissions = isWritable ? fs::perms(0777) : fs::perms(0555);
    fs::permissions(scene.folder(), permissions);
    for (const auto& entry : fs::recursive_directory_iterator(scene.folder()))
        if (entry.is_directory())
            fs::permissions(entry.path(), permissions);
}

void tryReadOnly(const CScene& scene, const CAttempts& attempts, Counts& counts)
{
    scene.letOthersRead();
    for (const Trial& trial : scene.trials()) {
        const Attempt undisturbed = attempts.runUnwatched(trial, [] {});
        setWritable(scene, false);
        const Attempt attempt = attempts.runUnwatched(trial, &test_support::becomeNobody);
        setWritable(scene, true);
        attempts.judge(trial, undisturbed, attempt, {"read-only folders"}, counts);
    }
}

} // namespace

std::string tryLimits(const CScene& scene, const CAttempts& attempts, Counts& all)
{
    std::vector<std::pair<std::string, Counts>> rows;
    for (const Limit& limit : makeLimits()) {
        if (rows.empty() || rows.back().first != limit.name)
            rows.emplace_back(limit.name, Counts());
        for (const Trial& trial : scene.trials()) {
            if (limit.isOfWriting && trial.arguments.empty())
                continue; // the engine writes nothing; what the session prints is the test's
            const Attempt undisturbed = attempts.runUnwatched(trial, [] {});
            attempts.judge(trial, undisturbed, attempts.runUnwatched(trial, limit.prepare),
                           {limit.name, false, limit.hasNoErrors, limit.isMemory}, rows.back().second);
        }
    }
    rows.emplace_back("read-only folders", Counts());
    tryReadOnly(scene, attempts, rows.back().second);
    std::ostringstream table;
    for (const auto& [name, counts] : rows) {
        table << "| " << name << " | " << counts.tried << " | " << counts.unchanged << " | "
              << counts.reported << " | " << counts.ended << " |\n";
        all += counts;
    }
    return table.str();
}

} // namespace failing_test
