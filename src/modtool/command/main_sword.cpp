#include "language.h"
#include "process_setup.h"
#include "program.h"
#include "sword_access.h"

int main(int argc, char* argv[])
{
    Kedrin::ModTool::setUpProcess();
    Kedrin::ModTool::chooseLanguage();
    return Kedrin::ModTool::runProgram(argc, argv, Kedrin::ModTool::CSword());
}
