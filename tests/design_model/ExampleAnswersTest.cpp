#include <gtest/gtest.h>

#include "Answers.h"

namespace ZelDebugDialog {
namespace {

TEST(ExampleAnswers, OfTheBoard) { checkAnswers("board.txt"); }

TEST(ExampleAnswers, OfTheFormOf2009) { checkAnswers("old_form.txt"); }

TEST(ExampleAnswers, OfMixedEditions) { checkAnswers("mixed.txt"); }

} // namespace
} // namespace ZelDebugDialog
