#pragma once

#include "varied_text.h"

#include <utility>

namespace varied_test {

/// Writes an XML document, and varies what must not matter: attributes in any order, in either quotation mark and with
/// others among them, characters as references and CDATA, comments, processing instructions and blanks.
class CXmlWriter
{
public:
    using Attributes = std::vector<std::pair<std::string, std::string>>;

    explicit CXmlWriter(CRandom& random) : m_random(random) {}

    void open(const std::string& name, Attributes attributes = {});
    void close(const std::string& name);
    /// An element without content.
    void empty(const std::string& name, Attributes attributes = {});
    /// With its content.
    void element(const std::string& name, const Attributes& attributes, const std::string& content);
    void text(const std::string& utf8);
    /// Where blanks do not matter: between elements.
    void gap();

    /// The document with its declaration, in an encoding that it names.
    std::string document();

private:
    void tag(const std::string& name, Attributes& attributes, const char* end);
    std::string reference(char32_t character);
    void remark();
    std::string blanks();

    CRandom& m_random;
    std::string m_document;
};

} // namespace varied_test
