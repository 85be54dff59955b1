#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/CommandSettings.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "commands/Origins.h"
#include "commands/TracedCommand.h"
#include "commands/WhyRefused.h"
#include "files/OptionFile.h"
#include "text/Printable.h"

namespace ZelDebugDialog {

namespace {

model::OptionFile expectCommandFile(const std::string &path) {
  model::OptionFile file = model::readOptionFile(path);
  const std::string problem = !file.exists            ? "there is no such file"
                              : !file.problem.empty() ? file.problem
                              : file.line == 0 ? "there is no command in it"
                                               : "";
  if (problem.empty())
    return file;
  Refusal refusal(RefusalKind::unreadable,
                  path.empty() ? "''" : model::printable(path), problem);
  refusal.file = path;
  throw refusal;
}

} // namespace

CommandSettings ReadCommandFile(const std::string &path) {
  const model::OptionFile file = expectCommandFile(path);
  const model::TracedCommand traced(file.text, AfterFault::stop);
  CommandSettings read;
  read.text = file.text;
  read.line = file.line;
  read.result = traced.reading().result;
  read.error = traced.reading().message;
  if (!traced.reading().accepted()) {
    model::Desk desk;
    read.refusal =
        fmt::format("the command is refused: {}",
                    model::whyRefused(desk, traced.reading(), file.text));
  } else if (file.isCut()) {
    read.doubt = fmt::format("the command has {} characters, but only {} of a "
                             "line of an option file are read",
                             file.text.size(), longestOptionLine);
  }
  model::appendSettings(read, traced.snapshot(), traced.trace(), false);
  return read;
}

} // namespace ZelDebugDialog
