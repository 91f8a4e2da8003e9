#pragma once

#include "rule_table.h"

#include <string>

namespace conformance {

/// Asks CTest and the test programs of a build what they would run. GoogleTest's tests have the names that CTest
/// knows; a program of Qt Test is asked for its functions, unless `wholeTests` has its name for CTest.
/// @param ctest       the ctest program
/// @param buildFolder where the tests were built
/// @param wholeTests  CTest's names of tests that are not divided further
/// @throws std::runtime_error  when CTest does not answer, or a program lists no function
Tests testsOf(const std::string& ctest, const std::string& buildFolder,
              const std::set<std::string>& wholeTests);

} // namespace conformance
