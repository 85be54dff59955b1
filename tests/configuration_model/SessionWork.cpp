// Operations on sessions between two system calls that mark them, for
// session_calls.py to find.
//
//   session_work FOLDER open|change|state|save|save-all|save-same|refuse
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <string>

#include "configuration_model/ModelTest.h"

using namespace ZelDebugDialog;

namespace {

void mark() { static_cast<void>(access("session-work", F_OK)); }

class Work {
public:
  explicit Work(const std::string &folder)
      : board(designOf(design), folder), first(board, "lc"),
        second(board, "ppc405"), third(board, "a9") {}

  /// Between the marks.
  bool run(const std::string &what) {
    const std::map<std::string, std::function<void()>> works{
        {"open", [this] { const Session session(board, "ppc440"); }},
        {"change", [this] { change(5); }},
        {"state", [this] { first.State(); }},
        {"save", [this] { first.Save(); }},
        {"save-all",
         [this] {
           SaveSessions({&first, &second, &third});
         }},
        {"save-same", [this] { first.Save(); }},
        {"refuse", [this] { refuse(); }},
    };
    const auto found = works.find(what);
    if (found == works.end())
      return false;
    change(3);
    // Once before, so that the heap has grown to what it takes.
    first.State();
    if (what == "save-same")
      first.Save();
    if (what == "refuse")
      first.Change({{"simMemSize", 5}});
    mark();
    found->second();
    mark();
    return true;
  }

private:
  static support::FakeDesign &designOf(support::FakeDesign &filled) {
    model_test::fillDesign(filled);
    return filled;
  }
  void change(int device) {
    for (Session *const session : {&first, &second, &third})
      session->Change({{"debugDevice", device}, {"cable.cableType", 3}});
    first.Edit("connect lc hdu -debugdevice devicenr 7");
    first.Undo();
    first.Draft("stubTimeout", "soon");
    first.DropDraft("stubTimeout");
    second.CopyFrom(first);
  }
  void refuse() {
    try {
      first.Save();
      std::abort();
    } catch (const Refusal &) {
    }
  }

  support::FakeDesign design;
  Board board;
  Session first;
  Session second;
  Session third;
};

} // namespace

int main(int count, char **arguments) {
  if (count != 3)
    return EXIT_FAILURE;
  return Work(arguments[1]).run(arguments[2]) ? EXIT_SUCCESS : EXIT_FAILURE;
}
