// A design read for a test, and short ways to ask it.
#ifndef ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_READING_H
#define ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_READING_H

#include <map>
#include <string>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog {

using Names = std::vector<std::string>;
using Files = std::map<std::string, std::string>;

/// What a model answers, as values that a test compares.
class Reading {
public:
  DesignModel model;
  bool isRead = false;

  Names instances() const;
  Names processors();
  Names debugModules() const { return model.DebugModules(); }
  Names attached(const std::string &module);
  Names peripherals(const std::string &processor);
  /// "error top.xml:12: text" each.
  Names diagnostics() const;
};

/// Reads `sources` from files that are in memory. They are written below the
/// folder ZELDEBUGDIALOG_DOCUMENTS of the environment if there is one: into one
/// of the test's own.
Reading readFrom(const Files &files, const DesignSources &sources);

/// Only that: for tests that read files in memory by themselves.
void keepDocuments(const Files &files);

/// Reads "top.xml"; "kinds" is the kind table if it is among the files.
Reading readFiles(const Files &files, const std::string &view = "");

/// The same for a design alone, beside the components of `parts`.
Reading readBeside(const Files &parts, const std::string &design);

// Pieces of documents, in the form of 2014.

/// A component "x:y:name:1" with these interfaces and anything else.
std::string component(const std::string &name, const std::string &interfaces,
                      const std::string &others = "");
/// The same with a cpu; `model` is that element or nothing.
std::string processor(const std::string &name, const std::string &interfaces,
                      const std::string &model = "");
/// A bus interface; `mode` is an element, and so are `types`, in the place of a
/// bus type.
std::string interface(const std::string &name, const std::string &mode,
                      const std::string &types = "");
/// A design "x:y:name:1".
std::string design(const std::string &name, const std::string &instances,
                   const std::string &connections = "",
                   const std::string &others = "");
std::string instance(const std::string &name, const std::string &component,
                     const std::string &overrides = "");
std::string parameter(const std::string &name, const std::string &value,
                      const std::string &attributes = "");
/// The list of them; nothing without any.
std::string parameters(const std::string &parameters);
std::string given(const std::string &id, const std::string &value);
/// Ends are "instance.interface"; one without a dot is the design's own.
std::string connection(const std::string &name, const Names &ends);
/// A component or its parts with the words of 2022.
std::string in2022(std::string text);
/// The same elements in no namespace: for words of several editions, or of
/// none, in one document.
std::string ofNoEdition(std::string text);
/// A view "inside" and what leads from it to a design "x:y:name:1".
std::string viewOf(const std::string &design, const std::string &values = "");

} // namespace ZelDebugDialog

#endif
