// Writing connect commands, beside other ways to put the same text together.
#include <array>
#include <memory>

#include "Writers.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/Run.h"
#include "common/Session.h"

namespace {

using ZelDebugDialog::KvoOption_Parser;

constexpr const char *group = "write";

constexpr std::array<bench::Writer, 4> peers{{
    {"to_chars, append", bench::writeByToChars},
    {"snprintf, append", bench::writeBySnprintf},
    {"ostringstream", bench::writeByStream},
    {"boost::format", bench::writeByFormat},
}};

void addEngine(std::size_t devices) {
  bench::add(group, "engine", devices, [devices] {
    const std::string expected = bench::chainCommand(devices);
    auto session = std::make_shared<bench::Session>();
    KvoOption_Parser::ReadKvoCommand(expected, session->imp);
    std::string out;
    bench::require(KvoOption_Parser::WriteKvoCmdString(session->imp, out) ==
                           0 &&
                       out == expected,
                   "the engine");
    return bench::Prepared{expected.size(), [session] {
                             std::string written;
                             KvoOption_Parser::WriteKvoCmdString(session->imp,
                                                                 written);
                             benchmark::DoNotOptimize(written);
                           }};
  });
}

void addPeer(const bench::Writer &peer, std::size_t devices) {
  bench::add(group, peer.name, devices, [&peer, devices] {
    auto command =
        std::make_shared<bench::Command>(bench::chainSettings(devices));
    const std::string expected = bench::chainCommand(devices);
    bench::require(peer.write(*command) == expected, peer.name);
    return bench::Prepared{expected.size(), [&peer, command] {
                             benchmark::DoNotOptimize(peer.write(*command));
                           }};
  });
}

} // namespace

int main(int count, char **arguments) {
  for (const std::size_t devices : bench::sizes) {
    addEngine(devices);
    for (const bench::Writer &peer : peers)
      addPeer(peer, devices);
  }
  return bench::run(count, arguments);
}
