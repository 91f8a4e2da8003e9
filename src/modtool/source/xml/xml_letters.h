#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The proof for an XML document: its character data, whatever elements they stand in. A pass of its own, which knows
/// no elements, so that it finds what the reader drops between them.
/// @throws CBuildError  what CLetterProof throws; what CExpatParser::read() throws
/// @returns the letters and digits of the document
std::uint64_t proveXmlLetters(const std::string& fileName, std::string_view utf8, std::string_view taken);

} // namespace Kedrin::ModTool
