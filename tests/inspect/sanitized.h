#ifndef KOVRAN_TESTS_INSPECT_SANITIZED_H
#define KOVRAN_TESTS_INSPECT_SANITIZED_H

namespace kovran::test {

// Whether the address sanitizer is in this program, and so in the inspector.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool sanitized = true;
#elif defined(__has_feature)
constexpr bool sanitized = __has_feature(address_sanitizer);
#else
constexpr bool sanitized = false;
#endif

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_SANITIZED_H
