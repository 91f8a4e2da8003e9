#pragma once

#include <string>

namespace test_support {

/// The message of a module that is refused with a reader's message.
std::string loadingError(const std::string& folder, const std::string& inner);

/// The message for a module of which this file cannot be opened; "" if the file is optional.
std::string refusalOfUnopened(const std::string& fileName, const std::string& module);

/// Whether loading a module may be refused with this message.
bool isPromisedRefusal(const std::string& message, const std::string& folder);

/// Whether validation may refuse a module that loads with this message.
bool isPromisedDoubt(const std::string& message, const std::string& folder);

/// Whether reading a chapter of a damaged module, or going to one, may fail with this message.
bool isPromisedReadingError(const std::string& message);

/// Whether a search in a damaged module may fail with this message.
bool isPromisedSearchError(const std::string& message);

} // namespace test_support
