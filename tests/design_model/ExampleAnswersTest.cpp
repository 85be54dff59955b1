#include <gtest/gtest.h>

#include "Answers.h"

namespace ZelDebugDialog {
namespace {

TEST(ExampleAnswers, OfTheBoard) { checkAnswers("board.txt"); }

} // namespace
} // namespace ZelDebugDialog
