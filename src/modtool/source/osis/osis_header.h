#pragma once

#include "source_bible.h"
#include "xml_reader.h"

#include <string>

namespace Kedrin::ModTool {

/// Reads the `header` of an OSIS text: the metadata of the work named `workId`, or of the first work if there
/// is none of that name (doc/formats/osis.md).
class COsisHeader
{
public:
    explicit COsisHeader(const std::string& workId) : m_workId(workId) {}

    /// Reads to the end of the current element of `xml`.
    void read(CXmlReader& xml);

    const SourceInfo& info() const { return m_info; }
    const std::string& versification() const { return m_versification; }
    const std::string& text() const { return m_text; } ///< all text in the header

private:
    void readWork(CXmlReader& xml);
    void take(const std::string& element, const std::string& type, const std::string& content);

    std::string m_workId;
    SourceInfo m_info;
    std::string m_versification;
    std::string m_text;
    bool m_found = false;   ///< the wanted work
    bool m_hasWork = false; ///< it, or the first
};

} // namespace Kedrin::ModTool
