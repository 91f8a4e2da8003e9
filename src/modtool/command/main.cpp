#include "exec_full.h"
#include "language.h"
#include "process_setup.h"
#include "query_program.h"

#include <unistd.h>

#include <iostream>

int main(int argc, char* argv[])
{
    using namespace Kedrin::ModTool;
    setUpProcess();
    if (!isQuery(argc, argv))
        return execFullProgram(argv);
    chooseLanguage();
    std::ios::sync_with_stdio(false);
    return runQueryProgram(argc, argv, std::cout, std::cerr, ::isatty(STDERR_FILENO) ? &std::cerr : nullptr);
}
