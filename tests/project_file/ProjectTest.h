// Project files as texts, and what is read, merged and told of them as lines.
#ifndef TESTS_PROJECT_FILE_PROJECTTEST_H
#define TESTS_PROJECT_FILE_PROJECTTEST_H

#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "ZelDebugDialog/ProjectFile/Project.h"
#include "configuration_model/ModelTest.h"

namespace project_test {

/// What stands in front of every project file that is not about it. One line.
inline constexpr const char *head = "design = \"board.xml\"\n";

/// How often a random test runs; less where a debugger of memory watches.
int rounds(int most);

/// Reads texts; the project file gets `head` in front.
ZelDebugDialog::Project
read(const std::string &project,
     const std::optional<std::string> &local = std::nullopt);

/// "zeldebug.toml:2:1"
std::string shown(const ZelDebugDialog::ProjectPlace &place);
/// "zeldebug.toml:2:1 unknown-key debugDevice", with the suggestion.
std::string shown(const ZelDebugDialog::ProjectFault &fault);
std::vector<std::string>
shown(const std::vector<ZelDebugDialog::ProjectFault> &faults);
/// "debugDevice = 3 (zeldebug.toml:3:15)"
std::vector<std::string> shown(const ZelDebugDialog::MergedProcessor &merged);
/// "cable.port = USB21 (zeldebug.toml:3:8) by zeldebug.local.toml:2:1"
std::vector<std::string>
shownDropped(const ZelDebugDialog::MergedProcessor &merged);

/// A board with processors of every family, as of the model's tests.
class ProjectTest : public model_test::ModelTest {
protected:
  const ZelDebugDialog::BoardProcessor &
  processor(const std::string &name) const;
  /// Merged for one processor.
  ZelDebugDialog::MergedProcessor
  merge(const std::string &project,
        const std::optional<std::string> &local = std::nullopt,
        const std::string &name = "lc",
        const ZelDebugDialog::SettingValues &line = {}) const;
};

} // namespace project_test

#endif
