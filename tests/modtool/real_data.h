#pragma once

#include <string>

namespace build_test {

/// A text of the folder KEDRIN_TEST_DATA, unpacked where it is packed with xz; "" where there is none.
std::string realText(const std::string& name);

} // namespace build_test
