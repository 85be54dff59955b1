#include "documents/Designs.h"

#include <unordered_map>

#include "documents/Json.h"

namespace ZelDebugDialog::documents {

namespace {

constexpr std::size_t mostInterfaces = 8;
constexpr std::size_t mostEnds = 3;

std::vector<std::string> wiresOf(const DesignModel &design,
                                 std::size_t processor) {
  const auto interfacesOf = [&design](std::size_t instance) -> const auto & {
    return design.Component(design.Instances()[instance].component).interfaces;
  };
  std::vector<std::string> wires;
  const auto &interfaces = interfacesOf(processor);
  for (std::size_t at = 0;
       at < interfaces.size() && wires.size() < mostInterfaces; ++at)
    for (const DesignPort &far : design.WiredTo({processor, at}, mostEnds))
      wires.push_back(interfaces[at].name + ": " +
                      design.Instances()[far.instance].name + "." +
                      interfacesOf(far.instance)[far.interface].name);
  return wires;
}

} // namespace

const char *shownSeverity(DesignDiagnostic::Severity severity) {
  switch (severity) {
  case DesignDiagnostic::Severity::error:
    return "error";
  case DesignDiagnostic::Severity::warning:
    return "warning";
  case DesignDiagnostic::Severity::note:
    return "note";
  }
  return "";
}

Json diagnosticsJson(const DesignModel &design) {
  Json list = Json::array();
  for (const DesignDiagnostic &diagnostic : design.Diagnostics())
    list.push_back({{"file", diagnostic.file},
                    {"line", diagnostic.line},
                    {"severity", shownSeverity(diagnostic.severity)},
                    {"message", diagnostic.message}});
  return list;
}

std::vector<Undebuggable> findUndebuggable(const Board &board,
                                           const DesignModel &design) {
  std::unordered_map<std::string, std::size_t> byName;
  for (std::size_t at = 0; at < design.Instances().size(); ++at)
    byName.emplace(design.Instances()[at].name, at);
  std::vector<Undebuggable> others;
  for (const UndebuggableProcessor &other : board.Undebuggable())
    others.push_back({other.name, other.type, other.reason,
                      wiresOf(design, byName.at(other.name))});
  return others;
}

Json toJson(const std::vector<BoardProcessor> &processors) {
  Json list = Json::array();
  for (const BoardProcessor &processor : processors)
    list.push_back({{"instanceName", processor.name},
                    {"type", processor.type},
                    {"procFamily", processor.family},
                    {"procType", processor.procType},
                    {"connectionMask", processor.mask},
                    {"cpuNr", processor.number},
                    {"fpuType", processor.fpu},
                    {"connections", processor.connections}});
  return list;
}

Json toJson(const std::vector<Undebuggable> &processors) {
  Json list = Json::array();
  for (const Undebuggable &other : processors)
    list.push_back({{"instanceName", other.name},
                    {"type", other.type},
                    {"reason", other.reason},
                    {"wiredTo", other.wiredTo}});
  return list;
}

} // namespace ZelDebugDialog::documents
