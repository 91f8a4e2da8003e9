#include "query_json.h"

#include "global_books.h"

namespace Kedrin::ModTool {

void writeJsonText(const Json& document, std::ostream& out)
{
    out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

std::string osisLabel(const GlobalPosition& position)
{
    return std::string(globalBooks()[position.book].osis) + ' ' + std::to_string(position.chapter + 1) + ':' +
           std::to_string(position.verse + 1);
}

} // namespace Kedrin::ModTool
