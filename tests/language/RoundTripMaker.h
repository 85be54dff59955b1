// Configurations to write and read back, made from a seed.
#ifndef ZELDEBUGDIALOG_TESTS_LANGUAGE_ROUNDTRIPMAKER_H
#define ZELDEBUGDIALOG_TESTS_LANGUAGE_ROUNDTRIPMAKER_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "support/RoundTrip.h"

namespace LanguageTest {

using support::Configuration;
using support::RoundTripCase;

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
  template <class T>
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

} // namespace LanguageTest

#endif
