#include "configuration_model/walk/Boards.h"

#include <array>
#include <cstdint>
#include <memory>

#include "sessions/BoardState.h"

namespace {

using ZelDebugDialog::Board;
using ZelDebugDialog::BoardState;

// Discovery gives no mask with a virtual platform, and few others; records may
// have any. Access control does not hold for an explicit instantiation, and
// this is the one place where a test changes what a board has found.
template <auto member> struct StateOf {
  friend std::shared_ptr<const BoardState> stateOf(const Board &board) {
    return board.*member;
  }
};
template struct StateOf<&Board::state>;
std::shared_ptr<const BoardState> stateOf(const Board &board);

support::FakeDesign designOf(walk::Random &random) {
  support::FakeDesign design;
  design.processors = {"lumacore_0", "lumacore_1", "ppc_0", "ppc_1", "a9_0"};
  design.addDebugModule("hdu_0", "hdu", {"lumacore_0"});
  design.addDebugModule("link_0", "ppc_jtag_link", {"ppc_0", "ppc_1"});
  design.instancesOfType["lumacore"] = {"lumacore_1"};
  design.instancesOfType["soc_cortexa9"] = {"a9_0"};
  design.typeOf["ppc_0"] = "ppc405_core";
  design.typeOf["ppc_1"] = "ppc440_core";
  if (random.oneIn(2))
    design.addPeripheral("lumacore_0", "uart_0", "uart_mini_cedar");
  if (random.oneIn(2))
    design.addPeripheral("ppc_1", "fpu_0", "aux_fpu");
  return design;
}

} // namespace

namespace walk {

RandomBoard::RandomBoard(Random &random, const std::string &folder)
    : design(designOf(random)), made(design, folder) {
  constexpr std::array<std::uint32_t, 8> masks{0x1,  0x2, 0x3,  0x87,
                                               0xC7, 0x0, 0x8F, 0xF};
  const auto state = std::const_pointer_cast<BoardState>(stateOf(made));
  for (std::size_t i = 0; i < state->records.size(); ++i) {
    if (random.oneIn(2))
      state->records[i].connectionMask = masks[random.below(masks.size())];
    state->processors[i].mask = state->records[i].connectionMask;
    if (random.oneIn(8)) // a number that needs its sign
      state->records[i].cpuNr = static_cast<std::int8_t>(random.bits());
    state->processors[i].number = state->records[i].cpuNr;
  }
}

} // namespace walk
