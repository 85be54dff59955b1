// Where each setting of a shown configuration comes from.
#ifndef ZELDEBUG_ORIGIN_H
#define ZELDEBUG_ORIGIN_H

#include <map>
#include <set>
#include <string>

#include <ZelDebugDialog/CommandTrace.h>

#include "Configuration.h"

namespace zeldebug {

class Origins {
public:
  /// The design says which processor it is.
  void noteDesign();
  /// What the words of a command in a file set, each with its column.
  void noteCommand(const ZelDebugDialog::CommandTrace &trace);
  /// A selection takes the number and the FPU of the processor from the design,
  /// whatever the command said.
  void noteSelection(const ZelDebugDialog::ProcessorInfoImp &record);
  /// What the words of --from set, in place of a file.
  void noteCommandOfLine(const ZelDebugDialog::CommandTrace &trace);
  /// What options of the command line changed, or asked for by name.
  void noteOptions(const Configuration &before, const Configuration &after,
                   const std::set<std::string> &given);

  /// "default", "design", "file:<column>" or "option".
  std::string of(const std::string &setting) const;

  /// In the shape of the configuration's own JSON.
  Json toJson(const Configuration &configuration) const;

private:
  std::map<std::string, std::string> known;
};

} // namespace zeldebug

#endif
