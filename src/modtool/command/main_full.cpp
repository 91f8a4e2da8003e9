#include "exec_sword.h"
#include "language.h"
#include "process_setup.h"
#include "program.h"

int main(int argc, char* argv[])
{
    Kedrin::ModTool::setUpProcess();
    Kedrin::ModTool::chooseLanguage();
    return Kedrin::ModTool::runProgram(argc, argv, Kedrin::ModTool::CSwordProgram(argv));
}
