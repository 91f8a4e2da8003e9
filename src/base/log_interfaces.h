#pragma once

#include <cstddef>

/// The interface of a log. Objects are never deleted through it.
class ILog
{
public:
    enum DisplayMode ///< bits for dump()
    {
        hex = 1,
        text = 2
    };
    enum EnableMode
    {
        disable = 0,
        enable = 1
    };
    enum OpenFileMode
    {
        eachTime = 0, ///< open and close the file for every write
        onlyOnce = 1  ///< open once, keep it open; output is buffered by the stream
    };

    [[gnu::format(printf, 2, 3)]] virtual void printf(const char* format, ...) = 0;
    virtual void myputc(char ch) = 0;
    virtual void dump(void* data, std::size_t size, int what, const char* txtTitle, const char* hexTitle) = 0;
    virtual ILog& level(int l) = 0;
    virtual operator bool() = 0;
    virtual void setEnable(EnableMode mode) = 0;

protected:
    ~ILog() = default;
};

/// Receives the execution times of scopes.
class ITimeLogWriter
{
public:
    /// @param seconds        microseconds, despite its name; the number of executions if executionKind is
    ///                       "COUNT"
    virtual void logTime(const char* scopeName, double seconds, const char* executionKind) = 0;
    /// The same as logTime().
    void logValue(const char* scopeName, double value, const char* executionKind)
    {
        logTime(scopeName, value, executionKind);
    }

protected:
    ~ITimeLogWriter() = default;
};

/// Receives the memory use of scopes.
class IMemoryLogWriter
{
public:
    /// @param size  bytes; the number of executions if executionKind is "COUNT"
    virtual void logMemory(const char* scopeName, double size, const char* executionKind) = 0;
    /// The same as logMemory().
    void logValue(const char* scopeName, double value, const char* executionKind)
    {
        logMemory(scopeName, value, executionKind);
    }

protected:
    ~IMemoryLogWriter() = default;
};
