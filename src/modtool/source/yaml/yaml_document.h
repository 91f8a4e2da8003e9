#pragma once

#include "json_document.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// A YAML document as the JSON that it stands for: all scalars are strings, and every value is in the line where it is in
/// the document. Letters outside the scalars must be in comments; those of scalars are compared with the source.
class CYamlDocument
{
public:
    /// @param utf8  valid, without byte order mark; not kept
    /// @throws CBuildError
    ///     "%s:%u: not valid YAML: %s", with the library's message
    ///     "%s:%u: anchors, aliases and tags of YAML are not read", "%s:%u: more than one document in the file"
    ///     "%s:%u: a key must be a text", "%s:%u: values are nested more than 100 deep"
    ///     what CLetterProof::compare() and the second constructor of CJsonDocument throw
    CYamlDocument(const std::string& fileName, std::string_view utf8);
    CYamlDocument(const CYamlDocument&) = delete;
    CYamlDocument& operator=(const CYamlDocument&) = delete;

    const CJsonDocument& tree() const { return m_tree; }

    /// The letter proof. It knows nothing of the tree: all scalars but keys and nulls are text, the markup in
    /// them included.
    /// @param taken  see CLetterProof
    /// @throws CBuildError  what CLetterProof throws
    /// @returns the letters and digits of the text
    std::uint64_t proveLetters(std::string_view taken) const;

private:
    class CConverter;

    struct Text
    {
        std::size_t end; ///< in m_texts
        std::size_t line;
    };

    const std::string& m_fileName;
    std::string m_texts; ///< of the scalars, one after another
    std::vector<Text> m_ends;
    std::size_t m_lastLine = 1;
    CJsonDocument m_tree;
};

} // namespace Kedrin::ModTool
