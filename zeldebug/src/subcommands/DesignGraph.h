// Who is wired to whom, as text for Graphviz.
#ifndef ZELDEBUG_DESIGNGRAPH_H
#define ZELDEBUG_DESIGNGRAPH_H

#include <optional>
#include <string>

#include <ZelDebugDialog/DesignModel/DesignModel.h>

namespace zeldebug {

/// The instances of a design as nodes, hierarchies as clusters, connections as
/// edges from the side that accesses come from. Processors and debug modules
/// stand out; a dashed edge leads from a debug module to each processor on it.
/// @param under  an instance: only it and what is inside it.
std::string designGraph(ZelDebugDialog::DesignModel &design,
                        std::optional<std::size_t> under);

/// A text as Graphviz has it in quotation marks, where it is shown as it is.
std::string quotedLabel(const std::string &text);

/// The instance of that name.
/// @throws Failure (wrong use) that says how far the path leads, and names the
///   nearest match.
std::size_t expectInstance(const ZelDebugDialog::DesignModel &design,
                           const std::string &path);

} // namespace zeldebug

#endif
