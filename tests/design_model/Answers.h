// What a model answers, as text, and files that say what it should be.
//
// A file of expected answers begins with where the design is read from:
//   design FILE, library FOLDER, catalog FILE, kinds FILE, view NAME
// and goes on with the answers, a line each:
//   instance NAME TYPE        and below it   NAME = VALUE of its parameters
//   processor NAME            and below it   peripheral NAME
//   debug-module NAME TYPE    and below it   processor NAME
//   diagnostic SEVERITY FILE:LINE
// "#" at the beginning of a line, or after two blanks, begins a comment.
// Paths that begin with "ipxact/" are in the folder of real libraries, with
// "build/" in that of the test program, others in the project.
#ifndef ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_ANSWERS_H
#define ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_ANSWERS_H

#include <string>

#include "Reading.h"

namespace ZelDebugDialog {

struct ExpectedAnswers {
  bool isRead = false; ///< The file is there.
  DesignSources bySearch;
  /// The same with catalogs in place of folders; no folders when there are
  /// none.
  DesignSources byCatalog;
  Names answers;
};

/// From a file in the folder of expected answers. "EDITION" in it stands for
/// the edition.
ExpectedAnswers readExpectedAnswers(const std::string &file,
                                    const std::string &edition = "");

Names answersOf(DesignModel &model);

/// Reads the design that the file names, by search and by catalog, and
/// compares.
void checkAnswers(const std::string &file, const std::string &edition = "");

} // namespace ZelDebugDialog

#endif
