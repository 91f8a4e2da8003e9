#include "usfm_markers.h"

#include "ascii.h"

namespace Kedrin::ModTool {

namespace {

struct Row
{
    UsfmMarker kind;
    std::string_view names; ///< with a space on either side of each
};

constexpr Row rows[] = {
    {UsfmMarker::id, " id "},
    {UsfmMarker::chapter, " c "},
    {UsfmMarker::verse, " v "},
    {UsfmMarker::field, " ide usfm h toc toca rem sts restore "},
    {UsfmMarker::paragraph,
     " p m po pr cls pmo pm pmc pmr pi mi nb pc ph b q qr qc qm qd lh li lf lim tr lit pb esbe "},
    {UsfmMarker::cell, " th thr thc tc tcr tcc "},
    {UsfmMarker::title, " mt mte ms mr s sr r sp sd qa cl "},
    {UsfmMarker::canonicalTitle, " d "},
    {UsfmMarker::outside, " imt is ip ipi im imi ipq imq ipr ipc iq ib ili iot io iex imte ie cd cp periph "},
    {UsfmMarker::sidebar, " esb "},
    {UsfmMarker::note, " f fe ef efe x ex rq fm "},
    {UsfmMarker::secondNumber, " va vp ca "},
    {UsfmMarker::figure, " fig pro cat "},
    {UsfmMarker::character,
     " add addpn bk dc nd k ord pn png qt sig sls tl wj em bd it bdit no sc sup w wg wh wa ndx "
     "jmp rb rt qs qac lik liv litl xt ior iqt wr "},
};

/// The markers of the parts of a note, with a space on either side of each.
constexpr std::string_view noteParts = " fr fk fq fqa fl fw fp ft fdc fv xo xop xk xq xta xot xnt xdc ";

bool isIn(std::string_view names, std::string_view base)
{
    for (std::size_t found = names.find(base); found != std::string_view::npos;
         found = names.find(base, found + 1))
        if (found != 0 && names[found - 1] == ' ' && names[found + base.size()] == ' ')
            return true;
    return false;
}

std::string_view withoutNumber(std::string_view marker)
{
    while (!marker.empty() && isAsciiDigit(marker.back()))
        marker.remove_suffix(1);
    return marker;
}

} // namespace

std::string_view baseName(std::string_view marker)
{
    if (marker.ends_with("-s") || marker.ends_with("-e"))
        marker.remove_suffix(2);
    const std::string_view first = withoutNumber(marker);
    return first.ends_with('-') ? withoutNumber(first.substr(0, first.size() - 1)) : first;
}

UsfmMarker classify(std::string_view name)
{
    const std::string_view base = baseName(name);
    if (base.empty())
        return UsfmMarker::unknown;
    for (const Row& row : rows)
        if (isIn(row.names, base))
            return row.kind;
    return UsfmMarker::unknown;
}

bool isKnownMarker(std::string_view name)
{
    const bool isMilestone = name.ends_with("-s") || name.ends_with("-e");
    return name == "line" ||
           (!isMilestone && (classify(name) != UsfmMarker::unknown || isIn(noteParts, name)));
}

bool isBreak(std::string_view name) { return classify(name) != UsfmMarker::character; }

bool marksWords(std::string_view name)
{
    const std::string_view base = baseName(name);
    return base == "w" || base == "wg" || base == "wh" || base == "wa" || base == "rb";
}

bool hasUnnamedAttribute(std::string_view name)
{
    return isIn(" w wg wh wa rb jmp xt ref k ", baseName(name));
}

bool endsParagraph(UsfmMarker marker) { return marker < UsfmMarker::note && marker != UsfmMarker::cell; }

} // namespace Kedrin::ModTool
