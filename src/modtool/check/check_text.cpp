#include "check_text.h"

#include "byte_spans.h"
#include "check_file.h"
#include "markup_defects.h"
#include "module_format.h"

namespace Kedrin::ModTool {

namespace {

/// It does not stop at the first: a loop without branches is compiled to instructions that examine many bytes at once.
template <typename Is>
bool holdsAny(std::string_view text, Is is)
{
    std::uint8_t found = 0;
    for (const char c : text)
        found |= static_cast<std::uint8_t>(is(static_cast<unsigned char>(c)));
    return found != 0;
}

bool holdsTwoBlanks(std::string_view text)
{
    std::uint8_t found = 0;
    for (std::size_t i = 1; i < text.size(); ++i)
        found |= static_cast<std::uint8_t>(((text[i - 1] ^ ' ') | (text[i] ^ ' ')) == 0);
    return found != 0;
}

CheckID checkOf(MarkupDefect defect)
{
    switch (defect) {
    case MarkupDefect::bracket:
        return CheckID::markupBracket;
    case MarkupDefect::unbalanced:
        return CheckID::markupUnbalanced;
    case MarkupDefect::deep:
        return CheckID::markupDeep;
    case MarkupDefect::unknownTag:
        return CheckID::markupUnknownTag;
    case MarkupDefect::block:
        return CheckID::markupBlock;
    case MarkupDefect::link:
        return CheckID::markupLink;
    case MarkupDefect::gotoChapter:
        return CheckID::markupGotoChapter;
    case MarkupDefect::image:
        return CheckID::markupImage;
    case MarkupDefect::style:
        return CheckID::markupStyle;
    case MarkupDefect::script:
        return CheckID::markupScript;
    case MarkupDefect::comment:
        return CheckID::markupComment;
    case MarkupDefect::entity:
        return CheckID::markupEntity;
    case MarkupDefect::foreignEntity:
        return CheckID::markupForeignEntity;
    }
    return CheckID::count; // no other defect exists
}

/// Checks the verses of one module in order.
class CTextCheck
{
public:
    CTextCheck(const CheckedShape& shape, CFindings& findings) : m_shape(shape), m_findings(findings) {}

    /// Reads all verses; false if they have more bytes than can be checked.
    bool readVerses(std::string_view points, std::string_view content)
    {
        const std::size_t pointsCount = points.size() / pointBytes;
        checkCount(pointsCount);
        m_text.isUnread.assign(m_text.versesCount, true);
        for (std::uint32_t verse = 0; verse < std::min<std::size_t>(m_text.versesCount, pointsCount); ++verse)
            if (!readRecord(content, unsigned32At(points, verse), verse))
                return false;
        checkSpans(content.size());
        return true;
    }

    CheckedText take()
    {
        m_text.words = m_indexer.finish();
        return std::move(m_text);
    }

private:
    void checkCount(std::size_t pointsCount)
    {
        const std::uint64_t total = m_shape.hasStructure ? m_shape.totalVerses : pointsCount;
        m_text.versesCount = static_cast<std::uint32_t>(std::min<std::uint64_t>(total, maxNumberedVerses));
        const auto position = [&] { return std::to_string(pointsCount) + " / " + std::to_string(total); };
        if (pointsCount < total)
            m_findings.addLazily(CheckID::pointsShort, position);
        if (pointsCount > total)
            m_findings.addLazily(CheckID::pointsSurplus, position);
        m_countsAgree = pointsCount >= total && total <= maxNumberedVerses;
    }

    bool readRecord(std::string_view content, std::uint64_t offset, std::uint32_t verse)
    {
        const bool hasLength = offset + verseLengthBytes <= content.size();
        const std::uint64_t length = hasLength ? unsigned16At(content.substr(offset), 0) : 0;
        const std::uint64_t end = offset + verseLengthBytes + length;
        if (!hasLength || end > content.size()) {
            m_findings.addLazily(CheckID::textOffset, [&] {
                return m_shape.positionOf(verse) + ": " + std::to_string(offset) + " / " +
                       std::to_string(content.size());
            });
            m_countsAgree = false;
            return true;
        }
        m_spans.add({offset, end, verse});
        if (offset < m_lastOffset)
            add(CheckID::textOrder, verse);
        m_lastOffset = offset;
        m_textBytes += length;
        if (m_textBytes > maxCheckedTextBytes) {
            m_findings.add(CheckID::sizeLimit, m_shape.positionOf(verse));
            return false;
        }
        readVerse(content.substr(offset + verseLengthBytes, length), verse);
        return true;
    }

    void readVerse(std::string_view stored, std::uint32_t verse)
    {
        m_text.isUnread[verse] = false;
        m_text.emptyVerses += stored.empty();
        if (holdsAny(stored, [](unsigned char byte) { return byte == 0x98; }))
            add(CheckID::textByte98, verse);
        if (holdsAny(stored, [](unsigned char byte) { return (byte < 0x20) | (byte == 0x7F); }))
            add(CheckID::textControl, verse);
        if (holdsAny(stored, [](unsigned char byte) { return byte == 0xAD; }))
            add(CheckID::textSoftHyphen, verse);
        if (stored.starts_with(' ') || stored.ends_with(' ') || holdsTwoBlanks(stored))
            add(CheckID::textBlanks, verse);
        if (!holdsAny(stored, [](unsigned char byte) { return (byte == '<') | (byte == '&'); })) {
            m_indexer.add(stored, verse);
            return;
        }
        m_markup.read(stored);
        for (const CMarkupDefects::Found& found : m_markup.found())
            m_findings.addLazily(checkOf(found.defect),
                                 [&] { return m_shape.positionOf(verse) + ": " + shownBytes(found.where); });
        m_indexer.add(m_markup.plain(), verse);
    }

    void checkSpans(std::size_t contentBytes)
    {
        m_spans.forEachFault(
            contentBytes, [&](std::uint32_t verse) { add(CheckID::textOverlap, verse); },
            [&](std::uint64_t begin, std::uint64_t end) {
                if (m_countsAgree) // otherwise they belong to the verses not reached
                    m_findings.addLazily(CheckID::textUnreachable, [&] {
                        return std::string(textFileName) + ": " + std::to_string(begin) + "-" +
                               std::to_string(end - 1);
                    });
            });
    }

    void add(CheckID check, std::uint32_t verse)
    {
        m_findings.addLazily(check, [&] { return m_shape.positionOf(verse); });
    }

    const CheckedShape& m_shape;
    CFindings& m_findings;
    CheckedText m_text;
    CWordIndexer m_indexer;
    CMarkupDefects m_markup;
    CSpans m_spans;
    bool m_countsAgree = false;
    std::uint64_t m_lastOffset = 0;
    std::uint64_t m_textBytes = 0;
};

} // namespace

std::optional<CheckedText> checkText(const std::string& folder, const CheckedShape& shape,
                                     CFindings& findings)
{
    const auto points = readRecordsForCheck(folder, textPointsFileName, pointBytes, findings);
    const auto content = readForCheck(folder, textFileName, findings);
    if (!points || !content)
        return std::nullopt;
    CTextCheck check(shape, findings);
    if (!check.readVerses(*points, *content))
        return std::nullopt;
    return check.take();
}

} // namespace Kedrin::ModTool
