#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace conformance {

/// A rule of the product, in one sentence, and the tests that fail if it is broken.
struct Rule
{
    std::string area;
    std::string sentence;
    /// As CTest lists them; a function of a Qt Test program as "program:function". A name that ends in '*'
    /// means all with this prefix.
    std::vector<std::string> tests;
};

/// The tests of a build: test names by program.
using Tests = std::map<std::string, std::set<std::string>>;

/// Reads lines of three columns, separated by tabs: area, rule, tests separated by blanks. Empty lines and
/// lines that begin with '#' are ignored.
/// @throws std::runtime_error  a line does not have three columns; its text is in the message
std::vector<Rule> parseRules(const std::string& text);

/// The errors of the table, one sentence each: no rules, a rule without a test, a duplicate rule in an area,
/// a test that the build does not have.
std::vector<std::string> faultsOf(const std::vector<Rule>& rules, const Tests& tests);

/// The tests without a rule, in programs of which some rule names a test.
std::vector<std::string> testsWithoutRule(const std::vector<Rule>& rules, const Tests& tests);

/// The table for reading: each area in order of first appearance, with the numbers of its rules and their
/// tests; under it each rule with its tests; the totals at the end.
std::string printed(const std::vector<Rule>& rules, const Tests& tests);

} // namespace conformance
