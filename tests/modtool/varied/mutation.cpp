#include "mutation.h"

#include <algorithm>

namespace varied_test {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view signs[] = {"<"sv,
                                      ">"sv,
                                      "&"sv,
                                      "\""sv,
                                      "'"sv,
                                      "\\"sv,
                                      "\0"sv,
                                      "\xFF"sv,
                                      "\r"sv,
                                      "\n"sv,
                                      "\t"sv,
                                      "|"sv,
                                      "#"sv,
                                      "{"sv,
                                      "}"sv,
                                      "["sv,
                                      "]"sv,
                                      ":"sv,
                                      ","sv,
                                      ";"sv,
                                      "-"sv,
                                      "--"sv,
                                      "0"sv,
                                      "-1"sv,
                                      "65535"sv,
                                      "65534"sv,
                                      "4294967296"sv,
                                      "1-65534"sv,
                                      "99999999999"sv,
                                      "1a"sv,
                                      "<!--"sv,
                                      "-->"sv,
                                      "<![CDATA["sv,
                                      "]]>"sv,
                                      "<?x?>"sv,
                                      "&#0;"sv,
                                      "&#x110000;"sv,
                                      "&amp;"sv,
                                      "&nbsp;"sv,
                                      "</"sv,
                                      "/>"sv,
                                      "\\v "sv,
                                      "\\c "sv,
                                      "\\id "sv,
                                      "\\f + x"sv,
                                      "\\f*"sv,
                                      "\\u0000"sv,
                                      "\\ud800"sv,
                                      "null"sv,
                                      "*a"sv,
                                      "&a"sv,
                                      "!!x"sv,
                                      "---\n"sv,
                                      "? "sv,
                                      "\xED\xA0\x80"sv,
                                      "\xC2\xAD"sv,
                                      "\xE2\x80\xA8"sv,
                                      "\xEF\xBB\xBF"sv,
                                      "\xCC\x81"sv,
                                      "<f>"sv,
                                      "</f>"sv,
                                      "<S>1</S>"sv,
                                      "{\\rtf1"sv,
                                      "\\'e1"sv,
                                      "\\par "sv};

constexpr std::string_view doctypes[] = {"<!DOCTYPE x [<!ENTITY a 'b'>]>"sv,
                                         "<!DOCTYPE x SYSTEM '/etc/hostname'>"sv};

/// A part of a text, of at most this many bytes.
struct Part
{
    std::size_t begin;
    std::size_t size;
};

Part partOf(const std::string& bytes, std::size_t most, CRandom& random)
{
    const std::size_t begin = random.number(bytes.size() + 1);
    return {begin, std::min<std::size_t>(bytes.size() - begin, random.number(most + 1))};
}

std::size_t anywhere(const std::string& bytes, CRandom& random) { return random.number(bytes.size() + 1); }

void flipBits(std::string& bytes, CRandom& random)
{
    for (unsigned int i = 1 + random.number(4); i > 0 && !bytes.empty(); --i)
        bytes[random.number(bytes.size())] ^= static_cast<char>(1u << random.number(8));
}

/// Some are repeated without end, as far as a test can.
void repeatPart(std::string& bytes, CRandom& random)
{
    constexpr unsigned int mostCopies = 20000, mostBytes = 1u << 18;
    const Part part = partOf(bytes, 200, random);
    const std::string content = bytes.substr(part.begin, part.size);
    std::size_t copies = random.oneIn(20) ? random.number(mostCopies) : random.number(8);
    copies = std::min(copies, mostBytes / std::max<std::size_t>(content.size(), 1));
    std::string all;
    for (; copies > 0; --copies)
        all += content;
    bytes.insert(part.begin, all);
}

/// Replaces a number by a sign, often another number.
void changeNumber(std::string& bytes, CRandom& random)
{
    const std::size_t begin = bytes.find_first_of("0123456789", anywhere(bytes, random));
    if (begin == std::string::npos)
        return;
    const std::size_t end = std::min(bytes.find_first_not_of("0123456789", begin), bytes.size());
    const std::string other =
        random.oneIn(2) ? std::string(random.oneOf(signs)) : std::to_string(random.number(100));
    bytes.replace(begin, end - begin, other);
}

void movePart(std::string& bytes, CRandom& random)
{
    const Part part = partOf(bytes, 300, random);
    const std::string content = bytes.substr(part.begin, part.size);
    bytes.erase(part.begin, part.size);
    bytes.insert(anywhere(bytes, random), content);
}

void mutateOnce(std::string& bytes, const std::vector<std::string>& others, CRandom& random)
{
    switch (random.number(11)) {
    case 0:
        return flipBits(bytes, random);
    case 1: {
        const Part part = partOf(bytes, random.oneIn(4) ? bytes.size() : 20, random);
        bytes.erase(part.begin, part.size);
        return;
    }
    case 2:
        return repeatPart(bytes, random);
    case 3:
    case 4:
        return changeNumber(bytes, random);
    case 5:
        return movePart(bytes, random);
    case 6:
        bytes.resize(anywhere(bytes, random));
        return;
    case 7: {
        const std::string& other = random.oneOf(others);
        const Part part = partOf(other, 500, random);
        bytes.insert(anywhere(bytes, random), other, part.begin, part.size);
        return;
    }
    case 8:
        bytes.insert(anywhere(bytes, random),
                     random.oneIn(10) ? random.oneOf(doctypes) : random.oneOf(signs));
        return;
    default:
        const Part part = partOf(bytes, 3, random);
        bytes.replace(part.begin, part.size, random.oneOf(signs));
    }
}

} // namespace

std::string mutated(std::string bytes, const std::vector<std::string>& others, CRandom& random)
{
    for (unsigned int i = random.number(7); i > 0; --i)
        mutateOnce(bytes, others, random);
    return bytes;
}

void mutate(Text& text, CRandom& random)
{
    for (Verse& verse : text) {
        if (random.oneIn(4))
            verse.text.insert(anywhere(verse.text, random), random.oneOf(signs));
        if (random.oneIn(20))
            verse.chapter = random.oneIn(2) ? 0 : random.number(70000);
        if (random.oneIn(20))
            verse.verse = random.oneIn(2) ? 0 : random.number(70000);
    }
    if (random.oneIn(4))
        random.shuffle(text);
}

} // namespace varied_test
