// The settings that a line asks for, read as far as it goes without a
// configuration. They hold together, whatever their order.
#ifndef ZELDEBUG_ASKEDSETTINGS_H
#define ZELDEBUG_ASKEDSETTINGS_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

#include "output/Failure.h"
#include "output/SettingsDocument.h"

namespace zeldebug {

struct AskedSettings {
  ZelDebugDialog::SettingValues values;       ///< of options
  std::map<std::string, std::string> options; ///< setting → the option
  std::vector<std::string> unset;             ///< back to their defaults
  std::optional<std::string> command;         ///< of --from
  std::optional<std::string> copyFrom;        ///< a processor
  std::optional<std::string> file;            ///< of --settings
  SettingsDocument document;                  ///< what stands in it

  bool empty() const;
  /// Whether an option or the document asks for a setting by name.
  bool asksFor(const std::string &setting) const;
  /// @param copied  of `copyFrom`; null without
  ZelDebugDialog::ChangeRequest
  request(const ZelDebugDialog::Session *copied) const;
  /// A refusal of the request, said of what the person typed.
  Failure failureOf(const ZelDebugDialog::Refusal &refusal) const;
};

} // namespace zeldebug

#endif
