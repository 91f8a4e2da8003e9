#include "Log.h"

#include <cstdarg>
#include <cstring>

Log g_log;

Log::Log() { Init(nullptr, disable, false, eachTime, 0); }

Log::Log(const char* fname, EnableMode mode, bool append, OpenFileMode ofm, int level)
{
    Init(fname, mode, append, ofm, level);
}

Log::~Log()
{
    if (fileHandle != nullptr)
        std::fclose(fileHandle);
}

void Log::Init(const char* fname, EnableMode mode, bool append, OpenFileMode ofm, int level)
{
    disabled = mode == disable || fname == nullptr;
    whenToOpen = ofm;
    m_level = level;
    if (disabled)
        return;
    fileName = fname;
    m_append = append;
    if (!m_append) {
        FILE* emptied = std::fopen(fileName.c_str(), "w+");
        if (emptied == nullptr) {
            error = true;
            return;
        }
        std::fclose(emptied);
    }
    if (whenToOpen == onlyOnce) {
        fileHandle = std::fopen(fileName.c_str(), "a+");
        error = fileHandle == nullptr;
    }
}

FILE* Log::getFileHandle()
{
    return whenToOpen == onlyOnce ? fileHandle : std::fopen(fileName.c_str(), "a+");
}

/// A handle to write to, returned with releaseFileHandle(); null when this write is to be dropped.
FILE* Log::openForWriting()
{
    if (disabled || !checkLevel())
        return nullptr;
    FILE* f = getFileHandle();
    if (f == nullptr)
        error = true;
    return f;
}

void Log::releaseFileHandle(FILE* f)
{
    if (whenToOpen == eachTime)
        std::fclose(f);
}

bool Log::isSpecial(char ch) const
{
    return std::strchr(specChars, ch) != nullptr; // finds the terminating zero too
}

void Log::myfputc(char ch, FILE* f) const { std::fputc(isSpecial(ch) ? '.' : ch, f); }

void Log::printf(const char* format, ...)
{
    FILE* f = openForWriting();
    if (f == nullptr)
        return;
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(f, format, arguments);
    va_end(arguments);
    releaseFileHandle(f);
}

void Log::myputc(char ch)
{
    if (isSpecial(ch))
        printf(".");
    else
        printf("%c", ch);
}

void Log::dump(void* data, std::size_t size, int what, const char* txtTitle, const char* hexTitle)
{
    FILE* f = openForWriting();
    if (f == nullptr)
        return;
    const char* bytes = static_cast<const char*>(data);
    if ((what & text) != 0) {
        std::fprintf(f, "\n%s\n", txtTitle);
        dumpText(bytes, size, f);
    }
    if ((what & hex) != 0) {
        std::fprintf(f, "\n%s\n", hexTitle);
        dumpHex(bytes, size, f);
    }
    releaseFileHandle(f);
}

void Log::dumpText(const char* bytes, std::size_t size, FILE* f) const
{
    for (std::size_t i = 0; i < size; ++i)
        if (bytes[i] != '\r')
            std::fputc(bytes[i], f);
    std::fputc('\n', f);
}

void Log::dumpHex(const char* bytes, std::size_t size, FILE* f) const
{
    const auto lineBytes = static_cast<std::size_t>(n);
    std::size_t i = 0;
    for (; i < size / lineBytes * lineBytes; i += lineBytes) {
        dumpHexLine(bytes + i, lineBytes, f);
        std::fputc('\n', f);
    }
    if (i < size)
        dumpHexLine(bytes + i, size - i, f);
    std::fputc('\n', f); // after a partial line its end, after full lines an empty line
}

/// Up to a line's bytes in hex, spaces for the missing ones, and the bytes as characters.
void Log::dumpHexLine(const char* bytes, std::size_t byteCount, FILE* f) const
{
    const auto lineBytes = static_cast<std::size_t>(n);
    for (std::size_t i = 0; i < lineBytes; ++i) {
        if (i < byteCount)
            std::fprintf(f, "%02X ", static_cast<unsigned int>(static_cast<unsigned char>(bytes[i])));
        else
            std::fputs("   ", f);
    }
    std::fputs("  ", f);
    for (std::size_t i = 0; i < byteCount; ++i)
        myfputc(bytes[i], f);
}

ILog& Log::level(int l)
{
    m_currLevel = l;
    return *this;
}

Log::operator bool() { return !error; }

void Log::setEnable(EnableMode mode) { disabled = mode == disable; }

int Log::getLevel() { return m_level; }

bool Log::isDisabled() { return disabled; }

void Log::logTime(const char* scopeName, double seconds, const char* executionKind)
{
    if (std::strcmp(executionKind, "COUNT") == 0)
        printf("Scope {%s} executions COUNT: %.0lf\n", scopeName, seconds);
    else
        printf("Scope {%s} %s execution time: %.3lf s\n", scopeName, executionKind, seconds / 1000000);
}

void Log::logMemory(const char* scopeName, double size, const char* executionKind)
{
    if (std::strcmp(executionKind, "COUNT") == 0) // the output for executions is the same as for times
        printf("Scope {%s} executions COUNT: %.0lf\n", scopeName, size);
    else
        printf("Scope {%s} %s memory usage: %.3lf K\n", scopeName, executionKind, size / 1024);
}
