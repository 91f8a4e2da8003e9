#include "osis_header.h"

#include "ascii.h"
#include "versification.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view bible = "Bible.";

/// "KJV" for "Bible.KJV"
std::string_view withoutKind(std::string_view workId)
{
    if (workId.starts_with(bible))
        workId.remove_prefix(bible.size());
    return workId;
}

} // namespace

void COsisHeader::read(CXmlReader& xml)
{
    forEachInside(xml, [&](CXmlReader::Node node) {
        if (node == CXmlReader::Node::text)
            m_text += xml.text();
        if (node != CXmlReader::Node::start || xml.name() != "work")
            return;
        const std::string id = xml.attribute("osisWork");
        const bool isWanted = m_workId.empty() || withoutKind(id) == withoutKind(m_workId);
        if (m_found || (m_hasWork && !isWanted))
            return;
        m_found = isWanted;
        m_hasWork = true;
        m_info = {};
        m_versification.clear();
        m_info.shortTitle = m_info.abbreviatedTitle = id;
        readWork(xml);
    });
}

void COsisHeader::readWork(CXmlReader& xml)
{
    forEachInside(xml, [&](CXmlReader::Node node) {
        if (node == CXmlReader::Node::text)
            m_text += xml.text();
        if (node != CXmlReader::Node::start)
            return;
        const std::string element(xml.name());
        const std::string type = xml.attribute("type");
        const std::string content = elementText(xml);
        m_text += content;
        take(element, type, content);
    });
}

void COsisHeader::take(const std::string& element, const std::string& type, const std::string& content)
{
    if (element == "description" && type == "x-copyright") {
        m_info.copyright.push_back(content);
        return;
    }
    if (element == "description" && type == "x-differences") {
        m_info.differences = content;
        return;
    }
    if (isBlank(content))
        return;
    if (element == "title" && type == "x-short")
        m_info.shortTitle = content;
    else if (element == "title" && type == "x-abbreviation")
        m_info.abbreviatedTitle = content;
    else if (element == "title" && m_info.fullTitle.empty())
        m_info.fullTitle = content;
    else if (element == "description")
        m_info.copyright.push_back(content);
    else if (element == "rights")
        m_info.copyright.push_back((content.find("opyright") == std::string::npos ? "Rights: " : "") +
                                   content);
    else if (element == "publisher")
        m_info.copyright.push_back("Publisher: " + content);
    else if (element == "refSystem" && content.starts_with(bible)) {
        const std::string system = content.substr(bible.size());
        const std::vector<std::string> known = CVersification::names();
        if (std::find(known.begin(), known.end(), system) != known.end())
            m_versification = system;
    }
}

} // namespace Kedrin::ModTool
