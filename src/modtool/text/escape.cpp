#include "escape.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

struct Entity
{
    char character;
    std::string_view escaped;
};

constexpr Entity entities[] = {{'<', "&lt;"}, {'>', "&gt;"}, {'&', "&amp;"}};

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
    for (const Entity& entity : entities) // most texts have none, which find() sees fastest
        for (std::size_t i = text.find(entity.character); i != std::string_view::npos;
             i = text.find(entity.character, i + 1))
            size += entity.escaped.size() - 1;
    return size;
}

void appendEscaped(std::string_view text, std::string& out)
{
    if (escapedSize(text) == text.size()) {
        out += text;
        return;
    }
    for (const char c : text) {
        const std::string_view escaped = entityOf(c);
        if (escaped.empty())
            out += c;
        else
            out += escaped;
    }
}

std::string unescaped(std::string_view stored)
{
    std::string text;
    text.reserve(stored.size());
    while (true) {
        const std::size_t sign = std::min(stored.find('&'), stored.size());
        text += stored.substr(0, sign);
        stored.remove_prefix(sign);
        if (stored.empty())
            return text;
        const auto* found = std::find_if(std::begin(entities), std::end(entities), [&](const Entity& entity) {
            return stored.starts_with(entity.escaped);
        });
        const bool isEntity = found != std::end(entities);
        text += isEntity ? found->character : '&';
        stored.remove_prefix(isEntity ? found->escaped.size() : 1);
    }
}

} // namespace Kedrin::ModTool
