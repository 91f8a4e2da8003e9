#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads a YAML document in any structure that is read of JSON (doc/formats/yaml.md).
/// @param utf8  valid, without byte order mark
/// @throws CBuildError  what CYamlDocument and CJsonReader throw
SourceBible readYaml(const std::string& fileName, std::string_view utf8);

/// Whether a text looks like YAML with a Bible in it: among its first lines are nothing but keys, values and comments,
/// and one of the keys is such as `books`, `chapters`, `verses` or `text`.
bool isYaml(std::string_view utf8);

} // namespace Kedrin::ModTool
