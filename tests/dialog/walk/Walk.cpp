// A random walk of people's hands over the window. After each step what the
// widgets show is what the session has, and what was saved is read back as the
// same. By hand, under the sanitizers: dialog_walk 100000
//
//   dialog_walk [STEPS [SEED]]
#include <cstdio>
#include <deque>
#include <string>

#include <QApplication>
#include <QEvent>

#include "dialog/Scene.h"
#include "dialog/walk/Agreement.h"
#include "dialog/walk/Hands.h"

namespace {

constexpr std::size_t mostTold = 12; // events before a fault

/// A number of the command line.
unsigned numberOr(const QStringList &words, int place, unsigned otherwise) {
  bool isNumber = false;
  const unsigned number = words.value(place).toUInt(&isNumber);
  return isNumber ? number : otherwise;
}

} // namespace

int main(int count, char **arguments) {
  constexpr unsigned usualSteps = 300;
  const QApplication application(count, arguments);
  scene::prepare();
  const QStringList words = QApplication::arguments();
  const unsigned steps = numberOr(words, 1, usualSteps);
  const unsigned seed = numberOr(words, 2, 1);
  scene::Scene scene;
  walk::Hands hands(scene, seed);
  walk::Counts held;
  std::deque<std::string> told;
  for (unsigned step = 0; step < steps; ++step) {
    hands.act();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    told.push_back(hands.last());
    if (told.size() > mostTold)
      told.pop_front();
    const std::string problem = walk::disagreement(scene, held);
    if (problem.empty())
      continue;
    std::printf("seed %u, step %u: %s\nafter\n", seed, step, problem.c_str());
    for (const std::string &one : told)
      std::printf("  %s\n", one.c_str());
    return 1;
  }
  std::printf("%u steps, seed %u\n", steps, seed);
  for (const auto &[name, times] : hands.counts())
    std::printf("  %-12s %zu\n", name.c_str(), times);
  std::printf("what held\n  pages        %zu\n  settings     %zu\n"
              "  signs        %zu\n  read back    %zu\n",
              held.pages, held.settings, held.signs, held.readBack);
  return 0;
}
