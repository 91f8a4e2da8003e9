#include "book_names.h"

#include "ascii.h"
#include "global_books.h"
#include "text_columns.h"
#include "text_encoder.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace Kedrin::ModTool {

namespace {

/// Further names of each book of the global numbering, with "|" between them.
constexpr std::array<std::string_view, globalBooksCount> furtherNames = {
    "Genesis|Ge|Gn|1 Мойсеева|1 Моисеева|Бт",
    "Exodus|Ex|Exo|2 Мойсеева|2 Моисеева|Исх|Исход",
    "Leviticus|Le|Lv|3 Мойсеева|3 Моисеева|Лв",
    "Numbers|Nu|Nm|Nb|4 Мойсеева|4 Моисеева|Числ|Чс",
    "Deuteronomy|De|Dt|5 Мойсеева|5 Моисеева|Вт|Второзак",
    "Joshua|Jos|Jsh|Иисус Навин|Исус Навин|ИсН|Нав|Навин",
    "Judges|Jdg|Jg|Jdgs|Сд|Судии",
    "Ruth|Rth|Ru|Руф|Рт",
    "1 Samuel|1 Sa|1 Sm|1 Царства|1 Царств|1 Самуилова",
    "2 Samuel|2 Sa|2 Sm|2 Царства|2 Царств|2 Самуилова",
    "1 Kings|1 Ki|1 Kgs|1 Kin|3 Царства|3 Царств",
    "2 Kings|2 Ki|2 Kgs|2 Kin|4 Царства|4 Царств",
    "1 Chronicles|1 Ch|1 Chr|1 Chron|1 Паралипоменон|1 Пар|1 Хроники",
    "2 Chronicles|2 Ch|2 Chr|2 Chron|2 Паралипоменон|2 Пар|2 Хроники",
    "Ezra|Ezr|1 Ездра|1 Езд",
    "Nehemiah|Ne|Нем|Неемии",
    "Esther|Es|Est|Есф|Есфирь|Естира",
    "Job|Jb|Иов|Йв",
    "Psalms|Psalm|Psa|Pss|Pslm|Псалом|Псалтир|Псалтирь|Псалтирът|Псал",
    "Proverbs|Pr|Prv|Притчи Соломонови|Прит|Притч",
    "Ecclesiastes|Ec|Ecc|Qoh|Qoheleth|Екклисиаст|Екклесиаст|Еккл",
    "Song of Songs|Song of Solomon|So|Sg|Canticles|Cant|SOS|Песен на песни|Песн|ПесП|Песня песней",
    "Isaiah|Is|Исаия|Исайя|Исайа",
    "Jeremiah|Je|Jr|Иеремия|Иер|Йеремия",
    "Lamentations|La|Плач Иеремии|Плач Йеремиев|Пл",
    "Ezekiel|Eze|Ezk|Иезекииль|Иезекиил|Иез|Йезекиил",
    "Daniel|Da|Dn|Дн",
    "Hosea|Ho|Осии",
    "Joel|Jl|Йоил|Иоиль",
    "Amos|Am",
    "Obadiah|Ob|Авдии|Авд",
    "Jonah|Jon|Jnh|Иона|Ион",
    "Micah|Mi|Mc|Михея",
    "Nahum|Na|Нм",
    "Habakkuk|Hb|Аввакум|Авв|Ав",
    "Zephaniah|Zep|Zp",
    "Haggai|Hg|Аггей",
    "Zechariah|Zec|Zc|Зах",
    "Malachi|Ml|Мл",
    "1 Esdras|3 Ezra",
    "Tobit|Tb|Товия",
    "Judith|Jth|Юдит|Иудифь",
    "Wisdom|Wisdom of Solomon|Ws|Премъдрост Соломонова|Премъдр|ПремСол",
    "Sirach|Ecclesiasticus|Ecclus|Премъдрост на Иисус|Иисус Сирах|Исус Сирах",
    "Letter of Jeremiah|Epistle of Jeremiah|Let Jer|ПослИер|ПослЕр",
    "Baruch|Ba",
    "1 Maccabees|1 Mac|1 Ma|1 Макавеи|1 Макк",
    "2 Maccabees|2 Mac|2 Ma|2 Макавеи|2 Макк",
    "3 Maccabees|3 Mac|3 Ma|3 Макавеи|3 Макк",
    "2 Esdras|4 Ezra",
    "Matthew|Mt|Mat|Мт|Матея|Матфей|Мф|Матф",
    "Mark|Mk|Mr|Mrk|Мк|Мр|Мар",
    "Luke|Lk|Lu|Лк",
    "John|Jn|Jhn|Joh|Йн|Ин|Иоан|Иоанн",
    "Acts|Ac|Act|Acts of the Apostles|Дея|Деян|Дн Ап",
    "James|Jm|Jam|Иаков|Иак|Яковово|Якова",
    "1 Peter|1 Pe|1 Pt|1 Петра|1 Пт|1 Петр",
    "2 Peter|2 Pe|2 Pt|2 Петра|2 Пт|2 Петр",
    "1 John|1 Jn|1 Jhn|1 Joh|1 Йн|1 Иоан|1 Ин|1 Йоана",
    "2 John|2 Jn|2 Jhn|2 Joh|2 Йн|2 Иоан|2 Ин|2 Йоана",
    "3 John|3 Jn|3 Jhn|3 Joh|3 Йн|3 Иоан|3 Ин|3 Йоана",
    "Jude|Jud|Jd|Иуда|Иуд|Юд",
    "Romans|Ro|Rm|Римлянам|Рм|Към римляните",
    "1 Corinthians|1 Co|1 Коринф|1 Коринтяните",
    "2 Corinthians|2 Co|2 Коринф|2 Коринтяните",
    "Galatians|Ga|Гал|Галат|Към галатяните",
    "Ephesians|Ep|Ефес|Към ефесяните",
    "Philippians|Php|Pp|Филип|Към филипяните",
    "Colossians|Co|Колос|Кол|Към колосяните",
    "1 Thessalonians|1 Th|1 Thes|1 Солуняни|1 Солунян|1 Фес",
    "2 Thessalonians|2 Th|2 Thes|2 Солуняни|2 Солунян|2 Фес",
    "1 Timothy|1 Ti|1 Tm|1 Тм",
    "2 Timothy|2 Ti|2 Tm|2 Тм",
    "Titus|Ti|Tt|Тит|Тт",
    "Philemon|Phm|Pm|Флм|Към Филимон",
    "Hebrews|He|Евреям|Към евреите",
    "Revelation|Re|Rv|Revelation of John|Apocalypse|Apoc|От|Откр|Апокалипсис|Апок",
};

std::string utf8Of(std::u16string_view text)
{
    std::string utf8;
    icu::UnicodeString(false, text.data(), static_cast<int32_t>(text.size())).toUTF8String(utf8);
    return utf8;
}

/// Replaces a leading Roman numeral from I to IV, followed by a space, by a digit.
std::string withDigit(std::string_view name)
{
    constexpr std::array<std::string_view, 4> numbers = {"i ", "ii ", "iii ", "iv "};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (lower(name.substr(0, numbers[i].size())) == numbers[i])
            return static_cast<char>('1' + i) + std::string(name.substr(numbers[i].size()));
    return std::string(name);
}

/// The key of a text of ASCII and the letters from А to я, which are composed already: nearly every name is one.
/// @returns nothing for any other text
std::optional<std::string> plainKey(std::string_view utf8)
{
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(utf8.data());
    std::string key(utf8.size(), '\0'); // a small letter has as many bytes as its capital
    std::size_t keySize = 0;
    for (std::size_t i = 0; i < utf8.size();) {
        UChar32 decoded; // negative for invalid bytes
        U8_NEXT(bytes, i, utf8.size(), decoded);
        auto character = static_cast<char32_t>(decoded);
        if ((character >= U'A' && character <= U'Z') || (character >= U'А' && character <= U'Я'))
            character += 0x20;
        if ((character >= U'a' && character <= U'z') || (character >= U'а' && character <= U'я') ||
            (character >= U'0' && character <= U'9'))
            U8_APPEND_UNSAFE(key, keySize, character);
        else if (character >= 0x80)
            return std::nullopt;
    }
    key.resize(keySize);
    return key;
}

/// The key of any text.
std::string unicodeKey(std::string_view utf8)
{
    const icu::UnicodeString name = composed(utf8).foldCase();
    icu::UnicodeString letters;
    for (std::int32_t i = 0; i < name.length(); i = name.moveIndex32(i, 1))
        if (const UChar32 character = name.char32At(i); u_isalnum(character))
            letters.append(character);
    std::string key;
    return letters.toUTF8String(key);
}

/// The only book with a name whose key `accept` accepts; "" for none or several.
template <typename Accept>
std::string onlyBook(Accept&& accept)
{
    std::string osis;
    for (unsigned int globalID = 0; globalID < globalBooksCount; ++globalID) {
        const std::vector<std::string> names = globalBookNames(globalID);
        if (!std::any_of(names.begin(), names.end(),
                         [&](const std::string& name) { return accept(nameKey(name)); }))
            continue;
        if (!osis.empty())
            return "";
        osis = globalBooks()[globalID].osis;
    }
    return osis;
}

} // namespace

std::string nameKey(std::string_view utf8)
{
    const std::string name = withDigit(utf8);
    std::optional<std::string> key = plainKey(name);
    return key ? *std::move(key) : unicodeKey(name);
}

std::vector<std::string> globalBookNames(unsigned int globalID)
{
    const GlobalBook& book = globalBooks()[globalID];
    std::vector<std::string> names = {std::string(book.osis), utf8Of(book.fullTitle), utf8Of(book.shortTitle),
                                      utf8Of(book.abbreviatedTitle)};
    std::string_view rest = furtherNames[globalID];
    while (!rest.empty()) {
        const std::size_t bar = std::min(rest.find('|'), rest.size());
        names.emplace_back(rest.substr(0, bar));
        rest.remove_prefix(std::min(bar + 1, rest.size()));
    }
    return names;
}

std::string osisOfName(std::string_view utf8)
{
    const std::string wanted = nameKey(utf8);
    return onlyBook([&](const std::string& key) { return key == wanted; });
}

std::string osisOfShortName(std::string_view utf8)
{
    std::string osis = osisOfName(utf8);
    const std::string wanted = nameKey(utf8);
    if (!osis.empty() || charactersIn(wanted) < 3)
        return osis;
    return onlyBook([&](const std::string& key) { return key.starts_with(wanted); });
}

} // namespace Kedrin::ModTool
