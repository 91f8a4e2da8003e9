#pragma once

#include "log_interfaces.h"

#include <cstdio>
#include <string>

/// A diagnostic log: formatted text, single characters and memory dumps, appended to one file. A write
/// happens when the log is enabled and the current level passes the filter; otherwise it is silently dropped.
/// If the file cannot be opened, the log is permanently bad and the write is dropped; with `eachTime` the
/// next write tries again, and may succeed. Nothing throws; errors are reported only through operator bool.
/// Not thread-safe.
class Log : public ILog, public ITimeLogWriter, public IMemoryLogWriter
{
public:
    /// Disabled and without a file: if enabled later, it still writes nothing.
    Log();
    /// @param fname   path of the file, copied; null disables the log regardless of `mode`
    /// @param mode    a log constructed disabled opens no file and ignores fname
    /// @param append  keep the content of the file; otherwise it is truncated by the constructor
    /// @param level   highest level written; 0 writes every level
    Log(const char* fname, EnableMode mode, bool append, OpenFileMode ofm, int level);
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    [[gnu::format(printf, 2, 3)]] void printf(const char* format, ...) override;
    /// The character; "." for CR, LF, tab, bell and zero.
    void myputc(char ch) override;
    /// `size` bytes, by the bits of `what`: first as text (its title between two LFs, the bytes without CR, LF), then
    /// in hex (its title between two LFs, lines of 16 bytes with a column of characters, LF).
    void dump(void* data, std::size_t size, int what, const char* txtTitle, const char* hexTitle) override;
    /// Sets the level of all following messages. log.level(2).printf("...")
    ILog& level(int l) override;
    /// False once a file could not be opened; never true again.
    operator bool() override;
    /// Enables or disables writing; opens and closes no file.
    void setEnable(EnableMode mode) override;
    virtual int getLevel();
    virtual bool isDisabled();
    void logTime(const char* scopeName, double seconds, const char* executionKind) override;
    void logMemory(const char* scopeName, double size, const char* executionKind) override;
    virtual ~Log();

private:
    void Init(const char* fname, EnableMode mode, bool append, OpenFileMode ofm, int level);
    bool checkLevel() const { return m_level == 0 || m_currLevel <= m_level; }
    FILE* getFileHandle();
    FILE* openForWriting();
    void releaseFileHandle(FILE* f);
    bool isSpecial(char ch) const;
    void myfputc(char ch, FILE* f) const;
    void dumpText(const char* bytes, std::size_t size, FILE* f) const;
    void dumpHex(const char* bytes, std::size_t size, FILE* f) const;
    void dumpHexLine(const char* bytes, std::size_t byteCount, FILE* f) const;

    std::string fileName;
    int m_level = 0;     ///< highest level written; 0: no filter
    int m_currLevel = 0; ///< of the messages being written now
    bool error = false;
    const char* specChars = "\r\n\t\a"; ///< shown as "."
    bool disabled = true;
    bool m_append = false;
    OpenFileMode whenToOpen = eachTime;
    FILE* fileHandle = nullptr; ///< the open file with onlyOnce; owned
    int n = 16;                 ///< bytes in a line of a dump
};

/// The program's log. It is disabled: it opens no file and writes nothing.
extern Log g_log;
