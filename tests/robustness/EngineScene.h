// An engine in use: a design, a selected processor with unusual settings, a
// cable, a chain, an earlier message, and what a caller hands in and gets back.
//
// No text of it is short enough to stand in its string, so that to copy one is
// to allocate.
#ifndef TESTS_ROBUSTNESS_ENGINESCENE_H
#define TESTS_ROBUSTNESS_ENGINESCENE_H

#include <array>
#include <string>
#include <vector>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "language/Bench.h"
#include "support/FakeDesign.h"

namespace robustness {

/// A text that no string holds inside itself.
inline std::string longText(const std::string &text) {
  return text + "-that-is-longer-than-a-string-keeps-inside";
}

class EngineScene {
public:
  EngineScene();
  ~EngineScene();
  EngineScene(const EngineScene &) = delete;
  EngineScene &operator=(const EngineScene &) = delete;

  /// All that an operation can change, by name: the settings, the message, who
  /// is current, the list, the design, and every output. `input` is left out.
  LanguageTest::Settings everything() const;

  /// Releases what readers have put into the engine's chain, and empties it.
  void releaseChain() { release(state.jtagChain); }

  /// Makes the PowerPC current on hardware, or another connection.
  void select(const std::string &name,
              ZelDebugDialog::Engine::ConnectionType type);

  support::FakeDesign design;
  ZelDebugDialog::Engine engine;
  ZelDebugDialog::EngineImp &state;

  // What the caller hands in.
  std::string input;
  std::vector<ZelDebugDialog::JtagOption *> devices;
  ZelDebugDialog::CableOption cable;

  // What the caller gets back.
  std::string text;
  std::vector<std::string> names;
  std::vector<ZelDebugDialog::JtagOption *> chain;
  ZelDebugDialog::ProcessorInfo info;
  ZelDebugDialog::CommandTrace trace;
  int number = 4711;
  unsigned address = 4711;
  char byte = 'b';

private:
  void release(std::vector<ZelDebugDialog::JtagOption *> &list) const;

  ZelDebugDialog::JtagOption first;
  ZelDebugDialog::JtagOption second;
};

inline const std::string lumacore = longText("lumacore");
inline const std::string ppc405 = longText("ppc405");
inline const std::string cortexA9 = longText("cortexa9");

} // namespace robustness

#endif
