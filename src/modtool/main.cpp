#include "language.h"
#include "process_setup.h"
#include "query_commands.h"
#include "query_program.h"
#include "whole_program.h"

#include <iostream>

int main(int argc, char* argv[])
{
    using namespace Kedrin::ModTool;
    setUpProcess();
    if (argc < 2 || !CQueryCommands::isOne(argv[1]))
        return becomeWholeProgram(argv);
    chooseLanguage();
    std::ios::sync_with_stdio(false);
    return runQueryProgram(argc, argv, std::cout, std::cerr);
}
