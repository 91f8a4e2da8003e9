#include "repository_output.h"

#include "messages.h"
#include "text_columns.h"

#include <algorithm>
#include <cstdint>

namespace Kedrin::ModTool {

namespace {

/// "4.2 MB", "-" where it is not known
std::string sizeText(std::uint64_t byteCount)
{
    constexpr std::uint64_t tenth = 100000;
    const std::uint64_t tenths = (byteCount + tenth - 1) / tenth;
    return byteCount == 0 ? "-" : std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " MB";
}

} // namespace

void writeRepositories(const std::vector<SwordRepository>& known, std::ostream& out)
{
    std::size_t width = 0;
    for (const SwordRepository& repository : known)
        width = std::max(width, charactersIn(repository.name));
    for (const SwordRepository& repository : known)
        out << padded(repository.name, width) << "  " << repository.address << '\n';
    if (known.empty())
        out << tr("no repository is configured for SWORD; name one with --repository") << '\n';
}

void writeTexts(const std::vector<OfferedText>& texts, std::ostream& out)
{
    std::size_t nameWidth = 0;
    std::size_t languageWidth = 0;
    for (const OfferedText& text : texts) {
        nameWidth = std::max(nameWidth, charactersIn(text.name));
        languageWidth = std::max(languageWidth, charactersIn(text.language));
    }
    constexpr std::size_t sizeWidth = 9;
    for (const OfferedText& text : texts)
        out << padded(text.name, nameWidth) << "  " << padded(text.language, languageWidth) << "  "
            << padded(sizeText(text.byteCount), sizeWidth) << "  " << text.title << '\n';
    if (texts.empty())
        out << tr("no Bible is offered") << '\n';
}

Json repositoriesJson(const std::vector<SwordRepository>& known)
{
    Json list = Json::array();
    for (const SwordRepository& repository : known)
        list.push_back({{"name", repository.name}, {"address", repository.address}});
    return list;
}

void addTexts(const std::string& repository, const std::vector<OfferedText>& texts, Json& list)
{
    for (const OfferedText& text : texts)
        list.push_back({{"repository", repository},
                        {"name", text.name},
                        {"language", text.language},
                        {"title", text.title},
                        {"size", text.byteCount}});
}

} // namespace Kedrin::ModTool
