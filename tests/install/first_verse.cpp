// A program of somebody else: it prints the title and the first verse of every translation in a folder, in Windows-1251.

#include <tolvo_bible.h>

#include <exception>
#include <iostream>
#include <memory>

int main(int argc, char** argv)
{
    using namespace Kedrin::Tolvo;
    try {
        const CBibleModules modules(argc > 1 ? argv[1] : "/usr/lib/kedrin/modules/bibles");
        for (unsigned int module = 0; module < modules.count(); ++module) {
            modules.ValidateBible(module);
            const std::unique_ptr<const CBible> bible(modules.loadBible(module));
            std::cout << modules.info(module)->fullTitle() << '\n' << (*bible)[CRef(0, 0, 0, false)] << '\n';
        }
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
    }
    return 1;
}
