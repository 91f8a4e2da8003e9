#include "language.h"
#include "program.h"

int main(int argc, char* argv[])
{
    Kedrin::ModTool::chooseLanguage();
    return Kedrin::ModTool::runProgram(argc, argv);
}
