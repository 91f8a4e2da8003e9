#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace Kedrin::ModTool {

/// The spans of a file and their owners; finds overlaps and gaps.
class CSpans
{
public:
    struct Span
    {
        std::uint64_t begin, end;
        std::uint32_t owner; ///< number of the verse or word
    };

    void add(Span span)
    {
        m_inOrder &= m_spans.empty() || m_spans.back().begin <= span.begin;
        m_spans.push_back(span);
    }

    /// Calls `overlaps(owner)` for each span that begins inside an earlier one, and `gap(begin, end)` for
    /// each range below `fileEnd` that no span covers.
    template <typename Overlaps, typename Gap>
    void forEachFault(std::uint64_t fileEnd, Overlaps&& overlaps, Gap&& gap)
    {
        if (!m_inOrder)
            std::stable_sort(m_spans.begin(), m_spans.end(),
                             [](const Span& a, const Span& b) { return a.begin < b.begin; });
        std::uint64_t reached = 0;
        for (const Span& span : m_spans) {
            if (span.begin < reached)
                overlaps(span.owner);
            if (span.begin > reached)
                gap(reached, span.begin);
            reached = std::max(reached, span.end);
        }
        if (reached < fileEnd)
            gap(reached, fileEnd);
    }

private:
    std::vector<Span> m_spans;
    bool m_inOrder = true;
};

} // namespace Kedrin::ModTool
