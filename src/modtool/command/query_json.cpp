#include "query_json.h"

#include "global_books.h"

namespace Kedrin::ModTool {

void writeJsonText(const Json& document, std::ostream& out)
{
    out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

Json verseJson(const CModuleReader& module, const Tolvo::CRef& local)
{
    const GlobalPosition position = module.globalPosition(local);
    Json verse;
    verse["reference"] = module.label(local);
    verse["local"] = {
        {"book", local.bookID() + 1}, {"chapter", local.chapter() + 1}, {"verse", local.verse() + 1}};
    verse["common"] = {{"book", position.book + 1},
                       {"osis", globalBooks()[position.book].osis},
                       {"chapter", position.chapter + 1},
                       {"verse", position.verse + 1}};
    verse["text"] = module.text(local);
    return verse;
}

std::string osisLabel(const GlobalPosition& position)
{
    return std::string(globalBooks()[position.book].osis) + ' ' + std::to_string(position.chapter + 1) + ':' +
           std::to_string(position.verse + 1);
}

} // namespace Kedrin::ModTool
