// A message output of one's own: a program that defines `eval` itself has it
// called in place of the library's, which writes to standard error. Here the
// messages are collected, as for a pane of an IDE.
#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include "ComMsgMgr.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"

namespace {

std::vector<std::string> &pane() {
  static std::vector<std::string> lines;
  return lines;
}

} // namespace

void ComMsgMgr::sendMsg::eval(int kind, const char * /*sourcePath*/,
                              int /*line*/, const char *tool, unsigned /*mask*/,
                              const char *format, ...) {
  char text[2048];
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  pane().push_back(std::string(kind == 1 ? "error" : "message") + " of " +
                   tool + ": " + text);
}

int main() {
  ZelDebugDialog::Engine engine;
  ZelDebugDialog::EngineImp *const state = engine.GetProcessorList(nullptr);
  const bool refused =
      state->GetProcessorInfo("connect lc hdu -cable colour red") == nullptr;
  for (const std::string &line : pane()) // each ends its line
    std::fputs(line.c_str(), stdout);
  return refused ? 0 : 1;
}
