#include "add_program.h"
#include "process_setup.h"
#include "sword_access.h"

int main(int argc, char** argv)
{
    using namespace Kedrin;
    ModTool::setUpProcess();
    return Add::runAddProgram(argc, argv, ModTool::CSword());
}
