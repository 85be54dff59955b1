// Designs that others made, which lie outside of this project.
#include <gtest/gtest.h>

#include "Answers.h"

namespace ZelDebugDialog {
namespace {

class LibraryAnswers : public testing::TestWithParam<const char *> {};

TEST_P(LibraryAnswers, AreThoseOfTheText) {
  checkAnswers(std::string("libraries/") + GetParam() + ".txt");
}

INSTANTIATE_TEST_SUITE_P(Designs, LibraryAnswers,
                         testing::Values("Didactic.1.1", "SysCtrl_SS.1.0",
                                         "SysCtrl_SS.1.1", "cpu_example",
                                         "cpu_example.setup"));

} // namespace
} // namespace ZelDebugDialog
