#pragma once

/// 1 in a build with AddressSanitizer, else 0. g++ and clang++ say it in different ways.
#if defined(__SANITIZE_ADDRESS__)
#define KEDRIN_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KEDRIN_ADDRESS_SANITIZER 1
#endif
#endif
#ifndef KEDRIN_ADDRESS_SANITIZER
#define KEDRIN_ADDRESS_SANITIZER 0
#endif

namespace test_support {

inline constexpr bool isSanitized = KEDRIN_ADDRESS_SANITIZER == 1;

} // namespace test_support
