// One configuration that is written and read back: how it is made, and what
// becomes of it on the way.
#ifndef ZELDEBUGDIALOG_TESTS_LANGUAGE_ROUNDTRIPCASE_H
#define ZELDEBUGDIALOG_TESTS_LANGUAGE_ROUNDTRIPCASE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "ZelDebugDialog/CableOption.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace LanguageTest {

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

/// Makes cases from a seed, and counts how often each field stood at each of
/// its limits.
class CaseMaker {
public:
  explicit CaseMaker(std::uint64_t seed) : random(seed) {}
  RoundTripCase next();

  /// Field → how often it stood at each limit.
  const std::map<std::string, std::vector<std::size_t>> &limits() const {
    return met;
  }

private:
  std::size_t below(std::size_t count);
  bool chance(std::size_t percent) { return below(100) < percent; }
  template <typename T>
  T at(const char *field, const std::vector<T> &limits, std::size_t percent,
       T otherwise);
  std::uint32_t word32(const char *field);
  std::int32_t signed32(const char *field);
  std::int8_t signed8(const char *field);
  std::uint32_t region(const char *field);
  std::string text(const char *field);
  std::string plainText();
  std::string arguments();
  void makeConnection(ZelDebugDialog::ProcessorInfoImp &record);
  void makeSimulators(ZelDebugDialog::ProcessorInfoImp &record);
  void makeDebugDevice(ZelDebugDialog::ProcessorInfoImp &record);
  void makeUnwritten(ZelDebugDialog::ProcessorInfoImp &record);
  void makeCable(ZelDebugDialog::CableOption &cable);
  void makeChain(std::vector<ZelDebugDialog::JtagOption> &chain);

  std::mt19937_64 random;
  std::map<std::string, std::vector<std::size_t>> met;
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
};

/// Predicts what becomes of a case, and counts what it loses.
Prediction predict(const RoundTripCase &roundTrip, Losses &losses);

} // namespace LanguageTest

#endif
