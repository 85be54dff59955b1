#include <fstream>
#include <utility>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog {

bool ReadDesign(const DesignSources &sources, DesignModel &model) {
  DesignModel read;
  const std::ifstream file(sources.designFile);
  if (!file)
    read.Report({DesignDiagnostic::Severity::error, sources.designFile, 0,
                 "can not be opened"});
  model = std::move(read);
  return static_cast<bool>(file);
}

} // namespace ZelDebugDialog
