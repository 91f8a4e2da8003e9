#include "text_input.h"

#include "ascii.h"
#include "errors.h"
#include "input_file.h"
#include "messages.h"
#include "module_format.h"

#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr const char* utf8Name = "UTF-8";

std::string wholeStandardInput()
{
    constexpr std::size_t blockBytes = 1 << 16;
    std::string content;
    for (std::size_t end = 0;;) {
        content.resize(end + blockBytes);
        const ssize_t count = ::read(STDIN_FILENO, content.data() + end, blockBytes);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw CBuildError(message("%s: cannot be read", standardInput));
        end += static_cast<std::size_t>(count);
        content.resize(end);
        if (end > maxSourceBytes)
            throw CBuildError(message("%s: is larger than 64 MiB", standardInput));
        if (count == 0)
            return content;
    }
}

std::string wholeFile(const std::string& fileName)
{
    if (fileName == standardInput)
        return wholeStandardInput();
    ut::CInputFile file(fileName.c_str());
    if (!file.isOpen())
        throw CBuildError(message("%s: cannot be opened", fileName));
    if (file.size() > maxSourceBytes)
        throw CBuildError(message("%s: is larger than 64 MiB", fileName));
    std::string content(static_cast<std::size_t>(file.size()), '\0');
    if (file.readAt(0, content.data(), content.size()) != content.size())
        throw CBuildError(message("%s: cannot be read", fileName));
    return content;
}

/// The value of `encoding=` in an XML declaration.
std::string declaredInXml(std::string_view declaration)
{
    const std::size_t name = declaration.find("encoding");
    if (name == std::string_view::npos)
        return "";
    const std::size_t open = declaration.find_first_of("'\"", name);
    if (open == std::string_view::npos)
        return "";
    const std::size_t close = declaration.find(declaration[open], open + 1);
    return close == std::string_view::npos ? "" : std::string(declaration.substr(open + 1, close - open - 1));
}

/// \ide names an encoding in words: "65001 - Unicode (UTF-8)", "CP-1251".
std::string declaredInUsfm(std::string_view head)
{
    constexpr std::string_view marker = "\\ide ";
    const std::size_t begin = head.find(marker);
    if (begin == std::string_view::npos)
        return "";
    std::string_view value = head.substr(begin + marker.size());
    value = value.substr(0, value.find_first_of("\r\n\\"));
    if (value.find("65001") != std::string_view::npos || value.find("UTF-8") != std::string_view::npos)
        return utf8Name;
    if (const std::size_t page = value.find("125");
        page != std::string_view::npos && page + 4 <= value.size())
        return "windows-" + std::string(value.substr(page, 4));
    return std::string(trimmedEnd(value, " "));
}

std::string encodingOf(std::string_view content)
{
    constexpr std::size_t headBytes = 1024;
    if (content.starts_with(byteOrderMark))
        return utf8Name;
    if (content.starts_with("\xFF\xFE"))
        return "UTF-16LE";
    if (content.starts_with("\xFE\xFF"))
        return "UTF-16BE";
    const std::string_view head = content.substr(0, headBytes);
    std::string declared;
    if (head.starts_with("<?xml"))
        declared = declaredInXml(head.substr(0, head.find("?>")));
    else if (head.starts_with("\\id"))
        declared = declaredInUsfm(head);
    // A declaration that can be read byte by byte is not in UTF-16, whatever it says.
    const bool isWide = declared.starts_with("UTF-16") || declared.starts_with("utf-16");
    return declared.empty() || isWide ? utf8Name : declared;
}

std::size_t lineAt(std::string_view text)
{
    return 1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

void requireUtf8(std::string_view text, const std::string& fileName)
{
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t i = 0; i < length;) {
        if (bytes[i] < 0x80) {
            ++i;
            continue;
        }
        const std::int32_t begin = i;
        UChar32 codePoint;
        U8_NEXT(bytes, i, length, codePoint);
        if (codePoint < 0)
            failAtLine(fileName, lineAt(text.substr(0, static_cast<std::size_t>(begin))),
                       message("not valid %s", utf8Name));
    }
}

std::string converted(const std::string& content, const std::string& fileName, const std::string& encoding)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(ucnv_open(encoding.c_str(), &status),
                                                                       &ucnv_close);
    if (U_FAILURE(status))
        throw CBuildError(message("%s: unknown encoding %s", fileName, inQuotes(encoding)));
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    std::string text;
    text.reserve(content.size());
    std::array<UChar, 16384> buffer;
    std::size_t held = 0; // 1: the first half of a surrogate pair is left at the start
    const char* next = content.data();
    const char* end = next + content.size();
    do {
        status = U_ZERO_ERROR;
        UChar* out = buffer.data() + held;
        ucnv_toUnicode(converter.get(), &out, buffer.data() + buffer.size(), &next, end, nullptr, true,
                       &status);
        held = out != buffer.data() && U16_IS_LEAD(out[-1]) && status == U_BUFFER_OVERFLOW_ERROR ? 1 : 0;
        out -= held;
        icu::UnicodeString(false, buffer.data(), static_cast<int32_t>(out - buffer.data()))
            .toUTF8String(text);
        if (held != 0)
            buffer[0] = *out;
    } while (status == U_BUFFER_OVERFLOW_ERROR);
    if (U_FAILURE(status))
        failAtLine(fileName, lineAt(text), message("not valid %s", encoding));
    return text;
}

/// Whether the content may be recognised: XML says its encoding, and so does a byte order mark.
bool saysNoEncoding(std::string_view content)
{
    const std::size_t begin = std::min(content.find_first_not_of(" \t\r\n"), content.size());
    return encodingOf(content) == utf8Name && !content.starts_with(byteOrderMark) &&
           !content.substr(begin).starts_with('<') &&
           content.substr(0, 1024).find("\\ide") == std::string_view::npos;
}

} // namespace

bool isUtf8(std::string_view text)
{
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t i = 0; i < length;) {
        UChar32 codePoint = 0;
        U8_NEXT(bytes, i, length, codePoint);
        if (codePoint < 0)
            return false;
    }
    return true;
}

bool isWindows1251(std::string_view content)
{
    constexpr std::string_view unusual =
        "\x80\x81\x83\x86\x87\x88\x89\x8A\x8C\x8D\x8E\x8F\x90\x98\x99\x9A\x9C\x9D\x9E\x9F";
    constexpr std::uint64_t leastLetters = 20;
    std::uint64_t above = 0, letters = 0, small = 0, inWords = 0, strange = 0;
    bool followsLetter = false;
    for (const char c : content) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isLetter = byte >= 0xC0 || byte == 0xA8 || byte == 0xB8; // the last two are Ё and ё
        above += byte >= 0x80 ? 1 : 0;
        letters += isLetter ? 1 : 0;
        small += byte >= 0xE0 || byte == 0xB8 ? 1 : 0;
        inWords += isLetter && followsLetter ? 1 : 0;
        strange += byte >= 0x80 && byte < 0xA0 && unusual.find(c) != std::string_view::npos ? 1 : 0;
        followsLetter = isLetter;
    }
    return letters >= leastLetters && letters * 10 >= above * 9 && small * 2 > letters &&
           inWords * 2 >= letters && strange * 200 < letters;
}

std::string decodedText(std::string content, const std::string& fileName, const std::string& encoding,
                        std::string* recognised)
{
    std::string name = encoding.empty() ? encodingOf(content) : encoding;
    bool isValid = false;
    if (recognised) {
        recognised->clear();
        const bool mayBeOther = encoding.empty() && saysNoEncoding(content);
        isValid = mayBeOther && isUtf8(content);
        if (mayBeOther && !isValid && isWindows1251(content))
            *recognised = name = "windows-1251";
    }
    if (ucnv_compareNames(name.c_str(), utf8Name) != 0)
        content = converted(content, fileName, name);
    else if (!isValid)
        requireUtf8(content, fileName);
    while (content.starts_with(byteOrderMark)) // concatenated files have several
        content.erase(0, byteOrderMark.size());
    if (content.find('\n') == std::string::npos)
        std::replace(content.begin(), content.end(), '\r', '\n'); // each line ends with CR alone
    return content;
}

std::string readText(const std::string& fileName, const std::string& encoding, std::string* recognised)
{
    return decodedText(wholeFile(fileName), fileName, encoding, recognised);
}

} // namespace Kedrin::ModTool
