// Whether what the window shows is what the session has, and whether what has
// been saved is read back as the same.
#ifndef TESTS_DIALOG_WALK_AGREEMENT_H
#define TESTS_DIALOG_WALK_AGREEMENT_H

#include <cstddef>
#include <string>

#include "dialog/Scene.h"

namespace walk {

/// How often what held.
struct Counts {
  std::size_t pages = 0;    ///< A page is what its session has.
  std::size_t settings = 0; ///< A row of the form is what its setting has.
  std::size_t signs = 0;    ///< The list and the actions fit the pages.
  std::size_t readBack = 0; ///< What is saved is read back as the same.
};

/// What does not agree, with the place; empty for nothing.
std::string disagreement(scene::Scene &scene, Counts &counts);

} // namespace walk

#endif
