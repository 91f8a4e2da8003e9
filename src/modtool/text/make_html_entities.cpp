// Run while building: prints libxml2's table of HTML's named characters as lines of C++, in the order of the names. The
// table is compiled in, as loading that library, and those which it needs, takes a tenth of the time of a short command.

#include <libxml/HTMLparser.h>

#include <iostream>
#include <map>
#include <string>

int main()
{
    std::map<std::string, unsigned int> entities;
    constexpr unsigned int lastCodePoint = 0xFFFF; // HTML 4 names none behind it
    for (unsigned int codePoint = 1; codePoint <= lastCodePoint; ++codePoint)
        if (const htmlEntityDesc* entity = htmlEntityValueLookup(codePoint))
            entities.emplace(entity->name, codePoint);
    for (const auto& [name, codePoint] : entities)
        std::cout << "{\"" << name << "\", " << codePoint << "},\n";
    return std::cout.flush() ? 0 : 1;
}
