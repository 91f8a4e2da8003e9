#pragma once

#include <exception>
#include <string>

namespace test_support {

/// what() of the exception of type `Expected`, or of a type derived from it, that `body` throws. When it throws
/// something else or nothing, a text in angle brackets that says so, which equals no message of ours.
template <typename Expected, typename Body>
std::string messageOf(Body&& body)
{
    try {
        try { // a try of its own: `Expected` may be std::exception
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
