#include "add_program.h"
#include "exec_sword_window.h"
#include "missing_sword.h"
#include "process_setup.h"

int main(int argc, char** argv)
{
    using namespace Kedrin;
    ModTool::setUpProcess();
    Add::execSwordWindow(argv);
    return Add::runAddProgram(argc, argv, Add::CMissingSword());
}
