#include "diff_records.h"

#include "errors.h"
#include "messages.h"
#include "text_reader.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace Kedrin::ModTool {

namespace {

constexpr unsigned int shiftedChapter = 1; ///< the only chapter index that the engine shifts

struct Offsets
{
    int chapters;
    int verses;
};

/// One direction of the engine's tables: by book, chapter and verse where a record begins, the first record's offsets.
using Table = std::map<std::tuple<unsigned int, unsigned int, unsigned int>, Offsets>;

Place shifted(const Table& table, unsigned int book, Place place)
{
    const auto entry = table.lower_bound({book, shiftedChapter, 0});
    if (place.chapter != shiftedChapter || entry == table.end() || std::get<0>(entry->first) != book ||
        std::get<1>(entry->first) != shiftedChapter)
        return place;
    return {place.chapter + static_cast<unsigned int>(entry->second.chapters),
            place.verse + static_cast<unsigned int>(entry->second.verses)};
}

} // namespace

bool readDifferences(std::string_view text, std::vector<DiffRecord>& records)
{
    ut::CNumberReader numbers(text);
    while (numbers.rest().find_first_not_of(" \t\r\n\v\f") != std::string_view::npos) {
        const auto book = numbers.nextUnsigned();
        const auto chapter = numbers.nextUnsigned();
        const auto verse = numbers.nextUnsigned();
        const auto chapterDelta = numbers.nextSigned();
        const auto verseDelta = numbers.nextSigned();
        if (!verseDelta)
            return false;
        records.push_back({*book, *chapter, *verse, *chapterDelta, *verseDelta});
    }
    return true;
}

std::vector<DiffRecord> parseDifferences(std::string_view text)
{
    std::vector<DiffRecord> records;
    if (!readDifferences(text, records))
        throw CBuildError(tr("the differences are no records of five numbers"));
    return records;
}

unsigned int keptWith(const std::vector<VersePair>& pairs, const std::vector<DiffRecord>& records)
{
    Table toGlobal;
    Table toLocal;
    for (const DiffRecord& record : records) {
        toGlobal.try_emplace({record.book - 1, record.chapter - 1, record.verse - 1},
                             Offsets{record.chapterDelta, record.verseDelta});
        toLocal.try_emplace({record.book - 1,
                             record.chapter + static_cast<unsigned int>(record.chapterDelta) - 1,
                             record.verse + static_cast<unsigned int>(record.verseDelta) - 1},
                            Offsets{-record.chapterDelta, -record.verseDelta});
    }
    return static_cast<unsigned int>(std::count_if(pairs.begin(), pairs.end(), [&](const VersePair& pair) {
        return shifted(toGlobal, pair.globalBook, pair.local) == pair.global &&
               shifted(toLocal, pair.localBook, pair.global) == pair.local;
    }));
}

} // namespace Kedrin::ModTool
