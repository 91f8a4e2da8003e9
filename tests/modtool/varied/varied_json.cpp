// JSON and YAML.

#include "varied_formats.h"
#include "varied_values.h"

#include <array>
#include <cstdio>

namespace varied_test {

namespace {

using Kind = Value::Kind;

/// Of the UTF-16 code unit.
std::string escapeOf(unsigned int unit)
{
    std::array<char, 8> digits{};
    std::snprintf(digits.data(), digits.size(), unit % 2 == 0 ? "\\u%04x" : "\\u%04X", unit);
    return digits.data();
}

class CJsonWriter
{
public:
    explicit CJsonWriter(CRandom& random) : m_random(random), m_isPretty(random.oneIn(2)) {}

    std::string written(Value value)
    {
        write(value, 0);
        return std::move(m_text);
    }

private:
    void gap()
    {
        if (m_random.oneIn(6))
            m_text += " \t\n"[m_random.number(3)];
    }

    void lineEnd(unsigned int depth)
    {
        if (m_isPretty)
            m_text += '\n' + std::string(2 * depth, ' ');
        gap();
    }

    void write(Value& value, unsigned int depth)
    {
        if (value.kind == Kind::string)
            return writeString(value.content);
        if (value.kind == Kind::number) {
            m_text += value.content;
            return;
        }
        const bool isMap = value.kind == Kind::map;
        if (value.mayBeShuffled)
            m_random.shuffle(value.items);
        m_text += isMap ? '{' : '[';
        bool isFirst = true;
        for (auto& [key, item] : value.items) {
            m_text += isFirst ? "" : ",";
            if (!isFirst || !m_isFirst)
                lineEnd(depth + 1);
            isFirst = m_isFirst = false;
            if (isMap) {
                writeString(key);
                gap();
                m_text += ':';
                gap();
            }
            write(item, depth + 1);
        }
        gap();
        m_text += isMap ? '}' : ']';
    }

    void writeString(const std::string& content)
    {
        m_text += '"';
        for (std::size_t i = 0; i < content.size(); ++i) {
            const auto byte = static_cast<unsigned char>(content[i]);
            if (byte == '"' || byte == '\\')
                m_text += m_random.oneIn(4) ? escapeOf(byte) : std::string("\\") + content[i];
            else if (byte < 0x80 && m_random.oneIn(40))
                m_text += escapeOf(byte);
            else if ((byte & 0xE0u) == 0xC0 && m_random.oneIn(20)) {
                m_text +=
                    escapeOf((byte & 0x1Fu) << 6 | (static_cast<unsigned char>(content[i + 1]) & 0x3Fu));
                ++i;
            } else
                m_text += content[i];
        }
        m_text += '"';
    }

    CRandom& m_random;
    bool m_isPretty;
    bool m_isFirst = true; ///< the beginning tells the format, so no blank stands there
    std::string m_text;
};

class CYamlWriter
{
public:
    explicit CYamlWriter(CRandom& random) : m_random(random) {}

    std::string written(Value value)
    {
        write(value, 0);
        return std::move(m_text);
    }

private:
    /// A list or map that begins on a line of its own.
    void write(Value& value, unsigned int depth)
    {
        if (value.mayBeShuffled)
            m_random.shuffle(value.items);
        for (auto& [key, item] : value.items) {
            comment();
            m_text += std::string(2 * depth, ' ') + (value.kind == Kind::map ? keyOf(key) + ':' : "-");
            if (item.kind == Kind::list && item.items.empty()) {
                m_text += " []\n";
            } else if (item.kind == Kind::list || item.kind == Kind::map) {
                m_text += m_random.oneIn(10) ? " # бележка\n" : "\n";
                write(item, depth + 1);
            } else {
                m_text += ' ' + scalar(item, depth);
            }
        }
    }

    void comment()
    {
        if (m_random.oneIn(20))
            m_text += m_random.oneIn(2) ? "# text: бележка\n" : "\n";
    }

    std::string keyOf(const std::string& key)
    {
        return m_random.oneIn(8) ? '"' + key + '"' : m_random.oneIn(8) ? '\'' + key + '\'' : key;
    }

    /// With its line end.
    std::string scalar(const Value& value, unsigned int depth)
    {
        if (value.kind == Kind::number)
            return value.content + (m_random.oneIn(10) ? " # бележка\n" : "\n");
        const std::string& content = value.content;
        const bool isPlain = !content.empty() && content != "null" &&
                             content.find(": ") == std::string::npos &&
                             content.find(" #") == std::string::npos && !content.ends_with(':') &&
                             static_cast<unsigned char>(content[0] | 0x20) >= 'a';
        switch (m_random.number(content.empty() ? 2 : isPlain ? 5 : 4)) {
        case 0:
            return inQuotes(content, '\'', "''");
        case 1:
            return inQuotes(content, '"', "\\\"");
        case 2:
        case 3:
            return block(content, depth);
        default:
            return content + (m_random.oneIn(10) ? " # бележка\n" : "\n");
        }
    }

    static std::string inQuotes(const std::string& content, char mark, const char* escaped)
    {
        std::string quoted(1, mark);
        for (const char c : content)
            quoted += c == mark ? escaped : std::string(1, c);
        return quoted + mark + '\n';
    }

    /// Literal or folded, with a line end for some blanks.
    std::string block(const std::string& content, unsigned int depth)
    {
        static constexpr const char* heads[] = {"|", "|-", ">", ">-", "|+"};
        const std::string indent(2 * depth + 2, ' ');
        std::string lines = m_random.oneOf(heads) + ('\n' + indent);
        for (const char c : content)
            lines += c == ' ' && m_random.oneIn(8) ? '\n' + indent : std::string(1, c);
        return lines + '\n';
    }

    CRandom& m_random;
    std::string m_text;
};

} // namespace

std::vector<File> writeJson(const Text& text, CRandom& random)
{
    static constexpr const char* names[][2] = {
        {"", ""}, {"var bible = ", ";"}, {"bible = ", ""}, {"export default ", ";\n"}};
    const std::string value = CJsonWriter(random).written(structured(text, false, random));
    const auto& around = random.oneIn(3) ? random.oneOf(names) : names[0];
    return {{"made.json",
             withByteOrderMark(withLineEnds(around[0] + value + around[1] + '\n', true, random), random)}};
}

std::vector<File> writeYaml(const Text& text, CRandom& random)
{
    static constexpr const char* heads[] = {"", "---\n", "%YAML 1.1\n---\n", "# бележка\n", "\n"};
    const std::string value = CYamlWriter(random).written(structured(text, true, random));
    return {
        {"made.yaml", withByteOrderMark(withLineEnds(random.oneOf(heads) + value, true, random), random)}};
}

} // namespace varied_test
