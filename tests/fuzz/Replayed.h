#ifndef ZELDEBUGDIALOG_TESTS_FUZZ_REPLAYED_H
#define ZELDEBUGDIALOG_TESTS_FUZZ_REPLAYED_H

namespace fuzz {

/// The fuzzer that a program replays.
struct Replayed {
  const char *fuzzer; ///< Its name.
  const char *corpus; ///< The folder of the inputs that are kept for it.
  int changedRuns;    ///< How many changed ones it is called with.
};

extern const Replayed replayed;

} // namespace fuzz

#endif // ZELDEBUGDIALOG_TESTS_FUZZ_REPLAYED_H
