// An engine with its model, and everything that an input gives for one dialog:
// designs, chain devices, a folder for option files.
#ifndef FUZZ_OPERATIONS_SESSION_H
#define FUZZ_OPERATIONS_SESSION_H

#include <array>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "common/Bytes.h"
#include "operations/AnsweredDesign.h"
#include "operations/Model.h"

namespace fuzz {

class Session {
public:
  explicit Session(Bytes &input);
  ~Session();
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;

  /// Keeps the records of the present chain that a reader made: what forgets
  /// the chain does not delete them.
  void keepChain();
  /// Keeps the current record, if it was made from a command.
  void keepOwnRecord();
  /// Some of the devices of this session.
  std::vector<JtagOption *> someDevices();
  /// The name of an instance, or any.
  std::string someName();
  /// Where the option file of a processor is, in the working folder.
  std::string optionFile(const std::string &processor);

  Bytes &bytes;
  std::array<std::unique_ptr<AnsweredDesign>, 2> designs;
  std::array<JtagOption, 3> devices;
  Model model;
  ZelDebugDialog::Engine engine;
  ZelDebugDialog::EngineImp &imp;

private:
  std::set<JtagOption *> readDevices;
  std::set<ProcessorInfoImp *> ownRecords;
  std::set<std::string> files;
  std::array<JtagOption, 3> devicesBefore;
};

/// One operation: calls the engine, and changes the model as the operation's
/// rules say.
struct Operation {
  const char *name;
  bool needsCurrent; ///< A current record is a precondition.
  void (*run)(Session &session);
};

extern const std::vector<Operation> targetOperations;
extern const std::vector<Operation> cableOperations;
extern const std::vector<Operation> selectionOperations;

} // namespace fuzz

#endif
