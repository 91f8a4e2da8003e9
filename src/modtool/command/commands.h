#pragma once

#include "command.h"
#include "sword_texts.h"
#include "text_matcher.h"

#include <memory>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

// Each adds a command, its options and its help to the program's parser. The object outlives the parsing; the
// parser and `sword` outlive the object.

std::unique_ptr<ICommand> makeBuildCommand(CLI::App& program, const ISword& sword);
std::unique_ptr<ICommand> makeAddCommand(CLI::App& program, const ISword& sword);
std::unique_ptr<ICommand> makeGetCommand(CLI::App& program, const ISword& sword);

// These only read modules, or are as short. The program that users call is linked with them alone.

std::unique_ptr<ICommand> makeCheckCommand(CLI::App& program);
std::unique_ptr<ICommand> makeExportCommand(CLI::App& program);
std::unique_ptr<ICommand> makeShowCommand(CLI::App& program);
/// @param makeRegex  null in a program that is never asked for expressions
std::unique_ptr<ICommand> makeSearchCommand(CLI::App& program, RegexMaker makeRegex);
std::unique_ptr<ICommand> makeInfoCommand(CLI::App& program);
std::unique_ptr<ICommand> makeWordsCommand(CLI::App& program);
std::unique_ptr<ICommand> makeDiffCommand(CLI::App& program);
std::unique_ptr<ICommand> makeListCommand(CLI::App& program);
std::unique_ptr<ICommand> makeRemoveCommand(CLI::App& program);

} // namespace Kedrin::ModTool
