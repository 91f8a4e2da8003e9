#include "downloaded_files.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"

#include <versekey.h>
#include <versificationmgr.h>
#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string_view>

namespace Kedrin::ModTool {

namespace {

/// Most bytes that a compressed block may have unpacked.
constexpr std::uint64_t maxBlockBytes = 64 << 20;

std::string contentOf(const std::string& fileName)
{
    std::ifstream file(fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A file of records of one length. An incomplete record at its end is left out.
class CRecords
{
public:
    CRecords(std::string bytes, std::size_t recordBytes)
        : m_bytes(std::move(bytes)),
          m_recordBytes(recordBytes)
    {}

    std::size_t count() const { return m_bytes.size() / m_recordBytes; }

    /// A number of a record, the least byte first.
    std::uint64_t number(std::size_t record, std::size_t offset, std::size_t byteCount) const
    {
        std::uint64_t value = 0;
        for (std::size_t i = byteCount; i-- > 0;)
            value = value << 8 | static_cast<unsigned char>(m_bytes[record * m_recordBytes + offset + i]);
        return value;
    }

private:
    std::string m_bytes;
    std::size_t m_recordBytes;
};

/// Uncompressed: of each entry its offset and length in the text.
bool isSoundText(const CRecords& entries, std::size_t lengthBytes, std::uint64_t textBytes)
{
    for (std::size_t i = 0; i < entries.count(); ++i)
        if (entries.number(i, 0, 4) + entries.number(i, 4, lengthBytes) > textBytes)
            return false;
    return true;
}

/// Compressed: of each entry its block, and its offset and length in the text of that.
bool isSoundArchive(const CRecords& blocks, const CRecords& entries, std::size_t lengthBytes)
{
    for (std::size_t i = 0; i < entries.count(); ++i) {
        const std::uint64_t block = entries.number(i, 0, 4);
        const std::uint64_t length = entries.number(i, 8, lengthBytes);
        if (length != 0 &&
            (block >= blocks.count() || entries.number(i, 4, 4) + length > blocks.number(block, 8, 4)))
            return false;
    }
    return true;
}

/// Whether a block unpacks to exactly so many bytes.
bool unpacksTo(std::string_view packed, std::uint64_t byteCount)
{
    std::vector<Bytef> text(byteCount);
    auto unpacked = static_cast<uLongf>(byteCount);
    return ::uncompress(text.data(), &unpacked, reinterpret_cast<const Bytef*>(packed.data()),
                        static_cast<uLong>(packed.size())) == Z_OK &&
           unpacked == byteCount;
}

/// Compressed: of each block its offset, its length and that of its text.
bool areSoundBlocks(const CRecords& blocks, std::string_view archive, bool isZipped)
{
    for (std::size_t i = 0; i < blocks.count(); ++i) {
        const std::uint64_t offset = blocks.number(i, 0, 4);
        const std::uint64_t length = blocks.number(i, 4, 4);
        const std::uint64_t textBytes = blocks.number(i, 8, 4);
        if (offset + length > archive.size() || textBytes > maxBlockBytes)
            return false;
        if (isZipped && textBytes != 0 && !unpacksTo(archive.substr(offset, length), textBytes))
            return false;
    }
    return true;
}

/// Whether any record's length, at the offset, is not 0.
bool hasLength(const CRecords& entries, std::size_t offset, std::size_t lengthBytes)
{
    for (std::size_t i = 0; i < entries.count(); ++i)
        if (entries.number(i, offset, lengthBytes) != 0)
            return true;
    return false;
}

bool hasEntry(const SwordDescription& description, std::string_view key)
{
    return std::any_of(description.entries.begin(), description.entries.end(),
                       [&](const auto& entry) { return entry.first == key; });
}

/// How many entries a versification has in a testament, 1 or 2; 0 where it is not known.
std::size_t entriesIn(const std::string& versification, int testament)
{
    const auto* system = sword::VersificationMgr::getSystemVersificationMgr()->getVersificationSystem(
        versification.empty() ? "KJV" : versification.c_str());
    if (!system || system->getBMAX()[testament - 1] == 0)
        return 0;
    const int booksCount = system->getBMAX()[0] + (testament == 2 ? system->getBMAX()[1] : 0);
    const auto* last = system->getBook(booksCount - 1);
    sword::VerseKey key;
    key.setVersificationSystem(system->getName());
    key.setIntros(true);
    key.setBookName(last->getOSISName());
    key.setChapter(last->getChapterMax());
    key.setVerse(last->getVerseMax(last->getChapterMax()));
    return static_cast<std::size_t>(key.getTestamentIndex()) + 1;
}

bool isOneOf(const std::string& word, std::initializer_list<std::string_view> words)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

} // namespace

TextStorage storageOf(const SwordDescription& description)
{
    const std::string driver = lower(description.entry("ModDrv"));
    const std::string compression = lower(description.entry("CompressType"));
    const std::string block = lower(description.entry("BlockType"));
    const bool isText = driver == "rawtext" || driver == "rawtext4";
    if (!isSafeName(description.name) || !isSafePath(description.entry("DataPath")) ||
        !(isText || isOneOf(driver, {"ztext", "ztext4"})) ||
        !isOneOf(compression, {"", "zip", "lzss", "bzip2", "xz"}) || hasEntry(description, "CipherKey"))
        throw CBuildError(message("%s is not a Bible that can be read", inQuotes(description.name)));
    TextStorage storage;
    storage.isZipped = compression == "zip";
    storage.isWide = driver.ends_with('4');
    const char kind = block == "verse" ? 'v' : block == "book" ? 'b' : 'c';
    for (const std::string testament : {"ot", "nt"}) {
        const std::string archive = testament + '.' + kind;
        const std::size_t count =
            entriesIn(description.entry("Versification"), static_cast<int>(storage.testaments.size()) + 1);
        storage.testaments.push_back(
            isText ? TestamentFiles{testament + ".vss", "", testament, count}
                   : TestamentFiles{archive + "zs", archive + "zv", archive + "zz", count});
    }
    return storage;
}

void checkFiles(const std::string& folder, const TestamentFiles& files, const TextStorage& storage)
{
    const std::size_t lengthBytes = storage.isWide ? 4 : 2;
    const std::string text = contentOf(folder + '/' + files.text);
    bool isSound = false;
    bool hasText = false;
    std::size_t count = 0;
    if (files.places.empty()) {
        const CRecords entries(contentOf(folder + '/' + files.index), 4 + lengthBytes);
        isSound = isSoundText(entries, lengthBytes, text.size());
        hasText = hasLength(entries, 4, lengthBytes);
        count = entries.count();
    } else {
        const CRecords blocks(contentOf(folder + '/' + files.index), 12);
        const CRecords entries(contentOf(folder + '/' + files.places), 8 + lengthBytes);
        isSound =
            areSoundBlocks(blocks, text, storage.isZipped) && isSoundArchive(blocks, entries, lengthBytes);
        hasText = hasLength(entries, 8, lengthBytes);
        count = entries.count();
    }
    if (!isSound || count < files.entriesCount || (!text.empty() && !hasText))
        throw CBuildError(message("%s: is damaged", files.text));
}

} // namespace Kedrin::ModTool
