#include "tolvo_bible/diff.h"

#include "input_file.h"
#include "lets_out.h"
#include "text_reader.h"

namespace Kedrin::Tolvo {

CDiff::CDiff(const char* fileName)
{
    ut::lets_out<std::ios_base::failure>("CDiff::CDiff()", [&] {
        const std::string content = ut::text_of_file("CDiff::CDiff()", fileName);
        ut::CNumberReader numbers(content);
        for (;;) {
            const auto book = numbers.nextUnsigned();
            const auto chapter = numbers.nextUnsigned();
            const auto verse = numbers.nextUnsigned();
            const auto chapterDelta = numbers.nextSigned();
            const auto verseDelta = numbers.nextSigned();
            if (!verseDelta) // a reader that has failed once stays failed
                return;
            const CRefDelta deltaToGlobal(*chapterDelta, *verseDelta);
            const CRefDelta deltaToLocal(static_cast<int>(0u - static_cast<unsigned int>(*chapterDelta)),
                                         static_cast<int>(0u - static_cast<unsigned int>(*verseDelta)));
            const CRef position(*book - 1, *chapter - 1, *verse - 1);
            m_localToGlobal.emplace(position, deltaToGlobal); // of equal keys the first record is kept
            m_globalToLocal.emplace(position + deltaToGlobal, deltaToLocal);
        }
    });
}

CRef CDiff::convertWithMap(const CRef& ref, const Table& table) const noexcept
{
    if (ref.chapter() != 1)
        return ref; // what CRef::operator== makes of every position
    for (const auto& [position, delta] : table)
        if (position.chaptersBeginning() == ref.chaptersBeginning())
            return ref + delta;
    return ref;
}

} // namespace Kedrin::Tolvo
