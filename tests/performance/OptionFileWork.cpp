// Writes or reads one option file between two system calls that mark it, for
// system_calls.py to find.
//
//   option_file_work write|read
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/ChainCommand.h"
#include "common/Session.h"

using ZelDebugDialog::KvoOption_Parser;

namespace {

constexpr const char *processor = "cpu";

void mark() { static_cast<void>(access("option-file-work", F_OK)); }

int work(bench::Session &session, std::string_view what) {
  return what == "write"
             ? KvoOption_Parser::WriteKvoOptFile(session.imp)
             : KvoOption_Parser::ReadKvoOptFile(processor, session.imp);
}

} // namespace

int main(int count, char **arguments) {
  if (count != 2)
    return EXIT_FAILURE;
  bench::Session session;
  session.imp.currentProcessor->instanceName = processor;
  KvoOption_Parser::ReadKvoCommand(bench::chainCommand(2), session.imp);
  // Once before, so that the heap has grown to what it takes.
  if (work(session, arguments[1]) != 0) {
    std::cerr << "the option file was refused\n";
    return EXIT_FAILURE;
  }
  mark();
  const int result = work(session, arguments[1]);
  mark();
  return result;
}
