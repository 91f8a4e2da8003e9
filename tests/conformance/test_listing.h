#pragma once

#include "rule_table.h"

#include <string>

namespace conformance {

/// Lists the tests of a build by running CTest and the test programs. GoogleTest's tests have their names in
/// CTest; a Qt Test program lists its functions, unless `wholeTests` has its CTest name.
/// @param ctest       the ctest program
/// @param buildFolder where the tests were built
/// @param wholeTests  CTest names of tests that are not divided further
/// @throws std::runtime_error  CTest fails, or a program lists no function
Tests testsOf(const std::string& ctest, const std::string& buildFolder,
              const std::set<std::string>& wholeTests);

} // namespace conformance
