// A walk through configurations: random operations on random processors, and
// after each of them what is always true.
//
//   model_walk [STEPS [SEED]]
//
// 1  what was asked for stands, or nothing has changed
// 2  what was neither asked for nor told as an effect is as it was
// 4  undoing gives the state before, doing again the one after
// 5  a setting is applicable exactly if it can change what is written
// 6  what is saved and opened again is the same but for the losses told
//
// A walk ends at the first step that does not hold, with all that led there.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "configuration_model/walk/Boards.h"
#include "configuration_model/walk/Reference.h"
#include "configuration_model/walk/Samples.h"
#include "walk/Folder.h"

namespace {

using namespace ZelDebugDialog;
using walk::Folder;
using walk::Random;
using walk::Sample;

namespace fs = std::filesystem;

constexpr std::size_t stepsOfABoard = 200;
constexpr std::size_t mostWritten = 200;

std::string shown(const Value &value) {
  if (value.IsText())
    return '"' + value.Text() + '"';
  if (value.IsNumber())
    return std::to_string(value.Number());
  if (value.IsFlag())
    return value.Flag() ? "true" : "false";
  if (value.IsNothing())
    return "nothing";
  std::string text = "[";
  for (const ChainDevice &device : value.Devices()) {
    text += "{";
    for (const auto &[name, field] : device)
      text += name + "=" + shown(field) + " ";
    text += "}";
  }
  return text + "]";
}

/// What undoing brings back, as one text.
std::string historyOf(const SessionState &state) {
  std::string text =
      fmt::format("command {}\nerror {}\nedited {}\ndraft {}\n",
                  state.command.value_or("-"), state.commandError,
                  state.editedCommand.value_or("-"), state.draft.value_or("-"));
  const auto add = [&text](const SettingState &setting) {
    text +=
        fmt::format("{} {} {} {} {}\n", setting.id, shown(setting.value),
                    setting.origin, setting.draft.value_or("-"), setting.error);
  };
  for (const SettingState &setting : state.settings)
    add(setting);
  for (const auto &device : state.chain)
    for (const SettingState &field : device)
      add(field);
  for (const Loss &loss : state.losses)
    text += fmt::format("{} {} {} {}\n", loss.field, loss.code,
                        loss.displacedBy, loss.blocking);
  return text;
}

const SettingState *findIn(const SessionState &state, const std::string &id) {
  for (const SettingState &setting : state.settings)
    if (setting.id == id)
      return &setting;
  return nullptr;
}

struct Counts {
  std::size_t steps = 0;
  std::size_t refused = 0;
  std::size_t asked = 0;
  std::size_t unnamed = 0;
  std::size_t undone = 0;
  std::size_t applicable = 0;
  std::size_t saved = 0;
};

/// What one operation asked for, and what it gave.
struct Done {
  std::string name;
  SettingValues asked; ///< with the values that are to stand
  std::vector<Effect> effects;
  bool tellsAll = true; ///< the effects are everything, not what was not asked
  bool isRefused = false;
};

class Walk {
public:
  Walk(Random &numbers, const Folder &folder, Counts &counted)
      : random(numbers), counts(counted), place(folder.path / "etc"),
        boards(random, place.string()) {
    fs::remove_all(place);
    fs::create_directory(place);
    for (const std::string &name : boards.names())
      sessions.push_back(std::make_unique<Session>(boards.board(), name));
  }

  void step();

private:
  Session &session() { return *sessions[at]; }
  fs::path file() const { return boards.board().FileOf(boards.names()[at]); }
  [[noreturn]] void fail(const std::string &what) const {
    std::fprintf(stderr, "%s does not hold: %s\n", boards.names()[at].c_str(),
                 what.c_str());
    for (std::size_t i = log.size() - std::min<std::size_t>(log.size(), 60);
         i < log.size(); ++i)
      std::fprintf(stderr, "  %.300s\n", log[i].c_str());
    std::exit(1);
  }
  void expect(bool holds, const std::string &what) const {
    if (!holds)
      fail(what);
  }
  template <class Operation> void attempt(Done &done, const Operation &run) {
    try {
      done.effects = run();
    } catch (const Refusal &refusal) {
      done.isRefused = true;
      log.push_back(std::string("  refused: ") + refusal.what());
    }
  }

  Done operate(const SessionState &state);
  Done change(const SessionState &state);
  Done draft(const SessionState &state);
  Done reset(const SessionState &state);
  void changeFile();

  void expectAsked(const Done &done, const SessionState &after);
  void expectUnnamed(const Done &done, const SessionState &before,
                     const SessionState &after);
  void expectHistory(const SessionState &before, const SessionState &after);
  void expectApplicable(const SessionState &state);
  void expectSaved(const SessionState &state);

  Random &random;
  Counts &counts;
  fs::path place;
  walk::RandomBoard boards;
  walk::Reference reference;
  std::vector<std::unique_ptr<Session>> sessions;
  std::size_t at = 0;
  std::vector<std::string> written;
  std::vector<std::string> log;
};

// --- Operations --------------------------------------------------------------

Done Walk::change(const SessionState &state) {
  Done done;
  done.name = "change";
  done.tellsAll = false;
  SettingValues values;
  bool isBad = false;
  const std::size_t count = 1 + random.below(5);
  while (values.size() < count) {
    const SettingState &setting = random.of(state.settings);
    const bool isNamed = std::any_of(
        values.begin(), values.end(),
        [&setting](const auto &value) { return value.first == setting.id; });
    if (isNamed || !FindSetting(setting.id)->settable)
      continue;
    if (random.oneIn(12)) {
      const auto bad = walk::badSamples(setting);
      values.emplace_back(setting.id, random.of(bad));
      isBad = isBad || values.back().second != setting.value;
      continue;
    }
    const auto good = walk::goodSamples(setting);
    if (good.empty())
      continue; // a processor without a connection
    const Sample &sample = random.of(good);
    values.emplace_back(setting.id, sample.asked);
    done.asked.emplace_back(setting.id, sample.value);
  }
  for (const auto &[id, value] : values)
    done.name += fmt::format(" {}={}", id, shown(value));
  log.push_back(done.name);
  attempt(done, [&] { return session().Change(values); });
  expect(done.isRefused || !isBad, "1: a bad value is refused");
  expect(!done.isRefused || isBad, "1: good values are taken");
  return done;
}

Done Walk::draft(const SessionState &state) {
  Done done;
  done.tellsAll = false;
  const SettingState &setting = random.of(state.settings);
  const SettingInfo &info = *FindSetting(setting.id);
  if (!info.settable)
    return done;
  if (random.oneIn(4)) {
    done.name = "drop draft " + setting.id;
    log.push_back(done.name);
    attempt(done, [&] { return session().DropDraft(setting.id); });
    return done;
  }
  std::string text = "no value of anything ";
  const auto good = walk::goodSamples(setting);
  if (!good.empty() && random.oneIn(2)) {
    const Sample &sample = random.of(good);
    if (sample.asked.IsText()) {
      text = sample.asked.Text();
      done.asked.emplace_back(setting.id, sample.value);
    }
  }
  done.name = fmt::format("draft {} {}", setting.id, text);
  log.push_back(done.name);
  attempt(done, [&] { return session().Draft(setting.id, text); });
  expect(!done.isRefused, "a draft is taken");
  return done;
}

Done Walk::reset(const SessionState &state) {
  Done done;
  std::vector<std::string> names;
  for (std::size_t count = random.below(4); count > 0; --count) {
    const SettingState &setting = random.of(state.settings);
    if (FindSetting(setting.id)->settable)
      names.push_back(setting.id);
  }
  done.name = "reset";
  for (const std::string &name : names)
    done.name += " " + name;
  log.push_back(done.name);
  attempt(done, [&] { return session().Reset(names); });
  expect(!done.isRefused, "a reset is done");
  const SessionState after = session().State();
  for (const std::string &name : names)
    expect(findIn(after, name)->value == findIn(after, name)->defaultValue,
           "1: what is reset has its default: " + name);
  return done;
}

void Walk::changeFile() {
  const std::string content = random.oneIn(8) ? std::string(2000, 'x')
                              : random.oneIn(8)
                                  ? std::string("\n\n")
                                  : walk::randomCommand(random, written);
  log.push_back("file " + content);
  std::ofstream(file(), std::ios::binary) << content;
}

Done Walk::operate(const SessionState &state) {
  Done done;
  const auto plain = [&](const std::string &name, const auto &run) {
    done.name = name;
    log.push_back(name);
    attempt(done, run);
  };
  switch (random.below(16)) {
  case 0:
    return reset(state);
  case 1:
    plain("revert", [&] { return session().Revert(); });
    break;
  case 2:
    plain("undo", [&] { return session().Undo(); });
    expect(done.isRefused != state.canUndo, "undo is done where it can be");
    break;
  case 3:
    plain("redo", [&] { return session().Redo(); });
    expect(done.isRefused != state.canRedo, "redo is done where it can be");
    break;
  case 4: {
    const std::size_t other = random.below(sessions.size());
    plain("copy from " + boards.names()[other],
          [&] { return session().CopyFrom(*sessions[other]); });
    break;
  }
  case 5:
  case 6:
  case 7: {
    const std::string command = walk::randomCommand(random, written);
    plain("edit " + command, [&] { return session().Edit(command); });
    expect(!done.isRefused, "an edit is taken");
    break;
  }
  case 8:
    changeFile();
    break;
  case 9:
    log.push_back("open anew");
    sessions[at] =
        std::make_unique<Session>(boards.board(), boards.names()[at]);
    break;
  case 10:
  case 11:
    return draft(state);
  default:
    return change(state);
  }
  return done;
}

// --- What is always true -----------------------------------------------------

void Walk::expectAsked(const Done &done, const SessionState &after) {
  for (const auto &[id, value] : done.asked)
    expect(findIn(after, id)->value == value,
           fmt::format("1: {} is {}, not {}", id,
                       shown(findIn(after, id)->value), shown(value)));
  ++counts.asked;
}

void Walk::expectUnnamed(const Done &done, const SessionState &before,
                         const SessionState &after) {
  for (std::size_t i = 0; i < before.settings.size(); ++i) {
    const SettingState &was = before.settings[i];
    const SettingState &is = after.settings[i];
    const Effect *told = nullptr;
    for (const Effect &effect : done.effects)
      if (effect.setting == was.id && effect.before != effect.after)
        told = &effect;
    const bool isAsked = std::any_of(
        done.asked.begin(), done.asked.end(),
        [&was](const auto &asked) { return asked.first == was.id; });
    if (told != nullptr)
      expect(told->before == was.value && told->after == is.value &&
                 !told->why.empty(),
             "2: the effect is what happened: " + was.id);
    else
      expect(was.value == is.value || isAsked,
             fmt::format("2: {} was {} and is {}", was.id, shown(was.value),
                         shown(is.value)));
  }
  ++counts.unnamed;
}

void Walk::expectHistory(const SessionState &before,
                         const SessionState &after) {
  session().Undo();
  const SessionState undone = session().State();
  expect(historyOf(undone) == historyOf(before),
         fmt::format("4: undone\n{}is not what was before\n{}",
                     historyOf(undone), historyOf(before)));
  session().Redo();
  const SessionState again = session().State();
  expect(historyOf(again) == historyOf(after),
         fmt::format("4: done again\n{}is not what was after\n{}",
                     historyOf(again), historyOf(after)));
  ++counts.undone;
}

void Walk::expectApplicable(const SessionState &state) {
  reference.load(state);
  expect(reference.write() == state.command, "5: the command is the engine's");
  const SettingState &setting = random.of(state.settings);
  const bool matters = reference.canMatter(state, setting.id);
  expect(matters == setting.applicable,
         fmt::format("5: {} {} applicable ({}) under {}", setting.id,
                     setting.applicable ? "is said to be" : "is not said to be",
                     setting.reason, state.command.value_or("no command")));
  expect(setting.applicable == setting.reason.empty(), "5: a reason is given");
  ++counts.applicable;
}

void Walk::expectSaved(const SessionState &state) {
  bool isBlocked = false;
  bool isRefused = false;
  for (const Loss &loss : state.losses) {
    isBlocked = isBlocked || loss.blocking;
    isRefused = isRefused || loss.readBack.IsNothing();
  }
  SaveOptions options;
  const auto save = [&] {
    try {
      session().Save(options);
    } catch (const Refusal &refusal) {
      return std::string(ShowKind(refusal.kind));
    }
    return std::string();
  };
  const bool isAsSaved = !state.dirty && state.exists && !state.changedOnDisk;
  if (!state.changedOnDisk && state.problem.empty() && !isAsSaved)
    expect((save() == "would-be-lost") == isBlocked,
           "6: saving is refused for a blocking loss");
  options.force = true;
  const std::string refusal = save();
  expect(refusal.empty(), "6: it is saved by force: " + refusal);
  const Session anew(boards.board(), boards.names()[at]);
  expect(anew.Problem().empty() || isRefused,
         "6: what is saved is read: " + anew.Problem());
  ++counts.saved;
  if (!anew.Problem().empty())
    return;
  const SessionState opened = anew.State();
  for (const SettingState &setting : state.settings) {
    if (setting.id == "connectCommand")
      continue;
    const Value &found = findIn(opened, setting.id)->value;
    const Loss *told = nullptr;
    for (const Loss &loss : state.losses)
      if (loss.field == setting.id)
        told = &loss;
    const bool isPart =
        setting.id == "connectionType" || setting.id == "stubType";
    if (told != nullptr && !told->readBack.IsNothing() && !isAsSaved)
      expect(found == told->readBack,
             "6: it comes back as told: " + setting.id);
    else
      expect(found == setting.value || isPart || isRefused,
             fmt::format("6: {} was {} and comes back as {}", setting.id,
                         shown(setting.value), shown(found)));
  }
}

void Walk::step() {
  ++counts.steps;
  at = random.below(sessions.size());
  log.push_back("-- " + boards.names()[at]);
  const SessionState before = session().State();
  const Done done = operate(before);
  const SessionState after = session().State();
  if (done.name.empty())
    return; // the file, or nothing at all
  if (done.isRefused) {
    ++counts.refused;
    expect(historyOf(before) == historyOf(after),
           "1: where it is refused, nothing has changed");
    return;
  }
  expectAsked(done, after);
  expectUnnamed(done, before, after);
  const bool isStep = historyOf(before) != historyOf(after);
  const bool isOfHistory = done.name == "undo" || done.name == "redo";
  if (isStep && !isOfHistory)
    expectHistory(before, after);
  expectApplicable(after);
  if (after.command && written.size() < mostWritten)
    written.push_back(*after.command);
  const bool hasDraft =
      after.draft || std::any_of(after.settings.begin(), after.settings.end(),
                                 [](const SettingState &setting) {
                                   return setting.draft.has_value();
                                 });
  if (after.command && !hasDraft)
    expectSaved(after);
}

} // namespace

int main(int argc, char **argv) {
  const std::size_t steps =
      argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 2000;
  Random random(argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 20261122);
  const Folder folder("model-walk");
  Counts counts;
  while (counts.steps < steps) {
    Walk walk(random, folder, counts);
    for (std::size_t i = 0; i < stepsOfABoard && counts.steps < steps; ++i)
      walk.step();
  }
  fmt::print("{} steps, {} refused\n"
             "1 asked for      {}\n"
             "2 unnamed        {}\n"
             "4 undone         {}\n"
             "5 applicable     {}\n"
             "6 saved, opened  {}\n",
             counts.steps, counts.refused, counts.asked, counts.unnamed,
             counts.undone, counts.applicable, counts.saved);
  return 0;
}
