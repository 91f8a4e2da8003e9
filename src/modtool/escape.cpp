#include "escape.h"

namespace Kedrin::ModTool {

namespace {

struct Entity
{
    char character;
    std::string_view escaped;
};

constexpr Entity entities[] = {{'<', "&lt;"}, {'>', "&gt;"}, {'&', "&amp;"}};

constexpr std::string_view special = "<>&";

std::string_view entityOf(char c)
{
    for (const Entity& entity : entities)
        if (entity.character == c)
            return entity.escaped;
    return {};
}

} // namespace

std::size_t escapedSize(std::string_view text)
{
    std::size_t size = text.size();
    for (std::size_t i = text.find_first_of(special); i < text.size(); i = text.find_first_of(special, i + 1))
        size += entityOf(text[i]).size() - 1;
    return size;
}

void appendEscaped(std::string_view text, std::string& out)
{
    std::size_t begin = 0;
    for (std::size_t i = text.find_first_of(special); i < text.size();
         i = text.find_first_of(special, i + 1)) {
        out += text.substr(begin, i - begin);
        out += entityOf(text[i]);
        begin = i + 1;
    }
    out += text.substr(begin);
}

std::string unescaped(std::string_view stored)
{
    std::string text;
    while (!stored.empty()) {
        const Entity* found = nullptr;
        if (stored.front() == '&')
            for (const Entity& entity : entities)
                if (stored.starts_with(entity.escaped))
                    found = &entity;
        text += found ? found->character : stored.front();
        stored.remove_prefix(found ? found->escaped.size() : 1);
    }
    return text;
}

} // namespace Kedrin::ModTool
