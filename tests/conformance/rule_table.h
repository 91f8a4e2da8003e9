#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace conformance {

/// A rule of the product, in a sentence, and the tests that go red when it is broken.
struct Rule
{
    std::string area;
    std::string sentence;
    /// As CTest lists them; a function of a Qt Test program as "program:function". A name that ends in '*' stands for
    /// all that begin alike.
    std::vector<std::string> tests;
};

/// What a build can run: test names by the program that holds them.
using Tests = std::map<std::string, std::set<std::string>>;

/// Reads lines of three columns, separated by tabs: area, rule, tests separated by blanks. Lines that are empty or
/// begin with '#' say nothing.
/// @throws std::runtime_error  naming a line that has other than three columns
std::vector<Rule> parseRules(const std::string& text);

/// What makes the table untrue, a sentence each: no rule at all, a rule without a test, a rule told twice in its area,
/// a test that the build does not have.
std::vector<std::string> faultsOf(const std::vector<Rule>& rules, const Tests& tests);

/// The tests that no rule names, of those programs of which some rule names a test.
std::vector<std::string> testsWithoutRule(const std::vector<Rule>& rules, const Tests& tests);

/// The table as it is read: each area, in the order in which they come first, with its number of rules and of the
/// tests that they name; under it each rule with its tests. The totals stand last.
std::string printed(const std::vector<Rule>& rules, const Tests& tests);

} // namespace conformance
