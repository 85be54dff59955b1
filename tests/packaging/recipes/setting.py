# A number that is kept for each processor, and that no command holds.
behind("debug_dialog/include/ZelDebugDialog/ProcessorInfo.h", "std::uint32_t bscanUserReg = 3;",
       "  std::uint32_t traceDepth = 0; ///< Branches to keep; never written.")
rows = "debug_dialog/src/facts/FieldRows.h"
instead(rows, "std::array<FieldRow, 56> fieldRows", "std::array<FieldRow, 57> fieldRows")
behind(rows, '{"bscanUserReg", &ProcessorInfoImp::bscanUserReg},',
       '    {"traceDepth", &ProcessorInfoImp::traceDepth},')
instead("debug_dialog/src/KvoOption_Parser/ConnectCommand.cpp", "&ProcessorInfoImp::uartOverHdu>;",
        "&ProcessorInfoImp::uartOverHdu, &ProcessorInfoImp::traceDepth>;")
ahead("configuration_model/src/settings/SettingTable.cpp", 'Draft("connectCommand", connection,', """
    Draft("traceDepth", debugDevice, "Trace depth", SettingKind::number, "Number of branches that the debugger keeps.").range(0, most32),
""")

ahead("dialog/translations/settings_de.ts", "</context>", """
    <message>
        <source>Trace depth</source>
        <translation>Tiefe der Spur</translation>
    </message>
    <message>
        <source>Number of branches that the debugger keeps.</source>
        <translation>Zahl der Sprünge, die der Debugger behält.</translation>
    </message>
""")

instead("tests/support/Fields.h", 'Field{"bscanUserReg", &R::bscanUserReg});', """Field{"bscanUserReg", &R::bscanUserReg},
                    Field{"traceDepth", &R::traceDepth});""")
record = "tests/engine/ProcessorRecordTest.cpp"
behind(record, '"bscanUserReg 0x3\\n"', '                                        "traceDepth 0x0\\n"')
instead(record, "EXPECT_EQ(fields.size(), 40U);", "EXPECT_EQ(fields.size(), 41U);")
behind("tests/support/RoundTripPrediction.cpp", "becomes(y.simMemSize, 16, Loss::NeverWritten);",
       "    becomes(y.traceDepth, 0, Loss::NeverWritten);")
behind("tests/language/RoundTripMaker.cpp", 'record.simMemSize = word32("simMemSize");',
       '  record.traceDepth = word32("traceDepth");')

instead("docs/round-trip.md", "the versions of processor and debug module,",
        "the trace depth, the versions of processor and debug module,")

common = "docs/schema/common.schema.json"
behind(common, '        "bscanUserReg",', '        "traceDepth",')
ahead(common, '        "connectCommand": {', """
        "traceDepth": {
          "type": "integer",
          "minimum": 0,
          "maximum": 4294967295,
          "description": "Number of branches that the debugger keeps"
        },
""")
show = "docs/schema/show.schema.json"
behind(show, '            "bscanUserReg",', '            "traceDepth",')
ahead(show, '            "connectCommand": {', """
            "traceDepth": {
              "$ref": "common.schema.json#/$defs/origin"
            },
""")
behind("tests/zeldebug/ShowCommandTest.cpp", '{"bscanUserReg", 3},', '                    {"traceDepth", 0},')
ahead("tests/configuration_model/expected/settings.txt", "connectCommand", """
traceDepth
  label: Debug device, Trace depth
  help: Number of branches that the debugger keeps.
  kind: number
  range: 0 to 4294967295
""")
