// A configuration as its state shows it, laid into an engine by its fields and
// written by the engine: what a state is held against.
#ifndef TESTS_CONFIGURATION_MODEL_WALK_REFERENCE_H
#define TESTS_CONFIGURATION_MODEL_WALK_REFERENCE_H

#include <optional>
#include <string>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"

namespace walk {

class Reference {
public:
  Reference();
  ~Reference();
  Reference(const Reference &) = delete;
  Reference &operator=(const Reference &) = delete;

  void load(const ZelDebugDialog::SessionState &state);
  /// Gives a setting another value, as the dialogs do.
  void set(const std::string &setting, const ZelDebugDialog::Value &value);
  /// Nothing where no command can be written.
  std::optional<std::string> write();

  /// Whether the setting can change the outcome, by trying everything.
  bool canMatter(const ZelDebugDialog::SessionState &state,
                 const std::string &setting);

private:
  void setField(const std::string &name, const ZelDebugDialog::Value &value,
                std::size_t device = 0);
  void setChain(const ZelDebugDialog::Value &value);
  bool canMatterWith(const ZelDebugDialog::SessionState &state,
                     const std::string &setting,
                     const std::vector<std::string> &together,
                     ZelDebugDialog::SettingValues &fixed);

  ZelDebugDialog::ProcessorInfoImp record;
  ZelDebugDialog::Engine engine;
  ZelDebugDialog::EngineImp *imp;
};

} // namespace walk

#endif
