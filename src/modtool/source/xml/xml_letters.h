#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The proof for an XML document: its character data, whatever elements they stand in, through another XML library
/// than the reader's.
/// @throws CBuildError  what CLetterProof throws; "%s:%u: not well-formed XML: %s"
/// @returns the letters and digits of the document
std::uint64_t proveXmlLetters(const std::string& fileName, std::string_view utf8, std::string_view taken);

} // namespace Kedrin::ModTool
