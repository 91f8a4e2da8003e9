#include "form_fixture.h"

#include <iostream>

/// write_modules FOLDER: writes three modules, the last one damaged, into the modules directory FOLDER.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: write_modules FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    window_test::alphaModule("Превод Алфа").write(folder / "а");
    window_test::betaModule("Превод Бета").write(folder / "б");
    test_support::ModuleFiles damaged = window_test::betaModule("Повреден превод");
    damaged.bytes.erase("Conc.bin");
    damaged.write(folder / "в");
}
