// conformance RULES CTEST BUILD_FOLDER: prints the tests of each rule; ends with 1 if the table has errors.

#include "rule_table.h"
#include "test_listing.h"

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>

using namespace conformance;

namespace {

std::string contentOf(const char* fileName)
{
    std::ostringstream content;
    content << std::ifstream(fileName, std::ios::binary).rdbuf();
    return content.str();
}

std::set<std::string> testNamesIn(const std::vector<Rule>& rules)
{
    std::set<std::string> names;
    for (const Rule& rule : rules)
        names.insert(rule.tests.begin(), rule.tests.end());
    return names;
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 4) {
        std::cerr << "usage: conformance RULES CTEST BUILD_FOLDER\n";
        return 2;
    }
    const std::vector<Rule> rules = parseRules(contentOf(argv[1]));
    const Tests tests = testsOf(argv[2], argv[3], testNamesIn(rules));
    std::cout << printed(rules, tests);
    for (const std::string& test : testsWithoutRule(rules, tests))
        std::cout << "warning: no rule names " << test << "\n";
    const std::vector<std::string> faults = faultsOf(rules, tests);
    for (const std::string& fault : faults)
        std::cerr << "fault: " << fault << "\n";
    return faults.empty() ? 0 : 1;
} catch (const std::exception& ex) {
    std::cerr << "conformance: " << ex.what() << "\n";
    return 2;
}
