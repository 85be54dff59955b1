// An engine on which one configuration after another is written and read back.
#ifndef TESTS_SUPPORT_ROUNDTRIPDESK_H
#define TESTS_SUPPORT_ROUNDTRIPDESK_H

#include <string>
#include <vector>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "support/RoundTrip.h"

namespace support {

/// Whether all settings agree; `connectCommand` is none of them.
bool isSame(const Configuration &left, const Configuration &right);

/// In place of a code: the reader raised the error for a lone "-".
constexpr int kLoneMinus = -1000;

class RoundTripDesk {
public:
  /// @param known  stands for a loaded design; nothing asks it anything.
  explicit RoundTripDesk(HHSMHwManager &known);
  ~RoundTripDesk() { clear(); }
  RoundTripDesk(const RoundTripDesk &) = delete;
  RoundTripDesk &operator=(const RoundTripDesk &) = delete;

  /// A record and a cable with defaults, no design.
  void clear();
  void load(const Configuration &configuration);
  /// Ready to read for a processor by itself, or for this one of a design.
  void prepare(const RoundTripCase &roundTrip);
  bool holds(const Configuration &configuration) const;
  Configuration configuration() const;
  /// @return as `ReadKvoCommand`, or `kLoneMinus`.
  int read(const std::string &text);

  ZelDebugDialog::Engine engine;
  ZelDebugDialog::EngineImp &imp;
  ZelDebugDialog::ProcessorInfoImp record;

private:
  HHSMHwManager &design;
};

struct RoundTripOutcome {
  bool isSame = false; ///< Read back, with or without losses.
  std::vector<std::string> faults;
};

/// Writes a case, reads it back and writes it again, and compares all of it
/// with what is predicted. Counts what is lost.
RoundTripOutcome goAround(RoundTripDesk &desk, const RoundTripCase &roundTrip,
                          Losses &losses);

} // namespace support

#endif
