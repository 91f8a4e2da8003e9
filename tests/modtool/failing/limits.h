#pragma once

#include "outcome.h"

namespace failing_test {

/// Runs all trials under limits of the process and with other standard streams.
/// @param all  what is added to
/// @returns a row of the report for each limit
std::string tryLimits(const CScene& scene, const CAttempts& attempts, Counts& all);

} // namespace failing_test
