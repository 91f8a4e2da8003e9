#pragma once

#include <exception>
#include <utility>

namespace ut {

/// Writes one line to standard error with the operation and the message, then calls std::terminate().
[[noreturn]] void end_program(const char* operation, const char* message) noexcept;

/// Runs `body` and returns its result. Exceptions of the types `Allowed` (and types derived from them) pass;
/// any other ends the program through end_program(). This enforces the documented exception list of an
/// operation: callers handle the types of the list and nothing else can reach them.
/// @param operation  name of the operation, the prefix of its messages, for example "CBible::toLocal()"
template <typename... Allowed, typename Body>
decltype(auto) lets_out(const char* operation, Body&& body)
{
    try {
        return std::forward<Body>(body)();
    } catch (const std::exception& ex) {
        if ((... || (dynamic_cast<const Allowed*>(&ex) != nullptr)))
            throw;
        end_program(operation, ex.what());
    } catch (...) {
        end_program(operation, "an exception of unknown type");
    }
}

} // namespace ut
