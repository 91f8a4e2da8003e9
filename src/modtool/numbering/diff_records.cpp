#include "diff_records.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"
#include "text_reader.h"

namespace Kedrin::ModTool {

std::string_view forEachDiffRecord(std::string_view text, const std::function<void(const DiffRecord&)>& use)
{
    ut::CNumberReader numbers(text);
    for (;;) {
        const std::string_view rest = numbers.rest();
        const auto book = numbers.nextUnsigned();
        const auto chapter = numbers.nextUnsigned();
        const auto verse = numbers.nextUnsigned();
        const auto chapterDelta = numbers.nextSigned();
        const auto verseDelta = numbers.nextSigned();
        if (!verseDelta) // a reader that has failed once stays failed
            return trimmedStart(rest, " \t\n\v\f\r");
        use({*book, *chapter, *verse, *chapterDelta, *verseDelta});
    }
}

std::vector<DiffRecord> readDiffRecords(std::string_view text)
{
    std::vector<DiffRecord> records;
    forEachDiffRecord(text, [&](const DiffRecord& record) { records.push_back(record); });
    return records;
}

std::vector<DiffRecord> parseDiffRecords(std::string_view text)
{
    std::vector<DiffRecord> records;
    const auto use = [&](const DiffRecord& record) { records.push_back(record); };
    if (!forEachDiffRecord(text, use).empty())
        throw CBuildError(tr("the differences are not records of five numbers"));
    return records;
}

std::string diffRecordText(const DiffRecord& record)
{
    return std::to_string(record.book) + ' ' + std::to_string(record.chapter) + ' ' +
           std::to_string(record.verse) + ' ' + std::to_string(record.chapterDelta) + ' ' +
           std::to_string(record.verseDelta);
}

} // namespace Kedrin::ModTool
