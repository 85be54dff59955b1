// What a refusal says in fields, beside its sentence.
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "configuration_model/ModelTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;

class RefusalFieldsTest : public ModelTest {
protected:
  CheckOptions forProcessor(const std::string &name) const {
    CheckOptions options;
    options.board = &board;
    options.processor = name;
    return options;
  }
};

std::string joined(const std::vector<std::string> &words) {
  std::string text;
  for (const std::string &word : words)
    text += (text.empty() ? "" : " ") + word;
  return text;
}

/// Those that are not empty: "bad-value, setting: bscanUserReg, value: USER5".
std::string fieldsOf(const std::function<void()> &operation) {
  try {
    operation();
  } catch (const Refusal &refusal) {
    std::string text = ShowKind(refusal.kind);
    const auto add = [&text](const char *name, const std::string &field) {
      if (!field.empty())
        text += std::string(", ") + name + ": " + field;
    };
    add("setting", refusal.setting);
    add("other", refusal.other);
    add("value", refusal.value);
    const bool isLong = refusal.accepted.size() > 7;
    add("accepted", isLong ? "many" : joined(refusal.accepted));
    add("suggestion", refusal.suggestion);
    add("file", refusal.file);
    if (refusal.line != 0)
      add("line", std::to_string(refusal.line));
    return text;
  }
  return "accepted";
}

TEST_F(RefusalFieldsTest, OfAProcessor) {
  const std::string none =
      "unknown-processor, value: lx, accepted: lc lc_sim ppc405 ppc440 a9 r5, "
      "suggestion: lc";
  EXPECT_EQ(fieldsOf([&] { open("lx"); }), none);
  EXPECT_EQ(fieldsOf([&] { CheckCommand("", forProcessor("lx")); }), none);
  const std::string unfit = "not-debuggable, value: r5";
  EXPECT_EQ(fieldsOf([&] { open("r5"); }), unfit);
  EXPECT_EQ(fieldsOf([&] { CheckCommand("", forProcessor("r5")); }), unfit);
}

TEST_F(RefusalFieldsTest, OfASetting) {
  Session session = open();
  const struct {
    const char *setting;
    Value value;
    const char *fields;
  } rows[] = {
      {"debugDevica", 1,
       "unknown-setting, setting: debugDevica, accepted: many, suggestion: "
       "debugDevice"},
      {"cpuNr", 1, "not-settable, setting: cpuNr"},
      {"stubType", 1, "not-settable, setting: stubType"},
      {"chain[].idcode", 1,
       "not-settable, setting: chain[].idcode, suggestion: chain"},
      {"debugDevice", 128, "bad-value, setting: debugDevice, value: 128"},
      {"bscanUserReg", "USER5",
       "bad-value, setting: bscanUserReg, value: USER5, accepted: USER1 USER2 "
       "USER3 USER4, suggestion: USER1"},
      {"uartOverHdu", "yex",
       "bad-value, setting: uartOverHdu, value: yex, accepted: yes no, "
       "suggestion: yes"},
      {"connection", "vp",
       "not-allowed, setting: connection, value: vp, accepted: sim hw "
       "stub-serial stub-jtag"},
      {"chain", Value::Chain{{{"partnome", "p"}}},
       "bad-value, setting: chain[0], value: partnome, accepted: partname "
       "idcode irlength devicenr isfpga hardppc nppc, suggestion: partname"},
      {"chain", Value::Chain{{{"nppc", 1}, {"nppc", 2}}},
       "bad-value, setting: chain[0].nppc, value: 2"},
  };
  for (const auto &row : rows)
    EXPECT_EQ(fieldsOf([&] {
                session.Change({{row.setting, row.value}});
              }),
              row.fields);
}

TEST_F(RefusalFieldsTest, OfAChange) {
  Session session = open();
  EXPECT_EQ(fieldsOf([&] {
              session.Change({{"debugDevice", 1}, {"debugDevice", 2}});
            }),
            "excluded, setting: debugDevice, other: debugDevice");
  ChangeRequest request;
  request.command = "foo\x01";
  EXPECT_EQ(fieldsOf([&] { session.Change(request); }),
            "bad-command, setting: command, value: foo\\x01");
  EXPECT_EQ(fieldsOf([&] { session.Undo(); }), "nothing-to-undo");
  EXPECT_EQ(fieldsOf([&] { session.Redo(); }), "nothing-to-redo");
  EXPECT_EQ(fieldsOf([&] { session.Get("chain[0].idcode"); }),
            "unknown-setting, setting: chain[0].idcode");
}

TEST_F(RefusalFieldsTest, OfADraft) {
  Session session = open();
  session.Edit("nonsense");
  EXPECT_EQ(fieldsOf([&] { session.Save(); }),
            "draft, setting: command, value: nonsense");
  session.Draft("stubTimeout", "soon");
  EXPECT_EQ(fieldsOf([&] { session.Save(); }),
            "draft, setting: stubTimeout, value: soon");
}

TEST_F(RefusalFieldsTest, OfTwoCommands) {
  EXPECT_EQ(fieldsOf([] { DiffCommands("foo", "connect lc hdu"); }),
            "bad-command");
}

} // namespace
