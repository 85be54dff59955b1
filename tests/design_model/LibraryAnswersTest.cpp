// Designs that others made, which lie outside of this project.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "Answers.h"

namespace ZelDebugDialog {
namespace {

namespace fs = std::filesystem;

/// One for each design, or two where a component has two.
const char *const designs[] = {
    "Didactic.1.0",
    "Didactic.1.1",
    "Student_SS_0.1.0",
    "Student_SS_1.1.0",
    "Student_SS_2.1.0",
    "Student_SS_3.1.0",
    "Student_SS_example.1.0",
    "SysCtrl_SS.1.0",
    "SysCtrl_SS.1.1",
    "SysCtrl_SS_wrapper.1.0",
    "SysCtrl_SS_wrapper.1.1",
    "SysCtrl_peripherals.1.0",
    "analog_wrapper.1.0",
    "core_example",
    "core_example.setup",
    "cpu_example",
    "cpu_example.setup",
    "dtu_wrapper.1.0",
    "generation_sample",
    "hierarchical_wb_slave",
    "imt_wrapper.1.0",
    "kth_wrapper.1.0",
    "spi.setup",
    "spi_example.adhoc",
    "spi_example.bus",
    "tum_wrapper.1.0",
    "wb_cpu.setup",
    "wb_example",
    "wb_example.setup",
    "wb_slave.setup",
};

std::string fileOf(const char *design) {
  return std::string("libraries/") + design + ".txt";
}

class LibraryAnswers : public testing::TestWithParam<const char *> {};

TEST_P(LibraryAnswers, AreThoseOfTheText) { checkAnswers(fileOf(GetParam())); }

TEST_P(LibraryAnswers, AreFoundByCatalogToo) {
  EXPECT_FALSE(
      readExpectedAnswers(fileOf(GetParam())).byCatalog.libraryFolders.empty());
}

INSTANTIATE_TEST_SUITE_P(Designs, LibraryAnswers, testing::ValuesIn(designs));

TEST(LibraryDesigns, AllHaveAnswers) {
  std::set<fs::path> answered;
  for (const char *const design : designs)
    answered.insert(
        fs::path(readExpectedAnswers(fileOf(design)).bySearch.designFile)
            .parent_path());
  std::set<fs::path> present;
  for (const auto &entry : fs::recursive_directory_iterator(IPXACT_LIBRARIES))
    if (entry.path().filename().string().find(".design.") != std::string::npos)
      present.insert(entry.path().parent_path());
  EXPECT_EQ(answered, present);
}

} // namespace
} // namespace ZelDebugDialog
