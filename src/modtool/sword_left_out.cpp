#include "sword_left_out.h"

#include "stray_markers.h"
#include "sword_markup.h"
#include "text_input.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

struct Mark
{
    std::string_view begin; ///< of a tag
    std::string_view end;   ///< a whole tag
    ReaderRule rule;
};

// Of OSIS and ThML, and of GBF.
constexpr Mark marks[] = {
    {"<note", "</note>", ReaderRule::note},
    {"<title", "</title>", ReaderRule::title},
    {"<speaker", "</speaker>", ReaderRule::title},
    {"<RF", "<Rf>", ReaderRule::note},
    {"<TS", "<Ts>", ReaderRule::title},
};
constexpr Mark otherReading{"<seg", "</seg>", ReaderRule::otherReading};

const Mark* markOf(std::string_view tag)
{
    if (tag.ends_with("/>"))
        return nullptr;
    if (tag.starts_with("<seg ") && tag.find("\"x-variant\"") != std::string_view::npos &&
        tag.find("\"x-2\"") != std::string_view::npos)
        return &otherReading;
    if (tag.find(" canonical=\"true\"") != std::string_view::npos)
        return nullptr;
    const auto* mark = std::find_if(std::begin(marks), std::end(marks), [&](const Mark& known) {
        return tag.starts_with(known.begin) &&
               (tag[known.begin.size()] == ' ' || tag[known.begin.size()] == '>');
    });
    return mark == std::end(marks) ? nullptr : mark;
}

void countMarkers(std::string_view text, const std::string& place, SourceFindings& findings)
{
    unsigned int count = 0;
    if (mayHaveMarkers(text))
        withoutMarkers(text, count);
    for (; count != 0; --count)
        findings.add(ReaderRule::unknownMarker, place);
}

} // namespace

void countLeftOut(std::string_view raw, bool isIntroduction, const std::string& place,
                  SourceFindings& findings)
{
    const std::size_t textEnd = isIntroduction ? 0 : std::min(endOfBook(raw), raw.size());
    const Mark* open = nullptr;
    bool isOutsideCounted = false;
    for (std::size_t i = 0, next = 0; i < raw.size(); i = next) {
        if (raw[i] != '<') {
            next = std::min(raw.find('<', i), raw.size());
            if (!open && i < textEnd)
                countMarkers(raw.substr(i, next - i), place, findings);
            const bool isOutside = !open && i >= textEnd && !isBlank(raw.substr(i, next - i));
            if (isOutside && !isOutsideCounted)
                findings.add(ReaderRule::outside, place);
            isOutsideCounted = isOutsideCounted || isOutside;
            continue;
        }
        next = std::min(raw.find('>', i), raw.size() - 1) + 1;
        const std::string_view tag = raw.substr(i, next - i);
        if (open) {
            open = tag == open->end ? nullptr : open;
        } else if ((open = markOf(tag))) {
            findings.add(open->rule, place);
        }
    }
}

} // namespace Kedrin::ModTool
