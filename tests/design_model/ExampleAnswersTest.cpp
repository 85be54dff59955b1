#include <gtest/gtest.h>

#include "Answers.h"

namespace ZelDebugDialog {
namespace {

TEST(ExampleAnswers, OfTheBoard) { checkAnswers("board.txt"); }

TEST(ExampleAnswers, OfTheFormOf2009) { checkAnswers("old_form.txt"); }

TEST(ExampleAnswers, OfMixedEditions) { checkAnswers("mixed.txt"); }

TEST(ExampleAnswers, AreTheSameInEveryEdition) {
  for (const char *const edition : {"1.5", "2009", "2014", "2022"})
    checkAnswers("editions.txt", edition);
}

} // namespace
} // namespace ZelDebugDialog
