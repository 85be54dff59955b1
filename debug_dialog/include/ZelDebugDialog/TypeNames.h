// The type names of components by which a design tells the debugger what they
// are: each stands here and nowhere else.
//
// Constants, usable from any thread.
#ifndef ZELDEBUGDIALOG_TYPENAMES_H
#define ZELDEBUGDIALOG_TYPENAMES_H

#include <array>
#include <string_view>

namespace ZelDebugDialog {

// Compared exactly:

/// Debug modules, which lead to Lumacores.
inline constexpr std::array<std::string_view, 2> debugModuleTypes{"hdu_cedar",
                                                                  "hdu"};
/// The controller that leads to PowerPCs.
inline constexpr std::string_view ppcControllerType = "ppc_jtag_link";
/// A Lumacore, which needs no debug module for its simulator.
inline constexpr std::string_view lumacoreTypeName = "lumacore";
/// A Cortex-A9, which needs none at all.
inline constexpr std::string_view cortexA9TypeName = "soc_cortexa9";
/// A PowerPC 405, which the controller leads to.
inline constexpr std::string_view ppc405TypeName = "ppc405_core";
/// A PowerPC 440, the same.
inline constexpr std::string_view ppc440TypeName = "ppc440_core";
/// A Cortex-R5, which no walk through a design lists.
inline constexpr std::string_view cortexR5TypeName = "soc_cortexr5";
/// All processors.
inline constexpr std::array<std::string_view, 5> processorTypeNames{
    lumacoreTypeName, ppc405TypeName, ppc440TypeName, cortexA9TypeName,
    cortexR5TypeName};
/// UARTs that a serial stub works over.
inline constexpr std::array<std::string_view, 2> stubUartTypes{
    "uart_mini_cedar", "uart_mini_ember"};
/// A floating-point unit of single precision.
inline constexpr std::string_view fpuTypeName = "aux_fpu";
/// A floating-point unit whose precision is a parameter.
inline constexpr std::string_view gen5FpuTypeName = "aux_fpu_gen5";

// Compared in any case:

/// Type names of memories that share a class.
struct MemoryRule {
  /// How a type name is compared.
  enum class Match {
    whole,    ///< The type name is `name`.
    anywhere, ///< `name` stands in the type name.
  };
  Match match = Match::whole; ///< For this rule.
  std::string_view name;      ///< In lower case.
  std::string_view label;     ///< The class.
};

/// Memory on the chip.
inline constexpr std::string_view memoryOnChip = "BRAM";
/// Dynamic memory.
inline constexpr std::string_view memoryDynamic = "EXT_DRAM";
/// Static memory, or flash.
inline constexpr std::string_view memoryStatic = "EXT_SRAM_FLASH";
/// No memory.
inline constexpr std::string_view memoryNone = "OTHER";

/// The first rule that matches decides. The names with "ddr" behind the rule
/// for "ddr" are there to make the list of controllers complete.
inline constexpr std::array<MemoryRule, 24> memoryRules{{
    {MemoryRule::Match::whole, "ocm_ctl_amber", memoryOnChip},
    {MemoryRule::Match::whole, "ocm_ctl_ember", memoryOnChip},
    {MemoryRule::Match::whole, "ocm_ctl_delta", memoryOnChip},
    {MemoryRule::Match::whole, "ocm_ctl_birch", memoryOnChip},
    {MemoryRule::Match::whole, "ocm_ctl_cedar", memoryOnChip},
    {MemoryRule::Match::whole, "ocm_iside_ctl", memoryOnChip},
    {MemoryRule::Match::whole, "ocm_dside_ctl", memoryOnChip},
    {MemoryRule::Match::whole, "soc_ocram", memoryOnChip},
    {MemoryRule::Match::anywhere, "ddr", memoryDynamic},
    {MemoryRule::Match::whole, "multiport_memctl", memoryDynamic},
    {MemoryRule::Match::whole, "hardcore_ddr2_ctl", memoryDynamic},
    {MemoryRule::Match::whole, "sdram_ctl_birch", memoryDynamic},
    {MemoryRule::Match::whole, "ddr_ctl_birch", memoryDynamic},
    {MemoryRule::Match::whole, "ddr2_ctl_birch", memoryDynamic},
    {MemoryRule::Match::whole, "sdram_ctl_cedar_mc", memoryDynamic},
    {MemoryRule::Match::whole, "ddr_ctl_cedar_mc", memoryDynamic},
    {MemoryRule::Match::whole, "ddr2_ctl_cedar_mc", memoryDynamic},
    {MemoryRule::Match::whole, "ddr_ctl_cedar", memoryDynamic},
    {MemoryRule::Match::whole, "sdram_ctl_cedar", memoryDynamic},
    {MemoryRule::Match::whole, "emc_ctl_delta", memoryStatic},
    {MemoryRule::Match::whole, "emc_ctl_ember_mc", memoryStatic},
    {MemoryRule::Match::whole, "emc_ctl_cedar_mc", memoryStatic},
    {MemoryRule::Match::whole, "emc_ctl_cedar", memoryStatic},
    {MemoryRule::Match::whole, "emc_ctl_birch", memoryStatic},
}};

} // namespace ZelDebugDialog

#endif
