// One configuration that is written and read back, and what becomes of it on
// the way: all that docs/round-trip.md tells, as code.
#ifndef TESTS_SUPPORT_ROUNDTRIP_H
#define TESTS_SUPPORT_ROUNDTRIP_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "ZelDebugDialog/CableOption.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace support {

/// What docs/round-trip.md has an entry for. `kLossIds` has the anchors.
enum class Loss {
  NoCommand,
  CpuJtagMarker,
  VirtualPlatformHost,
  ConfigurationMode,
  OtherTargets,
  ProcessorKind,
  Identity,
  EmptyText,
  WhiteSpace,
  LeadingMinus,
  ColonInHost,
  SerialNumber,
  SimulatorFile,
  PortWithoutHost,
  Frequency,
  MisalignedRegion,
  AddressMapBase,
  EightBitNumbers,
  RomRange,
  Isocm,
  OtherConnections,
  OtherCables,
  OtherProcessors,
  NeverWritten,
  OddValues,
  Fpu,
  ConnectionMask,
  LongFile,
  LinesInFile,
};
inline constexpr std::array<const char *, 29> kLossIds = {
    "no-command",
    "cpu-jtag-marker",
    "virtual-platform-host",
    "configuration-mode",
    "other-targets",
    "processor-kind",
    "identity",
    "empty-text",
    "white-space",
    "leading-minus",
    "colon-in-host",
    "serial-number",
    "simulator-file",
    "port-without-host",
    "frequency",
    "misaligned-region",
    "address-map-base",
    "eight-bit-numbers",
    "rom-range",
    "isocm",
    "other-connections",
    "other-cables",
    "other-processors",
    "never-written",
    "odd-values",
    "fpu",
    "connection-mask",
    "long-file",
    "lines-in-file",
};

/// How often each loss was met.
class Losses {
public:
  void count(Loss loss) { ++met[static_cast<std::size_t>(loss)]; }
  std::size_t of(Loss loss) const {
    return met[static_cast<std::size_t>(loss)];
  }

private:
  std::array<std::size_t, kLossIds.size()> met{};
};

struct Configuration {
  ZelDebugDialog::ProcessorInfoImp record;
  ZelDebugDialog::CableOption cable;
  std::vector<ZelDebugDialog::JtagOption> chain;
  std::uint32_t cpuJtag = 0;
};

struct RoundTripCase {
  Configuration written;
  /// Read for the same processor of a design, rather than by itself.
  bool underDesign = false;
  /// The debug device as a user asked for it, before it was cut to its field.
  int askedDevice = 0;
};

/// What reading gives back.
struct Prediction {
  enum class Kind {
    NoCommand, ///< Nothing is written.
    Refused,   ///< The text is not read.
    Unsettled, ///< A text that does not stay in its word: anything may come.
    Read,      ///< `result` is read.
  };
  Kind kind = Kind::Read;
  Loss cause = Loss::NoCommand; ///< Of what is not read.
  Configuration result;
  /// The second text, if it is not the first: the ISOCM piece goes with the
  /// kind of the processor.
  bool dropsIsocm = false;
  /// Two losses claim one field: then the page tells of one too many.
  bool countsFieldTwice = false;
};

/// Predicts what becomes of a case, and counts what it loses.
Prediction predict(const RoundTripCase &roundTrip, Losses &losses);

} // namespace support

#endif
