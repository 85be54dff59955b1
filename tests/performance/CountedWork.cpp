// One piece of work, done in `countedRegion`, which the instruction counter
// (instructions.py) is told to count. Everything that goes before is not
// counted, and the same work was done once, so that no lazy binding and no
// first-time growth is in the count.
//
//   counted_work read 2
#include <cstdlib>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "CountedRegion.h"
#include "DesignFiles.h"
#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/ChainCommand.h"
#include "common/FlatDesign.h"
#include "common/Session.h"

using ZelDebugDialog::KvoOption_Parser;

namespace {

/// Does the work twice, each time on what `prepare` makes; counts the second.
template <class Prepare, class Work>
void count(const Prepare &prepare, const Work &work) {
  {
    auto first = prepare();
    work(*first);
  }
  auto second = prepare();
  countedRegion([&] { work(*second); });
}

[[noreturn]] void fail(const char *what) {
  std::cerr << "counted_work: " << what << '\n';
  std::exit(EXIT_FAILURE);
}

struct Text : bench::Session {
  explicit Text(std::string text) : command(std::move(text)) {}
  std::string command;
};

void readText(const std::string &command) {
  count([&command] { return std::make_unique<Text>(command); },
        [](Text &text) {
          if (KvoOption_Parser::ReadKvoCommand(std::move(text.command),
                                               text.imp) != 0)
            fail("the command was refused");
        });
}

void read(std::size_t devices) { readText(bench::chainCommand(devices)); }

/// A command of little but its flags: what each command costs once.
void readFlags(std::size_t flags) {
  std::string command = "connect lc hdu";
  for (std::size_t flag = 0; flag < flags; ++flag)
    command += " -quiet";
  readText(command);
}

void write(std::size_t devices) {
  const auto prepare = [devices] {
    auto text = std::make_unique<Text>(bench::chainCommand(devices));
    KvoOption_Parser::ReadKvoCommand(text->command, text->imp);
    text->command.clear();
    return text;
  };
  count(prepare, [](Text &text) {
    if (KvoOption_Parser::WriteKvoCmdString(text.imp, text.command) != 0)
      fail("the command was not written");
  });
}

/// The words of a command, one at a time, as an outside user takes them.
void takeWords(std::size_t devices) {
  count(
      [devices] {
        return std::make_unique<Text>(bench::chainCommand(devices));
      },
      [](Text &text) {
        std::string word;
        while (KvoOption_Parser::get_token(text.command, word) != 3)
          continue;
      });
}

struct Designed : bench::Session {
  explicit Designed(std::size_t lumacores) : design(lumacores) {}
  bench::FlatDesign design;
};

void discover(std::size_t lumacores) {
  count([lumacores] { return std::make_unique<Designed>(lumacores); },
        [](Designed &designed) {
          designed.engine.GetProcessorList(&designed.design);
        });
}

/// The number of the last processor of the list.
void lookUp(std::size_t lumacores) {
  const auto prepare = [lumacores] {
    auto designed = std::make_unique<Designed>(lumacores);
    designed->engine.GetProcessorList(&designed->design);
    return designed;
  };
  count(prepare, [](Designed &designed) {
    designed.engine.GetProcessorNr(designed.design.lumacores().back());
    if (!designed.imp.errorStr.empty())
      fail("the processor was not found");
  });
}

struct Loading {
  explicit Loading(const performance::DesignFiles &files) : folder(files) {}
  performance::DesignFolder folder;
  ZelDebugDialog::DesignModel model;
};

/// From files to a model that answers.
void load(const performance::DesignFiles &files) {
  count([&files] { return std::make_unique<Loading>(files); },
        [](Loading &loading) {
          if (!ReadDesign({loading.folder.design(), {}, "", ""}, loading.model))
            fail("the design was not read");
        });
}

void loadFlat(std::size_t instances) {
  load(performance::flatDesign(instances));
}

void loadValues(std::size_t instances) {
  load(performance::flatDesign(instances, true));
}

void loadHierarchical(std::size_t instances) {
  load(performance::hierarchicalDesign(instances));
}

/// Counts nothing: tells how long the text of `read` is.
void printTextSize(std::size_t devices) {
  std::cout << bench::chainCommand(devices).size() << '\n';
}

const std::map<std::string, void (*)(std::size_t)> works{
    {"read", read},
    {"read-flags", readFlags},
    {"write", write},
    {"take-words", takeWords},
    {"discover", discover},
    {"look-up", lookUp},
    {"load-flat", loadFlat},
    {"load-values", loadValues},
    {"load-hierarchy", loadHierarchical},
    {"text-size", printTextSize},
};

} // namespace

int main(int count, char **arguments) {
  if (count != 3 || works.count(arguments[1]) == 0)
    fail("usage: counted_work WORK SIZE");
  works.at(arguments[1])(std::strtoul(arguments[2], nullptr, 10));
}
