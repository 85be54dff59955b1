// A bench for the readers and writers of the command language: one engine whose
// record, cable and marks hold odd values, so that every store shows, and a
// table row that says all that one call may do.
#ifndef ZELDEBUGDIALOG_TESTS_LANGUAGE_BENCH_H
#define ZELDEBUGDIALOG_TESTS_LANGUAGE_BENCH_H

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace LanguageTest {

/// What stands in the error string and in `current_option` before each call.
inline const std::string kQuiet = "(an earlier message)";
inline const std::string kUntouched = "(an earlier option)";

/// In place of a code: the reader raises the error for a lone "-".
constexpr int kThrows = -1000;
inline const std::string kLoneMinus =
    "basic_string::at: __n (which is 1) >= this->size() (which is 1)";

/// `text` with everything but printable ASCII as \xNN.
std::string printable(const std::string &text);

/// Every setting by its name: the fields of the record ("debugDevice"), of the
/// cable ("cable.port"), "cpuJtag", and each device of the chain as "chain[0]":
/// partname,idcode,irlength,devicenr,isfpga,hardppc,nppc. Without
/// `connectCommand`.
using Settings = std::map<std::string, std::string>;
Settings settingsOf(const ZelDebugDialog::EngineImp &imp);

/// "name=value" of each setting that differs, sorted, a blank between.
std::string changesBetween(const Settings &before, const Settings &after);

/// An engine with a current record of its own.
class Bench {
public:
  Bench();
  ~Bench();
  Bench(const Bench &) = delete;
  Bench &operator=(const Bench &) = delete;

  std::string error();

  ZelDebugDialog::Engine engine;
  ZelDebugDialog::EngineImp &imp;
  ZelDebugDialog::ProcessorInfoImp record;
};

/// A design that must not be asked anything: readers only look whether there
/// is one.
HHSMHwManager *silentDesign();

struct Row {
  std::string text;
  int code = 0;
  std::string message = kQuiet;
  std::string changes{}; ///< As `changesBetween`, in any order.
  std::string rest{};    ///< What the call leaves of `text`.
  std::string option = kUntouched;
};

using Reader =
    std::function<int(std::string &text, ZelDebugDialog::EngineImp &imp)>;
using Prepare = std::function<void(ZelDebugDialog::EngineImp &imp)>;

/// Calls `reader` for each row on a fresh bench and compares all of the row.
void expectRows(const Reader &reader, const std::vector<Row> &rows,
                const Prepare &setup = {});

/// `word` with a letter less, more or wrong, an option word behind its '-'.
/// None of them is in `valid` (compared without regard to letter case).
std::vector<std::string> nearMisses(const std::string &word,
                                    const std::vector<std::string> &valid);

std::string upper(std::string text);

} // namespace LanguageTest

#endif
