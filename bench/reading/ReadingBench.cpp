// Reading connect commands, beside other ways to read the same content.
#include <algorithm>
#include <memory>

#include "Peers.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/Run.h"
#include "common/Session.h"

namespace {

using ZelDebugDialog::KvoOption_Parser;

constexpr const char *group = "read";

/// Whether the engine holds what the command says.
bool holds(const ZelDebugDialog::EngineImp &imp,
           const bench::Command &expected) {
  const auto isRead = [](const ZelDebugDialog::JtagOption *read,
                         const bench::Device &device) {
    return bench::Device{read->devicenr, read->partname, read->irlength,
                         read->idcode} == device;
  };
  const ZelDebugDialog::ProcessorInfoImp &record = *imp.currentProcessor;
  const ZelDebugDialog::CableOption &cable = *imp.cableOption;
  return record.connectionType == ZelDebugDialog::Engine::CONNECT_HW &&
         cable.cableType == ZelDebugDialog::Engine::QUORLA_PODUSB &&
         cable.port == expected.port && cable.frequency == expected.frequency &&
         std::equal(imp.jtagChain.begin(), imp.jtagChain.end(),
                    expected.chain.begin(), expected.chain.end(), isRead) &&
         record.debugDevice == expected.debugDevice &&
         record.cpuNr == expected.cpuNumber &&
         record.romemStartAdr == expected.romStart &&
         record.romemSize == expected.romSize;
}

void addEngine(std::size_t devices) {
  bench::add(group, "engine", devices, [devices] {
    const auto text =
        std::make_shared<std::string>(bench::chainCommand(devices));
    const auto session = std::make_shared<bench::Session>();
    bench::require(KvoOption_Parser::ReadKvoCommand(*text, session->imp) == 0 &&
                       holds(session->imp, bench::chainSettings(devices)),
                   "the engine");
    session->forgetChain();
    // Releasing the chain belongs to it: the peers' commands end as well.
    return bench::Prepared{text->size(), [text, session] {
                             KvoOption_Parser::ReadKvoCommand(*text,
                                                              session->imp);
                             benchmark::DoNotOptimize(session->imp.jtagChain);
                             session->forgetChain();
                           }};
  });
}

void addPeer(const bench::Peer &peer, std::size_t devices) {
  bench::add(group, peer.name, devices, [&peer, devices] {
    const auto input = std::make_shared<const bench::Input>(devices);
    bench::require(peer.isRight(*input, bench::chainSettings(devices)),
                   peer.name);
    return bench::Prepared{input->text.size(),
                           [&peer, input] { peer.read(*input); },
                           peer.leavesOut};
  });
}

} // namespace

int main(int count, char **arguments) {
  for (const std::size_t devices : bench::sizes) {
    addEngine(devices);
    for (const bench::Peer &peer : bench::peers())
      if (devices <= peer.mostDevices)
        addPeer(peer, devices);
  }
  return bench::run(count, arguments);
}
