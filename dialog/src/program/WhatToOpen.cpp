#include "program/WhatToOpen.h"

#include <cstdlib>
#include <filesystem>

#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"

namespace ZelDebugDialog::dialog {

namespace {

DesignSources sourcesOf(const std::string &file) {
  DesignSources sources;
  sources.designFile = file;
  return sources;
}

} // namespace

WhatToOpen::WhatToOpen(const std::string &file) : WhatToOpen(sourcesOf(file)) {}

WhatToOpen::WhatToOpen(const DesignSources &sources)
    : DesignSources(sources),
      isProject(std::filesystem::path(sources.designFile).extension() ==
                std::filesystem::path(projectFileName).extension()),
      wishes(AskEnvironment(std::getenv)) {}

} // namespace ZelDebugDialog::dialog
