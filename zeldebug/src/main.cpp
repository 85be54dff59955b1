#include <csignal>

#include "Tool.h"

int main(int argc, char **argv) {
  // A pipe that is closed and a file that gets too long are errors of the write
  // that meets them, not the end of the program.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  zeldebug::Output output;
  const zeldebug::ExitStatus status = zeldebug::runTool(argc, argv, output);
  return static_cast<int>(output.finish(status));
}
