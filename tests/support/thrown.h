#pragma once

#include <exception>
#include <string>

namespace test_support {

/// what() of the exception of type `Expected`, or of a derived type, that `body` throws. If it throws
/// something else or nothing, a text in angle brackets that says so, which differs from all our messages.
template <typename Expected, typename Body>
std::string messageOf(Body&& body)
{
    try {
        try { // nested, as `Expected` may be std::exception
            body();
        } catch (const Expected& ex) {
            return ex.what();
        }
    } catch (const std::exception& ex) {
        return std::string("<another type: ") + ex.what() + ">";
    } catch (...) {
        return "<another type, no exception of the standard>";
    }
    return "<nothing was thrown>";
}

} // namespace test_support
