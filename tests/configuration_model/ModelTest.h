// A board with processors of every family, the folder of its option files, and
// what sessions answer as text.
#ifndef TESTS_CONFIGURATION_MODEL_MODELTEST_H
#define TESTS_CONFIGURATION_MODEL_MODELTEST_H

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "support/FakeDesign.h"
#include "support/TemporaryDirectory.h"

namespace model_test {

/// "lc" (simulator, hardware, stub), "lc_sim" (simulator only), "ppc405",
/// "ppc440" (with a single-precision FPU), "a9", and "r5", which cannot be
/// debugged.
void fillDesign(support::FakeDesign &design);

/// The value as the table of settings shows it.
std::string shown(const std::string &setting,
                  const ZelDebugDialog::Value &value);
/// "cable.port:  -> USB21 (choosing a cable brings ...)"
std::vector<std::string>
shown(const std::vector<ZelDebugDialog::Effect> &effects);
/// "cable.port: LPT1 -> USB21 [serial-number by cable.esn], blocking"
std::vector<std::string> shown(const std::vector<ZelDebugDialog::Loss> &losses);
/// "cable.port: LPT1 -> USB21"
std::vector<std::string>
shown(const std::vector<ZelDebugDialog::Difference> &differences);
/// Everything that undoing is to bring back.
std::vector<std::string> shown(const ZelDebugDialog::SessionState &state);

/// The state of one setting; fails for a name that is none.
ZelDebugDialog::SettingState
settingIn(const ZelDebugDialog::SessionState &state, const std::string &id);

/// "bad-value: debugDevice: '200' is ...", or "accepted".
template <class Operation> std::string refusalOf(const Operation &operation) {
  try {
    operation();
  } catch (const ZelDebugDialog::Refusal &refusal) {
    return std::string(ZelDebugDialog::ShowKind(refusal.kind)) + ": " +
           refusal.what();
  }
  return "accepted";
}

class ModelTest : public testing::Test {
protected:
  ModelTest() : board(boardIn("etc")) {
    std::filesystem::create_directory(work.path() / "etc");
  }

  ZelDebugDialog::Board boardIn(const std::string &folder) {
    fillDesign(design);
    return {design, (work.path() / folder).string()};
  }
  ZelDebugDialog::Session open(const std::string &processor = "lc") const {
    return {board, processor};
  }
  /// With this content in its file.
  ZelDebugDialog::Session openWith(const std::string &content,
                                   const std::string &processor = "lc") const {
    save(content, processor);
    return {board, processor};
  }
  void save(const std::string &content,
            const std::string &processor = "lc") const {
    work.write(fileOf(processor), content);
  }
  std::string saved(const std::string &processor = "lc") const {
    return work.exists(fileOf(processor)) ? work.read(fileOf(processor))
                                          : "none";
  }
  static std::string fileOf(const std::string &processor = "lc") {
    return "etc/kvo_" + processor + ".opt";
  }
  /// The names in the folder of the option files.
  std::vector<std::string> names() const;

  support::TemporaryDirectory work;
  support::FakeDesign design;
  ZelDebugDialog::Board board;
};

} // namespace model_test

#endif
