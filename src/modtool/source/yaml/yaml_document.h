#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A YAML document as JSON: all scalars are strings, and every value is in the line where it is in the document.
/// Letters outside the scalars must be in comments; those of scalars are compared with the source.
/// @param utf8  valid, without byte order mark
/// @throws CBuildError
///     "%s:%u: not valid YAML: %s", with the library's message
///     "%s:%u: anchors, aliases and tags of YAML are not read", "%s:%u: more than one document in the file"
///     "%s:%u: a key must be a text", "%s:%u: values are nested more than 100 deep"
///     what CLetterProof::compare() throws
std::string jsonOfYaml(const std::string& fileName, std::string_view utf8);

} // namespace Kedrin::ModTool
