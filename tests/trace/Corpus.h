// Commands that reading and tracing are compared over: every clause, and every
// way to be refused.
#ifndef ZELDEBUGDIALOG_TESTS_TRACE_CORPUS_H
#define ZELDEBUGDIALOG_TESTS_TRACE_CORPUS_H

#include <string>
#include <vector>

namespace ZelDebugDialog::test {

inline const std::vector<std::string> acceptedCommands{
    "connect lc hdu",
    "KCONNECT LC HDU -QUIET -NoAttach -writeonly",
    "connect lc sim",
    "connect lc sim -memsize 0x40 and more",
    "connect lc sim value",
    "connect lc sim -memsize -foo",
    "connect lc stub -comm serial -port /dev/ttyS1 -baud 0x1c200 -timeout 010",
    "connect lc stub -comm jtag -cable type quorla_parallel3 frequency 200000",
    "connect lc stub -port",
    "connect lc stub -port -baud -quiet",
    "connect lc stub -comm -cable -debugdevice devicenr 3",
    "connect lc hdu -cable type quorla_podusb port USB22 frequency 625000 "
    "-configdevice devicenr 1 partname a irlength 6 idcode 0x1234093 isfpga 1 "
    "hardppc ppc405 nppc 2 -configdevice devicenr 200 hardppc other",
    "connect lc hdu -cable type quorla_plugin modulename m modulearg a "
    "modulearg b esn 00:aB url u://v fname f.svf",
    "connect lc hdu -cable type digilent_plugin",
    "connect lc hdu -configdevice jtagport cpu",
    "connect lc hdu -bscan USER4 -pfsl port 3 type ms -quiet",
    "connect lc hdu -sim -ipcport host:77",
    "connect lc hdu -sim -configdevice devicenr 3",
    "connect lc hdu -sim -ipcport nocolon",
    "connect lc hdu -debugdevice devicenr 2 cpunr 200 romemStartAdr 0x0 "
    "romemSize 65536 cpu_version 7.1 hdu_version x nCpu -3 fpuType DP",
    "connect ppc hw -debugdevice proctype ppc440 icacheStartAdr 0x10000 "
    "dcacheStartAdr 0x20000 itagStartAdr 0x30000 dtagStartAdr 0x40000 "
    "isocmStartAdr 1 isocmSize 2 isocmDcrStartAdr 3 tlbStartAdr 0x50000 "
    "dcrStartAdr 0x60000",
    "connect ppc sim",
    "connect ppc sim -icf file.cfg -ipcport h:1",
    "connect ppc sim -ipcport host1 -icf f",
    "connect ppc sim -ipcport :5 -ipcport",
    "connect ppc sim -debugdevice fpuType none",
    "connect ppc sim -icf",
    "connect arm hw -quiet",
    "connect r5 hw -debugdevice devicenr 1",
    "connect dap hw",
    "connect hdu",
    "connect hdu -uart -bscan user3 -debugdevice devicenr 1 -cable type "
    "quorla_podusb",
    "connect hdu -configdevice partname p",
    "connect dcc -uart -cable type digilent_plugin",
    "connect kmtc -debugdevice devicenr 4",
    "vpconnect lc",
    "kvpconnect LC -config CYCLE_APPROXIMATE -ipcport :2341",
    "vpconnect lc -ipcport myhost",
};

inline const std::vector<std::string> refusedCommands{
    "",
    "   ",
    "reconnect lc hdu",
    "connect",
    "connect mips hw",
    "connect lc",
    "connect lc hw",
    "connect arm sim",
    "connect lc sim -mem 5",
    "connect lc sim -memsize",
    "connect lc hdu value",
    "connect lc hdu -quiet value",
    "connect lc hdu -foo",
    "connect lc stub -comm can",
    "connect lc stub -port -baud 5",
    "connect lc stub -port -baud 9600 -timeout 5",
    "connect lc hdu -comm -cable type foo",
    "connect lc hdu -baud -debugdevice devicenr 300",
    "connect lc hdu -bscan -cable type foo",
    "connect hdu -bscan -cable type foo",
    "connect lc hdu -sim -configdevice devicenr -ipcport h:3",
    "connect ppc sim -debugdevice devicenr -icf f",
    "connect lc hdu -bscan USER5",
    "connect lc hdu -bscan",
    "connect lc hdu -bscan -quiet",
    "connect lc hdu -pfsl type x",
    "connect lc hdu -pfsl speed 1",
    "connect lc hdu -cable type quorla_svffile",
    "connect lc hdu -cable type other",
    "connect lc hdu -cable kind 1",
    "connect lc hdu -cable port",
    "connect lc hdu -cable port -quiet",
    "connect lc hdu -cable type quorla_plugin",
    "connect lc hdu -cable type quorla_podusb frequency 625000",
    "connect lc hdu -cable type digilent_plugin frequency 1",
    "connect lc hdu -configdevice jtagport fpga",
    "connect lc hdu -configdevice jtagpin cpujtag",
    "connect lc hdu -configdevice devicenr",
    "connect lc hdu -sim -icf f",
    "connect lc hdu -sim value",
    "connect lc hdu -debugdevice devicenrx 1",
    "connect lc hdu -debugdevice fpuType xp",
    "connect lc hdu -debugdevice proctype ppc603",
    "connect ppc hw -debugdevice icacheStartAdr 0x18000",
    "connect ppc sim -foo",
    "connect ppc sim -ipcport h:1 -foo",
    "connect ppc sim -icf -ipcport h:1",
    "connect ppc sim -debugdevice devicenr 1 -ipcport h:1",
    "connect hdu value",
    "connect hdu -uart -foo",
    "connect hdu -uart value",
    "connect hdu -foo",
    "connect dcc -bscan USER1",
    "connect kmtc -uart",
    "vpconnect",
    "vpconnect ppc",
    "vpconnect lc -config exact",
    "vpconnect lc -config",
    "vpconnect lc -ipcport",
    "vpconnect lc -foo",
};

inline const std::vector<std::string> commandsWithLoneDash{
    "-",
    "connect -",
    "connect lc -",
    "connect lc sim -memsize -",
    "connect lc hdu -quiet - rest",
    "connect lc hdu -cable port -",
    "connect lc hdu -configdevice - 1",
    "connect ppc sim -icf - -ipcport",
    "vpconnect lc -ipcport -",
};

} // namespace ZelDebugDialog::test

#endif
