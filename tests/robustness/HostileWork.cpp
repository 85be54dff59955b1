// Reads one large command and writes it again, and tells how much memory that
// took. What is done in `countedRegion` is what an instruction counter counts.
//
//   hostile_work shapes
//   hostile_work read devices 1000000
//   hostile_work write devices 1000000
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>

#include "Heap.h"
#include "HostileTexts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/Session.h"
#include "performance/CountedRegion.h"

namespace {

using ZelDebugDialog::KvoOption_Parser;

[[noreturn]] void fail(const std::string &what) {
  std::cerr << "hostile_work: " << what << '\n';
  std::exit(EXIT_FAILURE);
}

const robustness::HostileText &find(const std::string &name) {
  const auto &all = robustness::hostileTexts;
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&name](const robustness::HostileText &text) {
                                    return text.name == name;
                                  });
  if (found == all.end())
    fail("no shape is called " + name);
  return *found;
}

int read(std::string &command, bench::Session &session) {
  return KvoOption_Parser::ReadKvoCommand(std::move(command), session.imp);
}

/// Prints the bytes that went in or came out, and the most that was in use
/// beside the command that was handed in.
void report(std::size_t bytes, std::size_t peak) {
  std::cout << bytes << ' ' << peak << '\n';
}

void measureReading(const robustness::HostileText &text, std::size_t bytes) {
  bench::Session session;
  std::string command = text.make(bytes);
  const std::size_t size = command.size();
  int result = -1;
  const robustness::PeakUse peak;
  countedRegion([&] { result = read(command, session); });
  report(size, peak.bytes());
  if (result != text.result)
    fail("the command gives " + std::to_string(result));
}

void measureWriting(const robustness::HostileText &text, std::size_t bytes) {
  bench::Session session;
  std::string command = text.make(bytes);
  read(command, session);
  std::string written;
  const robustness::PeakUse peak;
  countedRegion(
      [&] { KvoOption_Parser::WriteKvoCmdString(session.imp, written); });
  report(written.size(), peak.bytes());
}

} // namespace

int main(int count, char **arguments) {
  const std::string work = count > 1 ? arguments[1] : "";
  if (work == "shapes" && count == 2) {
    for (const robustness::HostileText &text : robustness::hostileTexts)
      std::cout << text.name << '\n';
    return EXIT_SUCCESS;
  }
  if ((work != "read" && work != "write") || count != 4)
    fail("usage: hostile_work shapes | read SHAPE BYTES | write SHAPE BYTES");
  const std::size_t bytes = std::strtoul(arguments[3], nullptr, 10);
  if (work == "read")
    measureReading(find(arguments[2]), bytes);
  else
    measureWriting(find(arguments[2]), bytes);
}
