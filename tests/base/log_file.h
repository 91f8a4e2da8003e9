#pragma once

#include "Log.h"

#include "temp_folder.h"
#include "walkers.h"

#include <gtest/gtest.h>

#include <filesystem>

/// A folder with one log file, and the content of the file.
class LogFile : public testing::Test
{
protected:
    Log made(bool append, ILog::OpenFileMode mode, int level = 0)
    {
        return Log(m_path.c_str(), ILog::enable, append, mode, level);
    }
    std::string written() const { return test_support::bytesOf(m_path); }
    void hold(const std::string& bytes) { m_folder.write("log", bytes); }
    bool exists() const { return std::filesystem::exists(m_path); }

    test_support::TempFolder m_folder;
    std::string m_path = m_folder.file("log");
};
