// A board: the processors of one hardware design that can be debugged, and the
// folder that holds their option files.
//
// Discovery happens once, when the board is made; configurations of its
// processors (Session.h) ask the board. It refers to the design and does not
// own it: the design stays alive, unchanged, and answers one question at a time
// as long as the board or one of its sessions is used. Any thread may use a
// board; the library serialises what the engine cannot do at once.
//
//   Board board(design, "build/etc");
//   for (const BoardProcessor &processor : board.Processors()) ...
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_BOARD_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_BOARD_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Export.h"

class HHSMHwManager;

namespace ZelDebugDialog {

/// A processor that can be debugged.
struct BoardProcessor {
  std::string name;                     ///< Instance name in the design.
  std::string type;                     ///< IP type name in the design.
  std::uint32_t family = 0;             ///< As `procFamily`.
  std::uint32_t procType = 0;           ///< As `procType`.
  std::uint32_t mask = 0;               ///< As `connectionMask`.
  std::int32_t number = 0;              ///< As `cpuNr`.
  std::uint32_t fpu = 0;                ///< As `fpuType`.
  std::string fpuText;                  ///< "sp", "dp" or "-".
  std::vector<std::string> connections; ///< "sim", "hw", ...
};

/// A debug module that a processor is connected to.
struct BoardModule {
  std::string name; ///< Instance name in the design.
  std::string type; ///< IP type name in the design.
};

/// A processor of the design that cannot be debugged.
struct UndebuggableProcessor {
  std::string name;                 ///< Instance name in the design.
  std::string type;                 ///< IP type name in the design.
  std::vector<BoardModule> modules; ///< What it is connected to.
  std::string reason;               ///< Why, as a sentence without full stop.
};

class BoardState;

/// A board. Copies are the same board.
class ZELDEBUGDIALOG_CONFIGURATIONMODEL_API Board {
public:
  /// Discovers the processors.
  /// @param design  answers for them; it stays the caller's
  /// @param folder  holds `kvo_<processor>.opt`; it need not exist. A relative
  ///   path is resolved now, against the working directory of the process.
  Board(HHSMHwManager &design, const std::string &folder);
  /// The same board.
  Board(const Board &other);
  /// The same board.
  Board &operator=(const Board &other);
  ~Board();

  /// Every processor of the design, debuggable or not, in design order.
  const std::vector<std::string> &Names() const;
  /// Those that can be debugged, in the order of their discovery.
  const std::vector<BoardProcessor> &Processors() const;
  /// Those that cannot, in design order.
  const std::vector<UndebuggableProcessor> &Undebuggable() const;
  /// The folder of the option files, as it was given.
  const std::string &Folder() const;
  /// Where the configuration of a processor is saved.
  std::string FileOf(const std::string &processor) const;

private:
  friend class Session;
  std::shared_ptr<const BoardState> state;
};

} // namespace ZelDebugDialog

#endif
