#include "rule_table.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace conformance {

namespace {

std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

bool isNamedBy(const std::string& test, const std::string& name)
{
    if (name.ends_with('*'))
        return test.starts_with(name.substr(0, name.size() - 1));
    return test == name;
}

std::set<std::string> namedBy(const std::string& name, const Tests& tests)
{
    std::set<std::string> found;
    for (const auto& [program, names] : tests)
        for (const std::string& test : names)
            if (isNamedBy(test, name))
                found.insert(test);
    return found;
}

std::set<std::string> namedBy(const std::vector<Rule>& rules, const Tests& tests)
{
    std::set<std::string> found;
    for (const Rule& rule : rules)
        for (const std::string& name : rule.tests)
            found.merge(namedBy(name, tests));
    return found;
}

std::vector<std::string> areasOf(const std::vector<Rule>& rules)
{
    std::vector<std::string> areas;
    for (const Rule& rule : rules)
        if (std::find(areas.begin(), areas.end(), rule.area) == areas.end())
            areas.push_back(rule.area);
    return areas;
}

std::string counted(const std::vector<Rule>& rules, const Tests& tests)
{
    return std::to_string(rules.size()) + " rules, " + std::to_string(namedBy(rules, tests).size()) +
           " tests\n";
}

} // namespace

std::vector<Rule> parseRules(const std::string& text)
{
    std::vector<Rule> rules;
    int lineNumber = 0;
    for (const std::string& line : split(text, '\n')) {
        ++lineNumber;
        if (line.empty() || line.front() == '#')
            continue;
        if (std::count(line.begin(), line.end(), '\t') != 2)
            throw std::runtime_error("line " + std::to_string(lineNumber) +
                                     " has not three columns: " + line);
        const std::vector<std::string> columns = split(line, '\t');
        Rule rule{columns[0], columns[1], {}};
        if (columns.size() > 2)
            std::erase(rule.tests = split(columns[2], ' '), "");
        rules.push_back(rule);
    }
    return rules;
}

std::vector<std::string> faultsOf(const std::vector<Rule>& rules, const Tests& tests)
{
    std::vector<std::string> faults;
    if (rules.empty())
        faults.push_back("there is no rule");
    std::set<std::string> told;
    for (const Rule& rule : rules) {
        const std::string where = rule.area + ": " + rule.sentence;
        if (rule.area.empty() || rule.sentence.empty())
            faults.push_back("without area or sentence: " + where);
        if (!told.insert(where).second)
            faults.push_back("told twice: " + where);
        if (rule.tests.empty())
            faults.push_back("without a test: " + where);
        for (const std::string& name : rule.tests)
            if (namedBy(name, tests).empty())
                faults.push_back("no test " + name + ": " + where);
    }
    return faults;
}

std::vector<std::string> testsWithoutRule(const std::vector<Rule>& rules, const Tests& tests)
{
    const std::set<std::string> named = namedBy(rules, tests);
    std::vector<std::string> others;
    for (const auto& [program, names] : tests) {
        std::vector<std::string> unnamed;
        std::set_difference(names.begin(), names.end(), named.begin(), named.end(),
                            std::back_inserter(unnamed));
        if (unnamed.size() < names.size())
            others.insert(others.end(), unnamed.begin(), unnamed.end());
    }
    return others;
}

std::string printed(const std::vector<Rule>& rules, const Tests& tests)
{
    std::string text;
    for (const std::string& area : areasOf(rules)) {
        std::vector<Rule> ofArea;
        std::copy_if(rules.begin(), rules.end(), std::back_inserter(ofArea),
                     [&](const Rule& rule) { return rule.area == area; });
        text += area + ": " + counted(ofArea, tests);
        for (const Rule& rule : ofArea) {
            text += "  " + rule.sentence + "\n";
            for (const std::string& name : rule.tests)
                text += "      " + name + "\n";
        }
    }
    return text + "all: " + counted(rules, tests);
}

} // namespace conformance
