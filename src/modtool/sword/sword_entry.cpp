#include "sword_entry.h"

#include "ascii.h"
#include "letters.h"
#include "stray_markers.h"
#include "sword_elements.h"
#include "sword_text.h"

#include <algorithm>
#include <vector>

namespace Kedrin::ModTool {

namespace {

using Form = SwordPiece::Form;
using Kind = SwordEntryContext::Kind;

constexpr std::size_t nowhere = std::string_view::npos;

class CEntryReader
{
public:
    CEntryReader(std::string_view raw, const SwordEntryContext& context, SourceFindings& findings)
        : m_context(context),
          m_findings(findings),
          m_pieces(swordPieces(raw))
    {}

    SwordEntry read()
    {
        beginInNote();
        for (; m_index < m_pieces.size(); ++m_index) {
            closeElements();
            if (m_pieces[m_index].form == Form::text)
                addText(m_pieces[m_index].bytes);
            else
                addTag(m_pieces[m_index]);
        }
        closeElements();
        if (m_hasOutside)
            m_findings.add(ReaderRule::outside, m_context.name);
        countLetters(ReaderRule::outside, m_outsideLetters);
        return {m_verse.take(), m_title.take(), m_leftOut};
    }

private:
    enum class State
    {
        verse,
        title, ///< a psalm title in the introduction of a chapter
        outside,
        removed
    };

    /// An element that decides what becomes of the text in it; the innermost one decides.
    struct Element
    {
        State state;
        std::size_t end; ///< index of its last piece, or the number of pieces
        ReaderRule rule; ///< of one that is removed
        std::uint64_t letters = 0;
    };

    State state() const
    {
        if (!m_open.empty())
            return m_open.back().state;
        return m_context.kind != Kind::verse || m_isBehindBook ? State::outside : State::verse;
    }

    /// A note that began in the entry before was counted there.
    void beginInNote()
    {
        const auto isEnd = [](const SwordPiece& piece) {
            return piece.form == Form::end && piece.name == "note";
        };
        const auto end = std::find_if(m_pieces.begin(), m_pieces.end(), isEnd);
        if (m_context.beginsInNote && end != m_pieces.end())
            m_open.push_back(
                {State::removed, static_cast<std::size_t>(end - m_pieces.begin()), ReaderRule::note});
    }

    void closeElements()
    {
        for (std::size_t i = m_open.size(); i-- != 0;)
            if (m_open[i].end <= m_index) {
                const Element element = m_open[i];
                m_open.erase(m_open.begin() + static_cast<std::ptrdiff_t>(i));
                close(element);
            }
    }

    void close(const Element& element)
    {
        if (element.end == m_preverseEnd)
            m_preverseEnd = nowhere;
        if (element.state != State::removed)
            return;
        countLetters(element.rule, element.letters);
        CSwordText* const text = target();
        if (text && element.rule == ReaderRule::title)
            text->addBreak();
        else if (text)
            text->addGap();
    }

    void countLetters(ReaderRule rule, std::uint64_t count)
    {
        m_findings.addLetters(rule, count);
        m_leftOut += count;
    }

    void addTag(const SwordPiece& tag)
    {
        CSwordText* const text = target();
        if (text && tag.name == "w")
            text->setInWord(tag.form == Form::start);
        else if (text && tag.name == "divineName")
            text->setInName(tag.form == Form::start, m_index);
        else if (text && isBreak(tag))
            text->addBreak();
        if (tag.name == "div" && tag.form == Form::empty)
            addMilestone(tag);
        else if (tag.form == Form::start)
            open(tag);
    }

    void addMilestone(const SwordPiece& tag)
    {
        if (swordAttribute(tag.bytes, "type") == "book" && !swordAttribute(tag.bytes, "eID").empty())
            m_isBehindBook = true;
        if (m_preverseEnd != nowhere || m_hasNoPreverseEnd || !isPreverse(tag, "sID") || !m_open.empty())
            return;
        m_preverseEnd = preverseEnd(swordAttribute(tag.bytes, "sID"));
        m_hasNoPreverseEnd = m_preverseEnd == nowhere;
        if (!m_hasNoPreverseEnd)
            m_open.push_back({State::outside, m_preverseEnd, ReaderRule::outside});
    }

    /// Where the verse begins: at the milestone of the id, or at any other.
    std::size_t preverseEnd(std::string_view id) const
    {
        std::size_t found = nowhere;
        for (std::size_t i = m_index + 1; i < m_pieces.size(); ++i)
            if (isPreverse(m_pieces[i], "eID")) {
                if (swordAttribute(m_pieces[i].bytes, "eID") == id)
                    return i;
                found = std::min(found, i);
            }
        return found;
    }

    void open(const SwordPiece& tag)
    {
        const std::optional<ReaderRule> rule = ruleOf(tag);
        if (rule == ReaderRule::title || (!rule && m_preverseEnd != nowhere))
            openTitle(tag, rule.has_value());
        else if (rule && state() != State::removed)
            openRemoved(*rule, endOfNote(tag));
    }

    /// A title, or another element between titles that may be text.
    void openTitle(const SwordPiece& tag, bool isHeading)
    {
        const bool isText = isPsalmTitle(tag) || swordAttribute(tag.bytes, "canonical") == "true";
        const std::size_t end = endOfTitle();
        if (end == nowhere || isInNote())
            return;
        if (isText)
            m_open.push_back({stateOfTitle(), end, ReaderRule::title});
        else if (isHeading && (m_open.empty() || state() == State::outside ||
                               swordAttribute(tag.bytes, "canonical") == "false"))
            openRemoved(ReaderRule::title, end);
    }

    State stateOfTitle() const
    {
        if (m_context.kind == Kind::introduction || m_isBehindBook)
            return State::outside;
        return m_context.kind == Kind::chapter ? State::title : State::verse;
    }

    void openRemoved(ReaderRule rule, std::size_t end)
    {
        if (end == nowhere || state() == State::removed)
            return;
        m_open.push_back({State::removed, end, rule});
        m_findings.add(rule, m_context.name);
    }

    bool isInNote() const
    {
        return std::any_of(m_open.begin(), m_open.end(), [](const Element& element) {
            return element.state == State::removed && element.rule != ReaderRule::title;
        });
    }

    std::size_t endOfTitle() const
    {
        const std::size_t end = std::min(endOfElement(), m_preverseEnd);
        const bool goesOn = m_context.kind != Kind::verse || m_context.titleGoesOn;
        return end == nowhere && goesOn ? m_pieces.size() : end;
    }

    std::size_t endOfNote(const SwordPiece& tag) const
    {
        const bool goesOn = m_context.noteGoesOn && tag.name == "note";
        const std::size_t end = endOfElement();
        return end == nowhere && goesOn ? m_pieces.size() : end;
    }

    std::size_t endOfElement() const
    {
        if (m_ends.empty())
            m_ends = endsOf(m_pieces);
        return m_ends[m_index];
    }

    /// What text is added to; none where it is left out.
    CSwordText* target()
    {
        const State now = state();
        return now == State::verse ? &m_verse : now == State::title ? &m_title : nullptr;
    }

    void addText(std::string_view text)
    {
        if (CSwordText* const to = target()) {
            to->add(withoutMarkersIn(text), m_index);
            return;
        }
        const std::string characters = swordCharacters(text);
        const std::uint64_t count = ModTool::countLetters(characters);
        if (state() == State::removed) {
            m_open.back().letters += count;
        } else {
            m_outsideLetters += count;
            m_hasOutside = m_hasOutside || !isBlank(characters);
        }
    }

    /// The characters of the text; markers of USFM go and are counted.
    std::string withoutMarkersIn(std::string_view text)
    {
        std::string characters = swordCharacters(text);
        if (!mayHaveMarkers(characters))
            return characters;
        unsigned int count = 0;
        std::string rest = withoutMarkers(characters, count);
        for (; count != 0; --count)
            m_findings.add(ReaderRule::unknownMarker, m_context.name);
        countLetters(ReaderRule::unknownMarker,
                     ModTool::countLetters(characters) - ModTool::countLetters(rest));
        return rest;
    }

    const SwordEntryContext& m_context;
    SourceFindings& m_findings;
    const std::vector<SwordPiece> m_pieces;
    mutable std::vector<std::size_t> m_ends; ///< made when it is asked for
    std::size_t m_index = 0;
    std::vector<Element> m_open; ///< the innermost last
    CSwordText m_verse;
    CSwordText m_title;
    std::uint64_t m_leftOut = 0;
    std::uint64_t m_outsideLetters = 0;
    std::size_t m_preverseEnd = nowhere; ///< while what stands before the verse is read
    bool m_hasNoPreverseEnd = false;
    bool m_hasOutside = false;
    bool m_isBehindBook = false;
};

} // namespace

SwordEntry readSwordEntry(std::string_view raw, const SwordEntryContext& context, SourceFindings& findings)
{
    return CEntryReader(raw, context, findings).read();
}

} // namespace Kedrin::ModTool
