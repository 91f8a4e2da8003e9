#pragma once

#include "memory_file.h"
#include "thrown.h"
#include "tolvo_bible/bible_text.h"

#include <ios>
#include <stdexcept>
#include <string>
#include <vector>

namespace test_support {

/// The bytes of a pointer file: each offset in four bytes, low byte first.
inline std::string recordsOf(const std::vector<unsigned int>& places)
{
    std::string bytes;
    for (const unsigned int place : places)
        for (unsigned int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<char>(place >> shift));
    return bytes;
}

/// The two files of a text with the given bytes and offsets, and their reader.
class VerseFiles
{
public:
    /// @param pointTail  bytes of the pointer file after the offsets
    VerseFiles(const std::string& textBytes, const std::vector<unsigned int>& places,
               const std::string& pointTail = {})
        : m_textFile(textBytes),
          m_pointFile(recordsOf(places) + pointTail),
          text(m_textFile.path().c_str(), m_pointFile.path().c_str())
    {}

    void shrinkTextTo(std::size_t byteCount) { m_textFile.shrinkTo(byteCount); }
    void shrinkPointTo(std::size_t byteCount) { m_pointFile.shrinkTo(byteCount); }

    std::string rangeError(int verse)
    {
        return messageOf<std::out_of_range>([&] { text[verse]; });
    }
    std::string readError(int verse)
    {
        return messageOf<std::ios_base::failure>([&] { text[verse]; });
    }

private:
    MemoryFile m_textFile;
    MemoryFile m_pointFile;

public:
    Kedrin::Tolvo::CBibleText text;
};

} // namespace test_support
