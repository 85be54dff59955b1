#include "Ways.h"
#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "common/Require.h"

namespace bench {

Answer loadByDesignModel(const std::string &design) {
  ZelDebugDialog::DesignModel model;
  require(ReadDesign({design, {}, "", ""}, model) &&
              model.Diagnostics().empty(),
          "the design model");
  std::vector<std::string> names;
  model.getProcessorInstances(names, false);
  Answer answer;
  for (const std::string &name : names) {
    answer.push_back({name, {}});
    model.getPeripherals(answer.back().peripherals, name);
  }
  return answer;
}

} // namespace bench
