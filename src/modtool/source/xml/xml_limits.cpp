#include "xml_limits.h"

#include "errors.h"
#include "messages.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

constexpr unsigned int maxAttributes = 100;
constexpr unsigned int maxRemarks = 100000;

class CScan
{
public:
    CScan(const std::string& fileName, std::string_view text) : m_fileName(fileName), m_text(text) {}

    void run()
    {
        while ((m_at = m_text.find('<', m_at)) < m_text.size()) {
            const std::string_view rest = m_text.substr(m_at);
            if (rest.starts_with("<!--"))
                remark("-->", 4);
            else if (rest.starts_with("<?"))
                remark("?>", 2);
            else if (rest.starts_with("<![CDATA["))
                passBy("]]>", 9);
            else
                element();
        }
    }

private:
    [[noreturn]] void fail(const std::string& what) const
    {
        const std::string_view before = m_text.substr(0, m_at);
        failAtLine(m_fileName, 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')),
                   what);
    }

    /// Goes behind the next `end` that is at least `length` bytes on; behind the text where there is none.
    void passBy(std::string_view end, std::size_t length)
    {
        const std::size_t found = m_text.find(end, m_at + length);
        m_at = found == std::string_view::npos ? m_text.size() : found + end.size();
    }

    void remark(std::string_view end, std::size_t length)
    {
        if (++m_remarks > maxRemarks)
            fail(message("more than %s comments and processing instructions", maxRemarks));
        passBy(end, length);
    }

    void element()
    {
        unsigned int attributes = 0;
        std::size_t i = m_at + 1;
        for (; i < m_text.size() && m_text[i] != '>'; ++i) {
            if (m_text[i] != '"' && m_text[i] != '\'')
                continue;
            if (++attributes > maxAttributes)
                fail(message("an element has more than %s attributes", maxAttributes));
            i = std::min(m_text.find(m_text[i], i + 1), m_text.size());
        }
        m_at = i;
    }

    const std::string& m_fileName;
    std::string_view m_text;
    std::size_t m_at = 0;
    unsigned int m_remarks = 0;
};

} // namespace

void checkXmlLimits(const std::string& fileName, std::string_view utf8) { CScan(fileName, utf8).run(); }

} // namespace Kedrin::ModTool
