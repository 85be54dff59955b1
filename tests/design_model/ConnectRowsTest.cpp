// Rows of a kind table that put processors on debug modules, and the operation
// behind them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Three cores, of which b is wired to the first of two debug modules; "box"
/// has a core and a module inside.
const Files parts = {
    {"core.xml", component("core", interface("bus", "<ipxact:master/>") +
                                       interface("d", "<ipxact:slave/>"))},
    {"dm.xml", component("dm", interface("d", "<ipxact:master/>"))},
    {"uart.xml", component("uart", interface("bus", "<ipxact:slave/>"))},
    {"box.xml", component("box", "", viewOf("inner"))},
    {"inner.xml",
     design("inner", instance("core", "core") + instance("dm", "dm"))},
    {"top.xml", design("d",
                       instance("a", "core") + instance("b", "core") +
                           instance("core_c", "core") + instance("dm", "dm") +
                           instance("dm_2", "dm") + instance("uart", "uart") +
                           instance("box", "box"),
                       connection("x", {"dm.d", "b.d"}))},
};

const std::string kinds = "x:y:core:1 processor lumacore\n"
                          "x:y:dm:1 debug-module hdu\n";

Reading readWith(const std::string &rows) {
  Files files = parts;
  files["kinds"] = kinds + rows;
  return readFiles(files);
}

/// Without that the table, which lies beside the documents here, is none.
Names remarksOf(const Reading &reading) {
  Names remarks;
  for (const std::string &remark : reading.diagnostics())
    if (remark.find("it is not XML") == std::string::npos)
      remarks.push_back(remark);
  return remarks;
}

TEST(ConnectRows, PutAProcessorOnADebugModule) {
  Reading reading = readWith("connect a dm_2\n"
                             "connect box.core box.dm # inside\n");
  EXPECT_TRUE(reading.isRead);
  EXPECT_THAT(remarksOf(reading), IsEmpty());
  EXPECT_THAT(reading.attached("dm"), ElementsAre("b"));
  EXPECT_THAT(reading.attached("dm_2"), ElementsAre("a"));
  EXPECT_THAT(reading.attached("box.dm"), ElementsAre("box.core"));
}

struct OrderRow {
  const char *rows;
  Names attached; ///< To dm, which b is wired to.
};

TEST(ConnectRows, AreTheOrderOfTheProcessors) {
  const OrderRow rows[] = {
      {"", {"b"}},
      {"connect a dm\n", {"b", "a"}},
      {"connect core_c dm\nconnect a dm\n", {"b", "core_c", "a"}},
      {"connect a dm\nconnect core_c dm\n", {"b", "a", "core_c"}},
      // One that is wired as well has the place that its row gives it.
      {"connect b dm\n", {"b"}},
      {"connect a dm\nconnect b dm\n", {"a", "b"}},
      {"connect b dm\nconnect a dm\n", {"b", "a"}},
      // A pattern means the processors that fit, in the order of the design.
      {"connect * dm\n", {"a", "b", "core_c", "box.core"}},
      {"connect *core* dm\n", {"b", "core_c", "box.core"}},
      {"connect core_? dm\n", {"b", "core_c"}},
      {"connect ? dm\n", {"a", "b"}},
      {"connect box.* dm\n", {"b", "box.core"}},
      {"connect a dm*2\n", {"b"}},
      {"connect a ?m\n", {"b", "a"}},
  };
  for (const OrderRow &row : rows) {
    Reading reading = readWith(row.rows);
    EXPECT_EQ(reading.attached("dm"), row.attached) << row.rows;
    EXPECT_THAT(remarksOf(reading), IsEmpty()) << row.rows;
  }
}

struct RemarkRow {
  const char *rows;
  Names remarks;
};

TEST(ConnectRows, ThatCannotBeAppliedSayWhy) {
  const RemarkRow rows[] = {
      {"connect core dm\n",
       {"warning kinds:3: the design has no instance "
        "'core'"}},
      {"connect A dm\n", {"warning kinds:3: the design has no instance 'A'"}},
      {"connect a. dm\n", {"warning kinds:3: the design has no instance 'a.'"}},
      {"\n# so\nconnect a dm_\n",
       {"warning kinds:5: the design has no instance 'dm_'"}},
      {"connect cpu* dm\n",
       {"warning kinds:3: the design has no instance whose "
        "name fits 'cpu*'"}},
      {"connect ??? dm\n",
       {"error kinds:3: instance 'box' of type 'box' is no "
        "processor"}},
      {"connect uart dm\n",
       {"error kinds:3: instance 'uart' of type 'uart' is no processor"}},
      {"connect dm a\n",
       {"error kinds:3: instance 'dm' of type 'hdu' is no processor",
        "error kinds:3: instance 'a' of type 'lumacore' is no debug module"}},
      {"connect a u*\n",
       {"error kinds:3: instance 'uart' of type 'uart' is no "
        "debug module"}},
      // Also the first instance of all.
      {"connect b a*\n",
       {"error kinds:3: instance 'a' of type 'lumacore' is no "
        "debug module"}},
      {"connect a dm*\n",
       {"error kinds:3: 'dm*' means 'dm' as well as 'dm_2'; "
        "a row names one debug module"}},
      {"connect a dm\nconnect ? dm\n",
       {"warning kinds:4: processor 'a' is stated twice to be on 'dm'; the "
        "first counts"}},
      {"connect a dm\nconnect a dm_2\n",
       {"warning kinds:4: 'a' is on 'dm' as well as on 'dm_2'; the debugger "
        "takes it for two"}},
      {"connect b dm_2\n",
       {"warning kinds:3: 'b' is on 'dm' as well as on "
        "'dm_2'; the debugger takes it for two"}},
  };
  for (const RemarkRow &row : rows) {
    const Reading reading = readWith(row.rows);
    EXPECT_TRUE(reading.isRead) << row.rows;
    EXPECT_EQ(remarksOf(reading), row.remarks) << row.rows;
  }
}

TEST(ConnectRows, LeaveTheOthersAsTheyAreWhenOneCannotBeApplied) {
  Reading reading = readWith("connect a dm\n"
                             "connect uart dm\n"
                             "connect a dm*\n"
                             "connect core_c dm\n");
  EXPECT_THAT(reading.attached("dm"), ElementsAre("b", "a", "core_c"));
}

TEST(ConnectRows, HaveThreeWords) {
  const RemarkRow rows[] = {
      {"connect\n",
       {"error kinds:3: a row 'connect' has three words: connect, "
        "processor and debug module; this one has 1"}},
      {"connect a\n",
       {"error kinds:3: a row 'connect' has three words: "
        "connect, processor and debug module; this one has 2"}},
      {"connect a dm hdu\n",
       {"error kinds:3: a row 'connect' has three words: connect, processor "
        "and debug module; this one has 4"}},
      {"Connect a dm\n",
       {"error kinds:3: 'Connect' is no vendor:library:name:version"}},
      {"connects a dm\n",
       {"error kinds:3: 'connects' is no vendor:library:name:version"}},
      {"connect a \xff\n", {"error kinds:3: it is not text in UTF-8"}},
  };
  for (const RemarkRow &row : rows) {
    const Reading reading = readWith(row.rows);
    EXPECT_FALSE(reading.isRead) << row.rows;
    EXPECT_THAT(reading.instances(), IsEmpty()) << row.rows;
    EXPECT_EQ(remarksOf(reading), row.remarks) << row.rows;
  }
}

/// One that no table lets play a part, with the names that the debugger knows.
TEST(ConnectRows, HoldForTheComponentOnTop) {
  Files files = parts;
  files["top.xml"] = component("top", "", viewOf("d"));
  files["design.xml"] = parts.at("top.xml");
  files["kinds"] = kinds + "connect a dm_2\n";
  Reading reading = readFiles(files);
  EXPECT_THAT(reading.attached("dm_2"), ElementsAre("a"));
}

/// A processor that is stated has no wire, so that it need have no interface.
TEST(ConnectRows, NeedNoInterfaces) {
  Reading reading;
  const auto core =
      reading.model.AddComponent({"lumacore", DesignRole::byTypeName});
  const auto module =
      reading.model.AddComponent({"hdu", DesignRole::byTypeName});
  const auto first = reading.model.AddInstance("first", core);
  const auto second = reading.model.AddInstance("second", core);
  const auto debug = reading.model.AddInstance("debug", module);
  EXPECT_TRUE(reading.model.Attach(*second, *debug));
  EXPECT_TRUE(reading.model.Attach(*first, *debug));
  EXPECT_FALSE(reading.model.Attach(*second, *debug, {"here", 7}));
  EXPECT_FALSE(reading.model.Attach(*debug, *debug, {"here", 8}));
  EXPECT_FALSE(reading.model.Attach(*first, *second, {"here", 9}));
  EXPECT_FALSE(reading.model.Attach(DesignModel::top, *debug, {"here", 10}));
  EXPECT_THAT(reading.attached("debug"), ElementsAre("second", "first"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning here:7: processor 'second' is stated twice "
                          "to be on 'debug'; the first counts",
                          "error here:8: instance 'debug' is no processor",
                          "error here:9: instance 'second' is no debug module",
                          "error here:10: the design itself is no processor"));
}

/// Neither many patterns nor long ones make reading slow.
TEST(ConnectRows, EndWhereTheyAreTooMany) {
  std::string cores;
  for (int i = 0; i < 2000; ++i)
    cores += instance("core_" + std::to_string(i), "core");
  Files files = parts;
  files["top.xml"] = design("d", cores + instance("dm", "dm"));
  files["kinds"] = kinds;
  for (int i = 0; i < 30; ++i)
    files["kinds"] += "connect *" + std::string(10000, '?') + " dm\n";
  const Reading reading = readFiles(files);
  EXPECT_TRUE(reading.isRead);
  EXPECT_EQ(reading.diagnostics().back(),
            "error kinds:32: the patterns of the table are too many for this "
            "design: this one is left out");
}

} // namespace
} // namespace ZelDebugDialog
