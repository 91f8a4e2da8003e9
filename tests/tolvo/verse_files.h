#pragma once

#include "temp_folder.h"
#include "thrown.h"
#include "tolvo_bible/bible_text.h"

#include <filesystem>
#include <ios>
#include <optional>
#include <stdexcept>
#include <vector>

namespace test_support {

/// The two files of a text, made of the bytes and places given, and their reader.
class VerseFiles
{
public:
    VerseFiles(const std::string& textBytes, const std::vector<unsigned int>& places)
        : m_textPath(m_folder.write("CompactText.bin", textBytes)),
          m_pointPath(m_folder.write("CompactPoint.bin", recordsOf(places))),
          m_reader(std::in_place, m_textPath.c_str(), m_pointPath.c_str()),
          text(*m_reader)
    {}

    void reopenWithPointBytes(const std::string& bytes)
    {
        m_folder.write("CompactPoint.bin", bytes);
        m_reader.emplace(m_textPath.c_str(), m_pointPath.c_str());
    }
    void shrinkTextTo(std::size_t byteCount) { std::filesystem::resize_file(m_textPath, byteCount); }
    void shrinkPointTo(std::size_t byteCount) { std::filesystem::resize_file(m_pointPath, byteCount); }

    std::string rangeError(int verse)
    {
        return messageOf<std::out_of_range>([&] { text[verse]; });
    }
    std::string readError(int verse)
    {
        return messageOf<std::ios_base::failure>([&] { text[verse]; });
    }

    static std::string recordsOf(const std::vector<unsigned int>& places)
    {
        std::string bytes;
        for (const unsigned int place : places)
            for (unsigned int shift = 0; shift < 32; shift += 8)
                bytes.push_back(static_cast<char>(place >> shift));
        return bytes;
    }

private:
    TempFolder m_folder;
    std::string m_textPath;
    std::string m_pointPath;
    std::optional<Kedrin::Tolvo::CBibleText> m_reader;

public:
    Kedrin::Tolvo::CBibleText& text;
};

} // namespace test_support
