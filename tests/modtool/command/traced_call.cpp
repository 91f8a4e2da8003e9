#include "traced_call.h"

#include "temp_folder.h"

#include <fstream>
#include <map>

namespace process_test {

namespace {

/// Those with "?" do not exist on every processor.
const std::string watchedCalls = "?open,openat,?mkdir,mkdirat,write,ftruncate,fsync,?rename,renameat,"
                                 "renameat2,?unlink,unlinkat,?rmdir,flock";

Command traced(const std::string& log, const std::string& calls, const std::vector<Injection>& injections,
               const Command& command)
{
    Command whole{"strace", "-qqq", "-y", "-o", log, "-e", "signal=none", "-e", "trace=" + calls};
    for (const Injection& injection : injections) {
        whole.push_back("-e");
        whole.push_back("inject=" + injection.name + ':' + injection.what +
                        ":when=" + std::to_string(injection.number));
    }
    whole.insert(whole.end(), command.begin(), command.end());
    return whole;
}

/// Sanitizers in the program check memory by writing it to pipes.
bool changesNothing(const std::string& call)
{
    return (call.starts_with("open") && call.find("O_RDONLY") != std::string::npos) ||
           call.find("<pipe:") < call.find('"');
}

} // namespace

std::string fileOf(const TracedCall& call)
{
    const bool isNamed =
        call.name.starts_with("open") || call.name.starts_with("mkdir") || call.name.starts_with("rename");
    const std::size_t end = isNamed ? call.text.rfind('"') : call.text.find('>');
    const std::size_t begin = call.text.rfind(isNamed ? '"' : '<', end - 1) + 1;
    return call.text.substr(begin, end - begin);
}

bool canTrace() { return run(traced("/dev/null", watchedCalls, {}, {"true"})).exitCode == 0; }

Command withInjected(const std::vector<Injection>& injections, const Command& command)
{
    std::string calls;
    for (const Injection& injection : injections)
        calls += (calls.empty() ? "" : ",") + injection.name;
    return traced("/dev/null", calls, injections, command);
}

std::vector<TracedCall> tracedCalls(const Command& command,
                                    const std::function<bool(const std::string&)>& isFirst,
                                    const std::vector<Injection>& injections)
{
    const test_support::TempFolder folder;
    const std::string log = folder.file("log");
    run(traced(log, watchedCalls, injections, command));
    std::vector<TracedCall> calls;
    std::map<std::string, unsigned int> numbers;
    std::ifstream lines(log);
    for (std::string line; std::getline(lines, line);) {
        const std::string name = line.substr(0, line.find('('));
        const unsigned int number = ++numbers[name];
        if ((!calls.empty() || isFirst(line)) && !changesNothing(line))
            calls.push_back({name, number, line});
    }
    return calls;
}

} // namespace process_test
