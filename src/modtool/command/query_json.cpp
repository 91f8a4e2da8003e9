#include "query_json.h"

#include "common_books.h"

namespace Kedrin::ModTool {

void writeJsonText(const Json& document, std::ostream& out)
{
    out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

std::string osisLabel(const CommonPlace& place)
{
    return std::string(commonBooks()[place.book].osis) + ' ' + std::to_string(place.chapter + 1) + ':' +
           std::to_string(place.verse + 1);
}

} // namespace Kedrin::ModTool
