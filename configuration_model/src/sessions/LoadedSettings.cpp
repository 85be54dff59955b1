// What the file of a session gives by itself.
#include "commands/Origins.h"
#include "losses/Writing.h"
#include "sessions/SessionImp.h"

namespace ZelDebugDialog::model {

CommandSettings SessionImp::loadedSettings() {
  CommandSettings read;
  read.text = loaded.text;
  read.line = loaded.line;
  const std::string command = lineOfFile(loaded.text);
  // What loading gave: the file may be another one by now.
  const Reading &reading = loadedReading;
  read.result = reading.result;
  read.error = reading.message;
  const bool isCutOnly =
      reading.accepted() && loaded.isText() && loaded.isCut();
  (isCutOnly ? read.doubt : read.refusal) = problem;
  CommandTrace trace;
  if (reading.accepted())
    desk.traceCommand(command, AfterFault::stop, trace);
  appendSettings(read, loadedValues, trace, true);
  return read;
}

} // namespace ZelDebugDialog::model
