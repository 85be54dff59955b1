// The cables by the keyword of the connect command.
#ifndef ZELDEBUG_CABLEKEYWORD_H
#define ZELDEBUG_CABLEKEYWORD_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <ZelDebugDialog/CommandTables.h>

namespace zeldebug {

/// Every cable, by its number.
const std::vector<ZelDebugDialog::CommandCable> &cables();

/// Every keyword that is read, and "none".
std::vector<std::string> cableKeywords();

/// The type that a keyword (in any letter case) or "none" stands for.
std::optional<ZelDebugDialog::Engine::CableType>
findCableType(const std::string &keyword);

/// The first keyword of a type, "none", or its number.
std::string shownCable(ZelDebugDialog::Engine::CableType type);

/// The frequencies that pass the check of a cable clause.
std::vector<std::uint32_t>
acceptedFrequencies(ZelDebugDialog::Engine::CableType type);
/// True as well for a cable whose frequency is not checked.
bool acceptsFrequency(ZelDebugDialog::Engine::CableType type,
                      std::uint32_t frequency);

} // namespace zeldebug

#endif
