#include "sqlite_info.h"

#include "ascii.h"
#include "errors.h"
#include "inline_markup.h"
#include "messages.h"
#include "rtf_text.h"
#include "sqlite_columns.h"
#include "text_input.h"

namespace Kedrin::ModTool {

namespace {

void takeFact(const std::string& name, const std::string& value, SourceInfo& info)
{
    const std::string text(trimmed(isRtf(value) ? CRtfText::plainOf(value) : withoutTags(value)));
    if (text.empty())
        return;
    if ((name == "description" || name == "title" || name == "name") && info.fullTitle.empty())
        info.fullTitle = text;
    else if (name == "abbreviation" || name == "short_title" || name == "short_name")
        info.shortTitle = info.abbreviatedTitle = text;
    else if (name == "copyright" || name == "rights" || name == "detailed_info" || name == "comments" ||
             name == "publisher" || name == "license")
        info.copyright.push_back(text);
}

} // namespace

bool readSqliteInfo(const CSqliteDatabase& database, const CSqliteDatabase::Table& table, SourceInfo& info)
{
    const auto valid = [&](std::string_view text, std::size_t row) {
        return validSqliteText(database.fileName(), text, row);
    };
    const std::string name = columnOf(table, {"name", "key"});
    const std::string value = columnOf(table, {"value"});
    constexpr std::size_t maxFacts = 100;
    if (!name.empty() && !value.empty() && table.columns.size() == 2) {
        auto rows = database.rows(table.name, {name, value});
        for (std::size_t row = 1; row <= maxFacts && rows.next(); ++row)
            takeFact(lower(rows.text(0)), valid(rows.text(1), row), info);
        return true;
    }
    if (lower(table.name) != "details" && lower(table.name) != "info")
        return false;
    auto rows = database.rows(table.name, table.columns);
    if (rows.next())
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            takeFact(lower(table.columns[i]), valid(rows.text(static_cast<int>(i)), 1), info);
    return true;
}

std::string validSqliteText(const std::string& fileName, std::string_view text, std::size_t row)
{
    constexpr std::size_t maxTextBytes = 1u << 20;
    if (!isUtf8(text))
        failAtLine(fileName, row, message("not valid %s", "UTF-8"));
    if (text.size() > maxTextBytes)
        failAtLine(fileName, row, tr("a string longer than 1 MiB"));
    return std::string(text);
}

} // namespace Kedrin::ModTool
