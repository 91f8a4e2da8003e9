#pragma once

#include "query_json.h"
#include "sword_repositories.h"

#include <ostream>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// Writes repositories, a line each: name and address.
void writeRepositories(const std::vector<SwordRepository>& known, std::ostream& out);

/// Writes the Bibles of a repository, a line each: name, language, size and title.
void writeTexts(const std::vector<OfferedText>& texts, std::ostream& out);

/// Objects with "name" and "address".
Json repositoriesJson(const std::vector<SwordRepository>& known);

/// Appends objects with "repository", "name", "language", "title" and "size".
/// @param list  an array
void addTexts(const std::string& repository, const std::vector<OfferedText>& texts, Json& list);

} // namespace Kedrin::ModTool
