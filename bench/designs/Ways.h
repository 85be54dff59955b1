// The ways in C++ to load a design and to ask it for its processors. Each reads
// the design's file and the components in its folder, and ends the program when
// it can't.
#ifndef ZELDEBUGDIALOG_BENCH_DESIGNS_WAYS_H
#define ZELDEBUGDIALOG_BENCH_DESIGNS_WAYS_H

#include <string>
#include <vector>

namespace bench {

struct Processor {
  std::string name;
  std::vector<std::string> peripherals;
};

/// In the order of the design.
using Answer = std::vector<Processor>;

Answer loadByDesignModel(const std::string &design);
Answer loadByPugixml(const std::string &design);
/// Loads the trees and looks at none: what everyone with a tree pays. Its
/// answer is empty.
Answer loadTreesOnly(const std::string &design);
Answer loadBySax(const std::string &design);

/// The XML files in the folder of a design.
std::vector<std::string> filesBeside(const std::string &design);

} // namespace bench

#endif
